#include "femap/com/ComObjects.h"

#include "femap/Numbers.h"
#include "femap/com/BulkCalls.h"
#include "femap/com/BulkCapabilities.h"
#include "femap/com/Codes.h"
#include "femap/com/FemapWindow.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>
#include <variant>

namespace femap::com
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

std::vector<int> idsOf(Dispatch& set)
{
    LONG count = 0;
    Variant ids;
    set.call("GetArray", &count, &ids);
    std::vector<int> numbers = ids.numbers();
    cutTo(numbers, count);
    return numbers;
}

// Each kind of load object has a member that the others lack. The definition's data type need not
// tell it, for a definition may hold loads of several kinds.
std::string kindOf(Dispatch& load)
{
    for (const auto& [member, kind] : {std::pair{"meshID", "mesh load"},
                                       {"geomID", "geometry load"},
                                       {"gradient", "elemental temperature"}})
        if (load.shows(member))
            return kind;
    return "nodal temperature";
}

/// An array of which each place is read by an index, and the member that gives it as a whole.
struct ArrayMember
{
    std::string_view name;
    const char* whole;
    int usualPlaces;
};

// clang-format off
constexpr ArrayMember arrayMembers[] = {
    {"orient", "vorient", 3},
    {"node",   "vnode",   20},
    {"pval",   "vpval",   numbersLength},
    {"mval",   "vmval",   numbersLength},
    {"load",   "vload",   5},
};
// clang-format on

}  // namespace

// Whether FEMAP raises for a place beyond an array is not known. Where it gives a value for one
// beyond the usual places, the length of the whole array tells whether it has that place.
void demandPlace(Dispatch& object, const std::string& name, int index)
{
    const auto* const array = std::ranges::find_if(
        arrayMembers, [&](const ArrayMember& one) { return isSameName(one.name, name); });
    if (array == std::end(arrayMembers) || index < array->usualPlaces)
        return;
    const std::optional<std::size_t> places = object.placesIn(array->whole);
    if (places && static_cast<std::size_t>(index) >= *places)
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                           "FEMAP's " + name + " has no place " + std::to_string(index));
}

femap::Value readable(const Variant& returned)
{
    femap::Value value = returned.value();
    if (std::string* const text = std::get_if<std::string>(&value))
        *text = withoutControlCharacters(std::move(*text));
    return value;
}

std::optional<Dispatch> nextLoad(Dispatch& definition)
{
    IDispatch* load = nullptr;
    const ReturnCode returned = code(definition.call("NextLoad", &load));
    if (load == nullptr)
        return std::nullopt;
    Dispatch unknown = definition.adopt(load, "load");
    if (returned != ReturnCode::Ok)
        return std::nullopt;
    return unknown;
}

Dispatch asLoadOfItsKind(Dispatch load)
{
    const std::string kind = kindOf(load);
    return std::move(load).as(kind);
}

int activeOutputSet(Dispatch& application)
{
    const int active = application.call("Info_ActiveID", number(EntityType::OutputSet)).number();
    if (active != 0)
        return active;
    Dispatch sets = application.object("feSet");
    sets.call("AddAll", number(EntityType::OutputSet));
    return sets.call("First").number();
}

int classicVectorID(const ComContext& context, int vectorID)
{
    constexpr const char* convert = "feOutputConvertV2020VectorIDToV2019V2";
    if (context.classic || !context.application.has(convert))
        return vectorID;
    const int classic = context.application.call(convert, vectorID).number();
    return classic > 0 ? classic : vectorID;
}

ReturnCode ComEntity::Get(int id)
{
    return code(object_.call("Get", id));
}

int ComEntity::Type()
{
    return object_.call("type").number();
}

int ComSet::ID()
{
    return object_.call("ID").number();
}

int ComSet::count()
{
    return object_.call("Count").number();
}

void ComSet::Reset()
{
    object_.call("Reset");
}

int ComSet::Next()
{
    return object_.call("Next").number();
}

std::vector<int> ComSet::ids()
{
    if (context_.bulk == nullptr || !context_.bulk->sets.isUsable)
        return EntitySet::ids();
    try {
        return idsIn(object_);
    }
    catch (const RuntimeError&) {
        context_.bulk->sets.isUsable = false;
        return EntitySet::ids();
    }
}

ReturnCode ComSet::AddAll(EntityType type)
{
    if (type != EntityType::OutputVector)
        return code(object_.call("AddAll", number(type)));
    return addOutputVectors();
}

// FEMAP does not say which output set AddAll takes vectors from, so those of the active one, whose
// results the program reads, are added explicitly.
ReturnCode ComSet::addOutputVectors()
{
    const int active = activeOutputSet(context_.application);
    if (active == 0)
        return ReturnCode::Ok;
    const int ownID = ID();
    if (context_.classic) {
        Dispatch outputSet = context_.application.object("feOutputSet");
        demandOk(code(outputSet.call("Get", active)), "The active output set cannot be read");
        return code(outputSet.call("OutputVectors", ownID));
    }
    Dispatch results = context_.application.object("feResults");
    return code(results.call("VectorsV2", active, ownID, false));
}

