// Nodes, elements, properties and materials: every field that the tool reads, by the same table.
#include "femap/ElementTypes.h"
#include "femap/TypeLibrary.h"
#include "probe/Entities.h"
#include "probe/Reads.h"
#include "probe/Sets.h"

#include <algorithm>

namespace probe
{

namespace
{

using femap::EntityType;
using selection::Field;

constexpr std::size_t mostLookedAt = 1000;  // for one of each type
constexpr int missingID = 99999999;

// clang-format off
constexpr EntityKind entityKinds[] = {
    {"Node", "feNode", EntityType::Node,     false},
    {"Elem", "feElem", EntityType::Element,  true},
    {"Prop", "feProp", EntityType::Property, true},
    {"Matl", "feMatl", EntityType::Material, true},
};

struct SubType
{
    int type;
    std::string_view word;  // of the field catalogue
};

constexpr SubType subTypes[] = {
    {femap::elementRod,            "Rod"},
    {femap::elementBar,            "Bar"},
    {femap::elementBeam,           "Beam"},
    {femap::elementPlate,          "Plate"},
    {femap::elementPlateParabolic, "Plate"},
};

struct BeyondTheEnd
{
    std::string_view object;
    std::string_view member;
    int index;
};

constexpr BeyondTheEnd placesBeyond[] = {
    {"feElem", "orient", 3},
    {"feElem", "orient", 11},
    {"feElem", "node",   20},
    {"feProp", "pval",   199},  // the last one
    {"feProp", "pval",   200},
    {"feMatl", "mval",   199},  // the last one
    {"feMatl", "mval",   200},
};
// clang-format on

// Places of pval of which nobody could say what they hold.
struct UnsurePlace
{
    int type;
    int place;
    std::string_view name;
};

// clang-format off
constexpr UnsurePlace unsurePlaces[] = {
    {femap::elementRod,            4, "J"},
    {femap::elementRod,            5, "torsion constant"},
    {femap::elementRod,            8, "initial tension"},
    {femap::elementPlate,          1, "thickness at corner 2"},
    {femap::elementPlate,          2, "thickness at corner 3"},
    {femap::elementPlate,          3, "thickness at corner 4"},
};
// clang-format on

const selection::FieldList* fieldsOf(const EntityKind& kind, int type)
{
    const auto* const found = std::ranges::find(subTypes, type, &SubType::type);
    return selection::findFieldList(
        kind.word,
        kind.type != EntityType::Property || found == std::end(subTypes) ? "" : found->word);
}

std::vector<Chosen> chooseOneOfEachType(Session& session, const Object& application,
                                        const EntityKind& kind, const Object& entity)
{
    session.report.begin("one " + entity.name() + (kind.hasTypes ? " of each type" : ""));
    std::map<int, int> found;  // IDs by type
    const std::vector<int> ids = allIDs(application, kind.type);
    for (const int id : sampleOf(ids, kind.hasTypes ? mostLookedAt : 1))
        if (entity.call("Get", list(id)).isOk())
            found.emplace(kind.hasTypes ? entity.call("type").value.number() : 0, id);
    std::vector<Chosen> chosen;
    chosen.reserve(found.size());
    for (const auto& [type, id] : found)
        chosen.push_back({id, type, fieldsOf(kind, type)});
    std::ranges::sort(chosen, {}, &Chosen::id);  // as bulk calls return them
    std::vector<int> chosenIDs;
    chosenIDs.reserve(chosen.size());
    for (const Chosen& each : chosen)
        chosenIDs.push_back(each.id);
    session.report.end(chosen.empty() ? Verdict::NotTried : Verdict::Found, shown(chosenIDs));
    return chosen;
}

VARTYPE believedType(std::string_view object, std::string_view member)
{
    const auto* const table = femap::library::interfaceOf(object);
    const auto* const found =
        table == nullptr ? nullptr : femap::library::find(table->members, member);
    return found == nullptr         ? VARTYPE{VT_EMPTY}
           : found->returned == 'd' ? VARTYPE{VT_R8}
           : found->returned == 'b' ? VARTYPE{VT_BOOL}
                                    : VARTYPE{VT_I4};
}

void readField(Session& session, const Object& entity, const Field& field, std::size_t place,
               PlainNumbers& plain)
{
    const std::string member(field.member);
    std::vector<Argument> index;
    if (field.isIndexed())
        index.emplace_back(field.index);
    const VARTYPE believed = believedType(entity.name(), member);
    if (believed == VT_EMPTY) {  // the tool offers it, though FEMAP lacks it
        const Answer answer = session.ask(entity, member, std::move(index));
        const bool isUnknown = answer.result == DISP_E_UNKNOWNNAME;
        session.tell(isUnknown ? Verdict::Same : Verdict::Differs,
                     isUnknown         ? "absent, as believed"
                     : answer.isDone() ? session.shown(answer) + "; believed: absent"
                                       : session.reason(answer),
                     answer);
        return;
    }
    const bool isBeyond = member == "orient" && field.index > 2;  // told with the others
    if (isBeyond)
        return;
    const Answer answer = session.read(entity, member, {believed}, std::move(index),
                                       field.name == field.member ? "" : std::string(field.name));
    if (answer.isDone())
        plain[{member, field.index}][place] = answer.value.real();
}

void readFields(Session& session, const EntityKind& kind, const Object& entity,
                const Chosen& chosen, std::size_t place, PlainNumbers& plain)
{
    Report& report = session.report;
    report.say("The " + std::string(kind.word) + ' ' + std::to_string(chosen.id) +
               (kind.hasTypes ? ", " + typeWord(kind, chosen.type) : "") + ':');
    if (!session.read(entity, "Get", statusAnd(), list(chosen.id)).isOk())
        return;
    if (kind.type == EntityType::Property || kind.type == EntityType::Material)
        session.read(entity, "title", {VT_BSTR});
    for (const Field& field : chosen.fields->fields)
        readField(session, entity, field, place, plain);
    for (const Field& field : chosen.fields->commonFields)
        readField(session, entity, field, place, plain);
    for (const UnsurePlace& each : unsurePlaces)
        if (kind.type == EntityType::Property && each.type == chosen.type)
            report.answer(Question::PlacesOfProperties,
                          std::string(typeWord(kind, chosen.type)) + " of property " +
                              std::to_string(chosen.id) + ": pval(" + std::to_string(each.place) +
                              ") is " + shown(plain[{"pval", each.place}][place]) +
                              "; compare it in FEMAP with the " + std::string(each.name));
}

// FEMAP's answer to a place that the array does not have.
void readBeyond(Session& session, const Object& application, const EntityKind& kind)
{
    const std::vector<int> ids = allIDs(application, kind.type);
    const Object entity = application.object(std::string(kind.object));
    if (ids.empty() || !entity.call("Get", list(ids.front())).isOk())
        return;
    for (const BeyondTheEnd& each : placesBeyond) {
        if (each.object != kind.object)
            continue;
        const Answer answer = session.ask(entity, std::string(each.member), list(each.index));
        const std::string text =
            answer.isDone() ? session.shown(answer) : "error " + session.reason(answer);
        session.tell(Verdict::Found, text, answer);
        session.report.answer(Question::BeyondTheEnd,
                              std::string(each.object) + '.' + std::string(each.member) + '(' +
                                  std::to_string(each.index) + "): " + text);
    }
}

void getMissing(Session& session, const Object& entity, int lastID)
{
    Answer answer = session.ask(entity, "Get", list(missingID));
    const bool fails = answer.isDone() && !answer.isOk();
    session.tell(fails ? Verdict::Same : Verdict::Differs,
                 (answer.isDone() ? session.shown(answer) : session.reason(answer)) +
                     (fails ? "" : "; believed: a status other than -1"),
                 answer);
    answer = session.ask(entity, "ID");
    const bool stays = answer.value.number() == lastID;
    session.tell(
        stays ? Verdict::Same : Verdict::Differs,
        session.shown(answer) + (stays ? ", the one before, as believed"
                                       : "; believed: the one before, " + std::to_string(lastID)),
        answer);
}

void askWithReal(Session& session, const Object& property)
{
    const Answer answer = session.ask(property, "pval", list(0.0));
    const std::string text = answer.isDone() ? session.shown(answer) : session.reason(answer);
    session.tell(Verdict::Found, text, answer);
    session.report.answer(Question::TypesOfArguments, "R8 as index of pval: " + text);
}

void probeKind(Session& session, const Object& application, const EntityKind& kind, bool isModern)
{
    const Object entity = session.object(application, std::string(kind.object));
    if (!entity.isThere())
        return;
    const std::vector<Chosen> chosen = chooseOneOfEachType(session, application, kind, entity);
    if (chosen.empty())
        return;
    PlainNumbers plain;
    for (std::size_t place = 0; place < chosen.size(); ++place)
        readFields(session, kind, entity, chosen[place], place, plain);
    if (kind.type == EntityType::Property)
        askWithReal(session, entity);
    getMissing(session, entity, chosen.back().id);
    compareBulk(session, application, kind, entity, chosen, plain, isModern);
}

}  // namespace

std::string typeWord(const EntityKind& kind, int type)
{
    std::string number = "type " + std::to_string(type);
    const femap::ElementTypeWord* const word = femap::findElementTypeWord(type);
    if (kind.type == EntityType::Material || word == nullptr)
        return number;
    return std::string(word->word) +
           (word->order == femap::ElementTypeWord::Parabolic ? ", parabolic" : "") + " (" + number +
           ')';
}

void probeEntities(Session& session, const Object& application, Generation generation)
{
    session.report.section("C2 Nodes, elements, properties, materials");
    for (const EntityKind& kind : entityKinds)
        probeKind(session, application, kind, generation == Generation::Modern);
}

void probeBeyondTheEnd(Session& session, const Object& application)
{
    session.report.section("C7 Places beyond the end of an array");
    for (const EntityKind& kind : entityKinds)
        readBeyond(session, application, kind);
}

}  // namespace probe
