// Loads: the places of a load beside the members that have a name, and what ends a walk.
#include "probe/Reads.h"
#include "probe/Sets.h"

#include <algorithm>
#include <set>

namespace probe
{

namespace
{

using femap::EntityType;

constexpr std::size_t mostDefinitions = 100;
constexpr int mostLoads = 2000;  // that are walked over in one definition
constexpr int places = 5;

struct LoadKind
{
    std::string_view word;
    std::initializer_list<int> types;  // FEMAP's numbers
    std::initializer_list<std::string_view> names;
};

// clang-format off
const LoadKind loadKinds[] = {
    {"force",       {1, 81, 121, 122, 123, 161, 162, 163},                    {"x", "y", "z"}},
    {"moment",      {2, 82, 124, 125, 126, 164, 165, 166},                    {"x", "y", "z"}},
    {"pressure",    {13, 14, 42, 92, 93, 138, 144, 145, 178, 184, 185},       {"Pressure"}},
    {"heat flux",   {10, 44, 90, 134, 135, 136, 140, 174, 175, 176, 180},     {"HeatFlux"}},
    {"generation",  {11, 47, 91, 137, 143, 177, 183},                         {"HeatGen"}},
    {"convection",  {45, 141, 181},                              {"ConvectionCoeff", "temp"}},
    {"radiation",   {46, 142, 182},       {"Emissivity", "Absorptivity", "temp", "ViewFactor"}},
};
// clang-format on

const LoadKind* kindOf(int type)
{
    const auto* const found = std::ranges::find_if(loadKinds, [&](const LoadKind& kind) {
        return std::ranges::find(kind.types, type) != kind.types.end();
    });
    return found == std::end(loadKinds) ? nullptr : found;
}

// The places of load that hold the same number as a named member.
std::string placesOf(double value, const std::vector<double>& numbers)
{
    std::string text;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (numbers[i] == value)
            text += (text.empty() ? "load(" : ", load(") + std::to_string(i) + ')';
    return text.empty() ? "in no place of load" : text;
}

void readNamed(Session& session, const Object& load, const LoadKind& kind,
               const std::vector<double>& numbers)
{
    for (const std::string_view name : kind.names) {
        const Answer answer = session.ask(load, std::string(name));
        if (!answer.isDone()) {
            session.tell(verdictOfFailure(answer), session.reason(answer), answer);
            continue;
        }
        const std::string place = placesOf(answer.value.real(), numbers);
        session.tell(Verdict::Found, session.shown(answer) + ", as " + place, answer);
        const bool isOpen = kind.word == "convection" || kind.word == "radiation";
        if (isOpen && answer.value.real() != 0)
            session.report.answer(Question::PlacesOfLoads, std::string(kind.word) + ": " +
                                                               std::string(name) + " is " + place);
    }
}

void readMechanical(Session& session, const Object& load, int loadType)
{
    session.read(load, "type", {VT_I4});
    session.read(load, "subtype", {VT_I4});
    std::vector<double> numbers;
    numbers.reserve(static_cast<std::size_t>(places));
    for (int i = 0; i < places; ++i)
        numbers.push_back(session.read(load, "load", {VT_R8}, list(i)).value.real());
    session.read(load, "vload", {arrayOf(VT_R8)});
    if (const LoadKind* const kind = kindOf(loadType))
        readNamed(session, load, *kind, numbers);
}

void readLoad(Session& session, const Object& load, int dataType, int loadType)
{
    session.read(load, "ID", {VT_I4});
    session.read(load, "LoadDefinitionID", {VT_I4});
    if (dataType == 13 || dataType == 14) {
        session.read(load, dataType == 13 ? "meshID" : "geomID", {VT_I4});
        session.read(load, "expanded", {VT_BOOL});
        readMechanical(session, load, loadType);
    }
    else if (dataType == 15 || dataType == 16) {
        session.read(load, "temp", {VT_R8});
        session.read(load, "phase", {VT_R8});
    }
}

// Over all loads, unless they are too many; the first one is read.
void walk(Session& session, const Object& definition, int dataType, int loadType, bool reads)
{
    const int count = session.read(definition, "CountLoads", {VT_I4}).value.number();
    session.read(definition, "ResetNextLoad", statusAnd());
    if (count > mostLoads)
        session.report.say("  only its first load, for there are " + std::to_string(count));
    int met = 0;
    for (;;) {
        Answer next = definition.call("NextLoad", list(Argument::out(VT_DISPATCH)));
        if (!next.isOk()) {
            const std::string text = session.reason(next);
            session.report.line("  NextLoad after " + std::to_string(met) + " loads",
                                met == count ? Verdict::Found : Verdict::Differs,
                                text + (met == count ? "" : "; CountLoads says otherwise"));
            if (count > 0)
                session.report.answer(Question::PlacesOfLoads, "NextLoad ends with " + text);
            return;
        }
        const Object load(definition.connection(), next.filled[0].takeObject(), "load");
        if (met++ == 0 && reads)
            readLoad(session, load, dataType, loadType);
        if (count > mostLoads)
            return;
    }
}

void probeDefinition(Session& session, const Object& definition, int id,
                     std::set<std::pair<int, int>>& known)
{
    session.report.say("Load definition " + std::to_string(id) + ':');
    if (!session.read(definition, "Get", statusAnd(), list(id)).isOk())
        return;
    session.read(definition, "title", {VT_BSTR});
    const int dataType = session.read(definition, "dataType", {VT_I4}).value.number();
    const int loadType = session.read(definition, "loadType", {VT_I4}).value.number();
    const bool isNew = known.emplace(dataType, loadType).second;
    walk(session, definition, dataType, loadType, isNew);
}

}  // namespace

void probeLoads(Session& session, const Object& application)
{
    session.report.section("C4 Loads");
    const std::vector<int> sets = allIDs(application, EntityType::LoadSet);
    session.report.line("load sets", sets.empty() ? Verdict::NotTried : Verdict::Found,
                        shown(sets));
    if (sets.empty())
        return;
    const int active = application.call("Info_ActiveID", list(12)).value.number();
    const int set = active > 0 ? active : sets.front();
    const Object definition = session.object(application, "feLoadDefinition");
    if (!definition.isThere())
        return;
    session.read(definition, "setID", {VT_I4});
    definition.put("setID", list(set));
    std::vector<int> ids = allIDs(application, EntityType::LoadDefinition);
    session.report.line("definitions by AddAll(46)", Verdict::Found,
                        shown(ids) + "; set " + std::to_string(set) + " is looked at");
    const Answer titles = session.read(
        definition, "GetTitleList", statusAnd({VT_I4, arrayOf(VT_I4), arrayOf(VT_BSTR)}),
        list(0, 0, Argument::out(VT_I4), Argument::out(VT_VARIANT), Argument::out(VT_VARIANT)));
    if (ids.empty() && titles.isOk())
        ids = titles.filled[1].wholeNumbers();
    std::set<std::pair<int, int>> known;
    for (const int id : sampleOf(ids, mostDefinitions))
        probeDefinition(session, definition, id, known);
}

}  // namespace probe
