// The measurement of masses: of all elements, of one of each type and of none.
#include "femap/ElementTypes.h"
#include "probe/Reads.h"
#include "probe/Sets.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace probe
{

namespace
{

using femap::EntityType;

enum Measured  // the variables that are filled, in calling order
{
    measuredLength,
    measuredArea,
    measuredVolume,
    measuredStructMass,
    measuredNonstructMass,
    measuredTotalMass,
    measuredStructCG,
    measuredNonstructCG,
    measuredTotalCG,
    measuredInertia,
    measuredInertiaCG,
};

constexpr std::size_t mostElements = 1000;  // whose types are looked at

std::vector<Argument> massArguments(int set)
{
    std::vector<Argument> all = list(set, 0, false, false);
    for (int i = measuredLength; i <= measuredInertiaCG; ++i)
        all.push_back(Argument::out(i <= measuredTotalMass ? VT_R8 : VT_VARIANT));
    return all;
}

struct MeasuredWord
{
    Measured which;
    std::string_view word;
};

// clang-format off
constexpr MeasuredWord measuredWords[] = {
    {measuredLength,        "length"},
    {measuredArea,          "area"},
    {measuredVolume,        "volume"},
    {measuredStructMass,    "structural mass"},
    {measuredNonstructMass, "non-structural mass"},
    {measuredTotalMass,     "total mass"},
    {measuredStructCG,      "centre of the structural mass"},
    {measuredNonstructCG,   "centre of the non-structural mass"},
    {measuredTotalCG,       "centre of the total mass"},
    {measuredInertia,       "inertia about the origin"},
    {measuredInertiaCG,     "inertia about the centre"},
};
// clang-format on

Answer measure(Session& session, const Object& application, int set, const std::string& of)
{
    const Belief belief =
        statusAnd({VT_R8, VT_R8, VT_R8, VT_R8, VT_R8, VT_R8, arrayOf(VT_R8), arrayOf(VT_R8),
                   arrayOf(VT_R8), arrayOf(VT_R8), arrayOf(VT_R8)});
    session.report.say("Of " + of + ':');
    Answer answer = session.read(application, "feMeasureMeshMassProp", belief, massArguments(set));
    for (const MeasuredWord& each : measuredWords)
        if (answer.isOk())
            session.report.say("  " + std::string(each.word) + ": " +
                               session.shown(answer.filled[each.which]));
    return answer;
}

bool isNear(double left, double right)
{
    constexpr double tolerance = 1e-6;
    return std::abs(left - right) <= tolerance * std::max(std::abs(left), std::abs(right));
}

struct Product
{
    std::string_view name;
    std::size_t place;  // in the packed inertia
    std::size_t first;  // the axes
    std::size_t second;
};
constexpr Product products[] = {{"I21", 1, 0, 1}, {"I31", 3, 0, 2}, {"I32", 4, 1, 2}};

// The move from the centre of gravity to the origin adds m x y, or takes it away: the sign tells
// the convention.
void tellSigns(Session& session, const Answer& all)
{
    const double mass = all.filled[measuredTotalMass].real();
    const std::vector<double> centre = all.filled[measuredTotalCG].numbers();
    const std::vector<double> atOrigin = all.filled[measuredInertia].numbers();
    const std::vector<double> atCentre = all.filled[measuredInertiaCG].numbers();
    if (centre.size() != 3 || atOrigin.size() != 6 || atCentre.size() != 6)
        return;
    for (const Product& each : products) {
        const double moved = mass * centre[each.first] * centre[each.second];
        const double change = atOrigin[each.place] - atCentre[each.place];
        const std::string values =
            ", changes by " + shown(change) + " where m a b is " + shown(moved);
        if (moved == 0)
            continue;
        const std::string sign = isNear(change, moved)    ? "the integral of a b, without a minus"
                                 : isNear(change, -moved) ? "minus the integral of a b"
                                                          : "neither sign fits";
        session.report.line("  sign of " + std::string(each.name), Verdict::Found, sign + values);
        session.report.answer(Question::SignOfInertia, std::string(each.name) + ": " + sign);
    }
}

// What a rod's or a plate's first place is, by what it weighs.
void tellSection(Session& session, const Object& application, int type, int propID,
                 const Answer& one)
{
    const bool isRod = type == femap::elementRod;
    const bool isPlate = type == femap::elementPlate || type == femap::elementPlateParabolic;
    const double extent = one.filled[isRod ? measuredLength : measuredArea].real();
    if ((!isRod && !isPlate) || extent == 0)
        return;
    const Object property = application.object("feProp");
    property.call("Get", list(propID));
    const double first = property.call("pval", list(0)).value.real();
    const Object material = application.object("feMatl");
    material.call("Get", list(property.call("matlID").value.number()));
    const double density = material.call("Density").value.real();
    if (density == 0)
        return;
    const double measured = one.filled[measuredStructMass].real() / extent / density;
    const std::string text = std::string("mass by density and ") +
                             (isRod ? "length is " : "area is ") + shown(measured) +
                             ", pval(0) is " + shown(first);
    session.report.line(
        isRod ? "  pval(0) of a rod is its area" : "  pval(0) of a plate is its thickness",
        isNear(first, measured) ? Verdict::Same : Verdict::Differs, text);
    session.report.answer(Question::PlacesOfProperties, std::string(isRod ? "rod" : "plate") +
                                                            " of property " +
                                                            std::to_string(propID) + ": " + text);
}

void probeOneOfEachType(Session& session, const Object& application, const std::vector<int>& ids)
{
    const Object element = application.object("feElem");
    session.report.begin("one feElem of each type");
    std::map<int, int> chosen;  // by type
    for (const int id : sampleOf(ids, mostElements))
        if (element.call("Get", list(id)).isOk())
            chosen.emplace(element.call("type").value.number(), id);
    session.report.end(chosen.empty() ? Verdict::NotTried : Verdict::Found,
                       std::to_string(chosen.size()));
    for (const auto& [type, id] : chosen) {
        const femap::ElementTypeWord* const word = femap::findElementTypeWord(type);
        const Answer one = measure(
            session, application, -id,
            "element " + std::to_string(id) + ", " +
                (word == nullptr ? "type " + std::to_string(type) : std::string(word->word)));
        if (!one.isOk() || !element.call("Get", list(id)).isOk())
            continue;
        tellSection(session, application, type, element.call("propID").value.number(), one);
    }
}

}  // namespace

void probeMass(Session& session, const Object& application)
{
    session.report.section("C5 Masses");
    const std::vector<int> ids = allIDs(application, EntityType::Element);
    const FemapSet all = setOfAll(application, EntityType::Element);
    if (!ids.empty()) {
        const Answer answer = measure(session, application, all.number, "all elements");
        if (answer.isOk())
            tellSigns(session, answer);
    }
    probeOneOfEachType(session, application, ids);
    const FemapSet none = setOf(application, {});
    const Answer empty = measure(session, application, none.number, "an empty set");
    session.report.answer(
        Question::SignOfInertia,
        "an empty set: " + (empty.isDone() ? session.shown(empty) : session.reason(empty)));
}

}  // namespace probe
