// The same numbers in bulk as were read plainly.
#include "femap/Numbers.h"
#include "femap/TypeLibrary.h"
#include "probe/Entities.h"
#include "probe/Sets.h"

#include <algorithm>
#include <span>

namespace probe
{

namespace
{

/// Where a bulk call has a member: in which of the variables that it fills, how many numbers that
/// has for each entity, and which of them it is.
struct BulkPlace
{
    std::string_view member;
    int index;
    std::size_t variable;
    std::size_t stride;
    std::size_t offset;
};

struct BulkCall
{
    std::string_view object;
    std::string_view member;
    std::span<const BulkPlace> places;
    bool isOfModern = false;
};

// clang-format off
constexpr BulkPlace coordinates[] = {
    {"x", -1, 2, 3, 0},
    {"y", -1, 2, 3, 1},
    {"z", -1, 2, 3, 2},
};
constexpr BulkPlace nodePlaces[] = {
    {"x",       -1, 2, 3, 0},
    {"y",       -1, 2, 3, 1},
    {"z",       -1, 2, 3, 2},
    {"defCSys", -1, 6, 1, 0},
    {"outCSys", -1, 7, 1, 0},
};
constexpr BulkPlace elementPlaces[] = {
    {"topology", -1, 4,  1, 0},
    {"orient",    0, 8,  3, 0},
    {"orient",    1, 8,  3, 1},
    {"orient",    2, 8,  3, 2},
    {"node",      0, 13, 20, 0},
    {"node",      1, 13, 20, 1},
    {"node",      2, 13, 20, 2},
    {"node",      3, 13, 20, 3},
    {"node",      4, 13, 20, 4},
};

constexpr BulkCall bulkCalls[] = {
    {"feNode", "GetCoordArray", coordinates},
    {"feNode", "GetAllArray",   nodePlaces},
    {"feElem", "GetAllArray",   elementPlaces},
    {"feElem", "GetAllArray2",  {}, true},
    {"feElem", "GetAllArray3",  {}, true},
};
// clang-format on

// How many arrays the call fills, behind the count.
std::size_t arraysOf(const BulkCall& call)
{
    const auto* const table = femap::library::interfaceOf(call.object);
    const auto* const member = femap::library::find(table->members, call.member);
    return static_cast<std::size_t>(std::ranges::count(member->arguments, 'V'));
}

// What was compared, and where it differs.
struct Comparison
{
    int same = 0;
    std::string differences;

