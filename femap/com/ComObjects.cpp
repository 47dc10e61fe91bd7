#include "femap/com/ComObjects.h"

#include "femap/com/BulkCalls.h"
#include "femap/com/BulkCapabilities.h"
#include "femap/com/Codes.h"
#include "femap/com/VectorEntities.h"
#include "system/RuntimeError.h"

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

// Raises where a 0 stands for no value.
double believed(double value, VectorEntities& entities, int outputSet, int vectorID, int entityID)
{
    if (value == 0 && !entities.has(outputSet, vectorID, entityID))
        throw RuntimeError(ErrorNumber::ObjectFailed, noValueText(vectorID, entityID));
    return value;
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

}  // namespace

int addColumn(Dispatch& results, int outputSet, int vectorID)
{
    const std::string what = "Output vector " + std::to_string(vectorID) + " cannot be read";
    LONG columns = 0;
    Variant indices;
    demandOk(code(results.call("AddColumnV2", outputSet, vectorID, false, &columns, &indices)),
             what);
    const std::vector<int> column = indices.numbers();
    if (columns != 1 || column.empty())
        throw RuntimeError(ErrorNumber::ObjectFailed, what + ": FEMAP added no column for it");
    return column.front();
}

femap::Value readable(const Variant& returned)
{
    femap::Value value = returned.value();
    if (std::string* const text = std::get_if<std::string>(&value))
        *text = withoutControlCharacters(std::move(*text));
    return value;
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
        return code(object_.call("Select", number(type), clear, title));
    if (clear)
        object_.call("clear");
    return fillFromAnswer(type, title);
}

ReturnCode ComSet::SelectMultiID(EntityType type, int ownerSet, const std::string& title)
{
    if (context_.dialogs != nullptr)
        return fillFromAnswer(type, title);
    const char* const member = object_.has("SelectMultiIDV2") ? "SelectMultiIDV2" : "SelectMultiID";
    return askAlsoUnlocked(
        [&] { return code(object_.call(member, number(type), ownerSet, title)); });
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

ClassicOutputVector::ClassicOutputVector(const ComContext& context)
    : ByName(context.application.object("feOutput")),
      set_(activeOutputSet(context.application)),
      entities_(std::make_shared<VectorEntities>(context))
{
    if (set_ != 0)
        object_.put("setID", set_);
}

ReturnCode ClassicOutputVector::Get(int vectorID)
{
    const ReturnCode returned = code(object_.call("Get", vectorID));
    if (returned == ReturnCode::Ok && vectorID != 0)
        vector_ = vectorID;
    return returned;
}

int ClassicOutputVector::ID()
{
    return object_.call("ID").number();
}

std::string ClassicOutputVector::Title()
{
    return withoutControlCharacters(object_.call("title").text());
}

double ClassicOutputVector::Value(int entityID)
{
    return believed(object_.call("Value", entityID).real(), *entities_, set_, vector_, entityID);
}

double ClassicOutputVector::maxval()
{
    return object_.call("maxval").real();
}

double ClassicOutputVector::minval()
{
    return object_.call("minval").real();
}

ModernOutputVector::ModernOutputVector(ComContext context)
    : context_(std::move(context)),
      results_(context_.application.object("feResults")),
      set_(activeOutputSet(context_.application)),
      entities_(std::make_shared<VectorEntities>(context_))
{}

femap::Value ModernOutputVector::member(const std::string& name)
{
    if (name == "maxval")
        return maxval();
    if (name == "minval")
        return minval();
    throw RuntimeError(ErrorNumber::NoSuchMember, "An output vector has no member " + name);
}

femap::Value ModernOutputVector::member(const std::string& name, int index)
{
    throw RuntimeError(ErrorNumber::NoSuchMember, "An output vector has no array member " + name +
                                                      "(" + std::to_string(index) + ")");
}

ReturnCode ModernOutputVector::Get(int vectorID)
{
    if (results_.call("VectorExistsV2", set_, vectorID).number() !=
        static_cast<int>(ReturnCode::Ok))
        return ReturnCode::NotExist;
    vector_ = vectorID;
    return ReturnCode::Ok;
}

// Empty before the first Get, as with feOutput.
std::string ModernOutputVector::Title()
{
    if (vector_ == 0)
        return {};
    OutText title;
    demandOk(code(results_.call("VectorTitleV2", set_, vector_, title.address())),
             "FEMAP knows no title of output vector " + std::to_string(vector_));
    return withoutControlCharacters(title.text());
}

int ModernOutputVector::classicID()
{
    if (vector_ == 0)
        return 0;
    return classicVectorID(context_, vector_);
}

double ModernOutputVector::Value(int entityID)
{
    double value = 0;
    demandOk(code(results_.call("EntityValueV2", set_, vector_, entityID, &value)),
             "Output vector " + std::to_string(vector_) + " has no value at " +
                 std::to_string(entityID));
    return believed(value, *entities_, set_, vector_, entityID);
}

ModernOutputVector::Extremes ModernOutputVector::extremes()
{
    if (vector_ == 0)
        return {};
    const std::string what = "The extremes of output vector " + std::to_string(vector_);
    const int limit = entities_->setOf(set_, vector_);
    Dispatch table = context_.application.object("feResults");
    const int column = addColumn(table, set_, vector_);
    demandOk(code(table.call("Populate")), what + " cannot be read");
    LONG minimumID = 0;
    LONG maximumID = 0;
    Extremes result{};
    demandOk(code(table.call("GetColumnMinMax", column, limit, &minimumID, &maximumID,
                             &result.minimum, &result.maximum)),
             what + " cannot be read");
    return result;
}

ReturnCode ComFunction::SelectID(const std::string& title)
{
    if (context_.dialogs == nullptr)
        return code(object_.call("SelectID", title));
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
    IDispatch* load = nullptr;
    const ReturnCode returned = code(object_.call("NextLoad", &load));
    if (load == nullptr)
        return nullptr;
    Dispatch unknown = object_.adopt(load, "load");
    if (returned != ReturnCode::Ok)
        return nullptr;
    const std::string kind = kindOf(unknown);
    return std::make_unique<ComLoad>(std::move(unknown).as(kind));
}

}  // namespace femap::com