ReturnCode ComSet::Copy(int setID)
{
    return code(object_.call("Copy", setID));
}

ReturnCode ComSet::Select(EntityType type, bool clear, const std::string& title)
{
    if (context_.dialogs == nullptr)
        return code(object_.callDialog(processOf(mainWindowOf(context_.application)), "Select",
                                       number(type), clear, title));
    if (clear)
        object_.call("clear");
    return fillFromAnswer(type, title);
}

ReturnCode ComSet::SelectMultiID(EntityType type, int ownerSet, const std::string& title)
{
    if (context_.dialogs != nullptr)
        return fillFromAnswer(type, title);
    const char* const member = object_.has("SelectMultiIDV2") ? "SelectMultiIDV2" : "SelectMultiID";
    return askAlsoUnlocked([&] {
        return code(object_.callDialog(processOf(mainWindowOf(context_.application)), member,
                                       number(type), ownerSet, title));
    });
}

// Whether FEMAP shows a dialog while it is locked is not known. When it neither let the engineer
// answer nor found that there is nothing to select, it is asked once more, unlocked.
template <class Ask>
ReturnCode ComSet::askAlsoUnlocked(const Ask& ask)
{
    if (context_.locks == 0)
        return ask();
    try {
        const ReturnCode answer = ask();
        if (answer == ReturnCode::Ok || answer == ReturnCode::Cancel ||
            answer == ReturnCode::NotExist)
            return answer;
    }
    catch (const RuntimeError&) {
        // Perhaps because FEMAP is locked.
    }
    const auto callForEachLock = [this](const char* member) {
        for (int i = 0; i < context_.locks; ++i)
            context_.application.call(member);
    };
    callForEachLock("feAppUnlock");
    try {
        const ReturnCode answer = ask();
        callForEachLock("feAppLock");
        return answer;
    }
    catch (const RuntimeError&) {
        callForEachLock("feAppLock");
        throw;
    }
}

ReturnCode ComSet::fillFromAnswer(EntityType type, const std::string& title)
{
    Dispatch existing = context_.application.object("feSet");
    existing.call("AddAll", number(type));
    const Selection answer = context_.dialogs->answer(type, title, false, idsOf(existing));
    if (answer.code == ReturnCode::Ok && !answer.ids.empty())
        object_.call("AddArray", static_cast<int>(answer.ids.size()), answer.ids);
    return answer.code;
}

ReturnCode ComFunction::SelectID(const std::string& title)
{
    if (context_.dialogs == nullptr)
        return code(
            object_.callDialog(processOf(mainWindowOf(context_.application)), "SelectID", title));
    Dispatch existing = context_.application.object("feSet");
    existing.call("AddAll", number(EntityType::Function));
    const Selection answer =
        context_.dialogs->answer(EntityType::Function, title, true, idsOf(existing));
    if (answer.code != ReturnCode::Ok)
        return answer.code;
    return answer.ids.empty() ? ReturnCode::Cancel : Get(answer.ids.front());
}

ReturnCode ComFunction::Get(int id)
{
    return code(object_.call("Get", id));
}

int ComFunction::ID()
{
    return object_.call("ID").number();
}

std::string ComFunction::title()
{
    return withoutControlCharacters(object_.call("title").text());
}

FunctionPoints ComFunction::GetFunctionList()
{
    LONG count = 0;
    Variant x;
    Variant y;
    demandOk(code(object_.call("GetFunctionList", &count, &x, &y)),
             "The points of function " + std::to_string(ID()) + " cannot be read");
    FunctionPoints points{x.reals(), y.reals()};
    cutTo(points.x, count);
    cutTo(points.y, count);
    if (points.x.size() != points.y.size())
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "FEMAP returned unlike numbers of X and Y values");
    return points;
}

ReturnCode ComLoadDefinition::Get(int loadSet, int id)
{
    object_.put("setID", loadSet);
    return code(object_.call("Get", id));
}

std::string ComLoadDefinition::title()
{
    return withoutControlCharacters(object_.call("title").text());
}

int ComLoadDefinition::setID()
{
    return object_.call("setID").number();
}

int ComLoadDefinition::ID()
{
    return object_.call("ID").number();
}

int ComLoadDefinition::loadType()
{
    return object_.call("loadType").number();
}

int ComLoadDefinition::dataType()
{
    return object_.call("dataType").number();
}

void ComLoadDefinition::ResetNextLoad()
{
    object_.call("ResetNextLoad");
}

std::unique_ptr<MemberObject> ComLoadDefinition::NextLoad()
{
    std::optional<Dispatch> load = nextLoad(object_);
    return load ? std::make_unique<ComLoad>(asLoadOfItsKind(*std::move(load))) : nullptr;
}

}  // namespace femap::com