    void add(const std::string& what, double plain, double bulk)
    {
        if (plain == bulk)
            ++same;
        else
            differences +=
                "; " + what + " is " + shown(plain) + " plainly, " + shown(bulk) + " in bulk";
    }
};

void tellComparison(Session& session, const Comparison& comparison)
{
    session.report.line("  beside the plain values",
                        comparison.differences.empty() ? Verdict::Same : Verdict::Differs,
                        comparison.differences.empty()
                            ? std::to_string(comparison.same) + " agree"
                            : std::to_string(comparison.same) + " agree" + comparison.differences);
}

std::string placeText(int id, const std::string& member, int index)
{
    return std::to_string(id) + ' ' + member + (index < 0 ? "" : '(' + std::to_string(index) + ')');
}

void compareCall(Session& session, const Object& entity, const BulkCall& call, int set,
                 const std::vector<Chosen>& chosen, const PlainNumbers& plain)
{
    std::vector<Argument> arguments = list(set, Argument::out(VT_I4));
    for (std::size_t i = arraysOf(call); i > 0; --i)
        arguments.push_back(Argument::out(VT_VARIANT));
    const Answer answer = session.ask(entity, std::string(call.member), std::move(arguments));
    if (!answer.isOk()) {
        session.tell(answer.isDone() ? Verdict::Refused : verdictOfFailure(answer),
                     session.reason(answer), answer);
        return;
    }
    session.tell(answer.filled[0].number() == static_cast<int>(chosen.size()) ? Verdict::Same
                                                                              : Verdict::Differs,
                 session.shown(answer), answer);
    Comparison comparison;
    for (const BulkPlace& place : call.places) {
        const auto found = plain.find({std::string(place.member), place.index});
        if (found == plain.end())
            continue;
        const std::vector<double> numbers = answer.filled[place.variable].numbers();
        if (numbers.size() != place.stride * chosen.size()) {
            comparison.differences += "; the array of " + std::string(place.member) + " has " +
                                      std::to_string(numbers.size()) + " numbers; believed: " +
                                      std::to_string(place.stride * chosen.size());
            continue;
        }
        for (const auto& [which, number] : found->second)
            comparison.add(placeText(chosen[which].id, found->first.first, place.index), number,
                           numbers[which * place.stride + place.offset]);
    }
    if (!call.places.empty())
        tellComparison(session, comparison);
}

// In pval or mval; -1: none.
int placeOf(const std::string& member, int index)
{
    if (member == "pval")
        return index;
    const auto* const found =
        std::ranges::find(femap::materialNumbers, member, &femap::MaterialNumber::name);
    return found == std::end(femap::materialNumbers) ? -1 : found->place;
}

// The numbers of each entity as one array, such as "vpval".
void compareWhole(Session& session, const Object& entity, const std::string& array,
                  const std::vector<Chosen>& chosen, const PlainNumbers& plain)
{
    Comparison comparison;
    for (std::size_t which = 0; which < chosen.size(); ++which) {
        if (!entity.call("Get", list(chosen[which].id)).isOk())
            continue;
        const Answer answer = session.read(entity, array, {arrayOf(VT_R8)});
        const std::vector<double> numbers = answer.value.numbers();
        for (const auto& [member, byEntity] : plain) {
            const int place = placeOf(member.first, member.second);
            const auto value = byEntity.find(which);
            if (place < 0 || value == byEntity.end())
                continue;
            if (static_cast<std::size_t>(place) < numbers.size())
                comparison.add(placeText(chosen[which].id, member.first, member.second),
                               value->second, numbers[static_cast<std::size_t>(place)]);
            else
                comparison.differences += "; there is no place " + std::to_string(place);
        }
    }
    tellComparison(session, comparison);
}

// Any mix of entities and places in one call.
void compareMixed(Session& session, const Object& entity, const std::vector<Chosen>& chosen,
                  const PlainNumbers& plain)
{
    std::vector<int> ids;
    std::vector<int> places;
    std::vector<double> values;
    std::vector<std::string> names;
    for (const auto& [member, byEntity] : plain)
        for (const auto& [which, value] : byEntity)
            if (const int place = placeOf(member.first, member.second); place >= 0) {
                ids.push_back(chosen[which].id);
                places.push_back(place);
                values.push_back(value);
                names.push_back(placeText(chosen[which].id, member.first, member.second));
            }
    const Answer answer =
        session.read(entity, "GetValueArray", statusAnd({arrayOf(VT_R8)}),
                     list(static_cast<int>(ids.size()), ids, places, Argument::out(VT_VARIANT)));
    if (!answer.isOk())
        return;
    const std::vector<double> numbers = answer.filled[0].numbers();
    Comparison comparison;
    for (std::size_t i = 0; i < values.size() && i < numbers.size(); ++i)
        comparison.add(names[i], values[i], numbers[i]);
    if (numbers.size() != values.size())
        comparison.differences += "; " + std::to_string(numbers.size()) + " numbers came for " +
                                  std::to_string(values.size());
    tellComparison(session, comparison);
}

}  // namespace

void compareBulk(Session& session, const Object& application, const EntityKind& kind,
                 const Object& entity, const std::vector<Chosen>& chosen, const PlainNumbers& plain,
                 bool isModern)
{
    std::vector<int> ids;
    ids.reserve(chosen.size());
    for (const Chosen& each : chosen)
        ids.push_back(each.id);
    session.report.say("In bulk, of " + shown(ids) + ':');
    const FemapSet set = setOf(application, ids);
    for (const BulkCall& call : bulkCalls)
        if (call.object == kind.object && (isModern || !call.isOfModern))
            compareCall(session, entity, call, set.number, chosen, plain);
    const bool hasNumbers =
        kind.type == femap::EntityType::Property || kind.type == femap::EntityType::Material;
    if (!hasNumbers)
        return;
    compareWhole(session, entity, kind.type == femap::EntityType::Property ? "vpval" : "vmval",
                 chosen, plain);
    if (isModern)
        compareMixed(session, entity, chosen, plain);
}

}  // namespace probe
