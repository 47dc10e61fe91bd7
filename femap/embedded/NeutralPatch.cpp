#include "femap/embedded/NeutralPatch.h"

#include "femap/NumberText.h"
#include "femap/ValueRuns.h"
#include "femap/embedded/HostLoads.h"
#include "femap/embedded/Members.h"
#include "femap/neutral/NeutralRecords.h"
#include "femap/neutral/Replacements.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <span>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>

namespace femap::embedded
{

using neutral::Record;
using neutral::Sought;

namespace
{

constexpr std::size_t longestLine = 255;  // that FEMAP reads

// As neutral files have them: a real number has a point, and zero its sign.
std::string textInFile(double number)
{
    std::string text = numberText(number);
    if (number == 0)
        return std::signbit(number) ? "-0." : "0.";
    if (text.find('.') == std::string::npos)
        text.insert(std::min(text.find('E'), text.size()), 1, '.');
    return text;
}

/// The text of a member that has a place in the file, and that place.
struct TextInFile
{
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return textInFile(number); }
    template <class Other>
    std::string operator()(const Other&) const
    {
        return {};
    }
};

struct PlaceIn
{
    int operator()(std::int64_t place) const { return static_cast<int>(place); }
    int operator()(double place) const { return static_cast<int>(place); }
    template <class Other>
    int operator()(const Other&) const
    {
        return 0;
    }
};

// A number of each load that every file has.
double sureNumber(const neutral::Load& load)
{
    return load.load[0];
}
double sureNumber(const neutral::TemperatureLoad& load)
{
    return load.temp;
}

/// What has a member, for messages.
struct Owner
{
    const char* begin;
    std::string name;
};

/// The loads of one definition.
struct LoadsOfDefinition
{
    std::vector<std::size_t> indices;   // in their list
    std::map<int, int> ofTemperatures;  // how many there are of a node or element

    /// Whether it is a second temperature: these are known by their node or element alone.
    bool isRepeated(int entityID) const
    {
        const auto found = ofTemperatures.find(entityID);
        return found != ofTemperatures.end() && found->second > 1;
    }
};

template <class Load>
LoadsOfDefinition loadsOf(const std::vector<Load>& list, int definition)
{
    LoadsOfDefinition loads;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (list[i].definitionID != definition)
            continue;
        loads.indices.push_back(i);
        if constexpr (std::is_same_v<Load, neutral::TemperatureLoad>)
            ++loads.ofTemperatures[list[i].entityID];
    }
    return loads;
}

/// Finds the places of values in a file and keeps what comes there, or why it cannot.
class Patch
{
public:
    Patch(std::string_view content, const std::string& fileName, const ModelValues& values)
        : content_(content), replacements_(content)
    {
        seek(values);
        places_ = neutral::findRecords(content, fileName, records_);
        forEachRun(std::span(values.entities), [&](std::span<const EntityValue> run) {
            withKind(run.front().word, [&]<class Data>(Kind<Data>) { putEntity<Data>(run); });
        });
        forEachRun(std::span(values.loads), [&](std::span<const LoadValue> run) { putLoads(run); });
        for (const FunctionValue& each : values.functions)
            putFunction(each);
        for (const char* const line : replacements_.linesLongerThan(longestLine))
            tellProblem(line, "the line would have more than 255 characters");
    }

    std::vector<PatchProblem> problems() const;
    void write(const std::function<void(std::string_view)>& write) const
    {
        replacements_.write(write);
    }

private:
    void seek(const ModelValues& values);

    template <class Data>
    const Record<Data>* find(const std::string& name, int id);
    template <class Data>
    void putEntity(std::span<const EntityValue> values);
    void putLoads(std::span<const LoadValue> values);
    void putFunction(const FunctionValue& value);

    template <class Data>
    void putMember(const Owner& owner, const Data& data, const Data& places,
                   const MemberName& member, const Value& value);
    std::string_view textAt(double place) const { return places_.text(static_cast<int>(place)); }
    void replace(const Value& place, const Value& before, const Value& after);
    void tellProblem(const char* position, std::string what)
    {
        problems_.emplace(position, std::move(what));
    }

    std::string_view content_;
    neutral::SoughtRecords records_;
    neutral::Places places_;
    neutral::Replacements replacements_;
    std::set<std::pair<const char*, std::string>> problems_;
};

void Patch::seek(const ModelValues& values)
{
    for (const EntityValue& each : values.entities)
        withKind(each.word, [&]<class Data>(Kind<Data>) {
            std::get<Sought<Data>>(records_).ids.push_back(each.id);
        });
    for (const LoadValue& each : values.loads)
        std::get<Sought<neutral::LoadSet>>(records_).ids.push_back(each.loadSet);
    for (const FunctionValue& each : values.functions)
        std::get<Sought<neutral::Function>>(records_).ids.push_back(each.id);
    std::apply([](auto&... ofKind) { (std::ranges::sort(ofKind.ids), ...); }, records_);
}

// Null where there is not just one.
template <class Data>
const Record<Data>* Patch::find(const std::string& name, int id)
{
    const auto& found = std::get<Sought<Data>>(records_).found;
    const auto isIt = [&](auto at) { return at != found.end() && at->data.id == id; };
    const auto first = std::ranges::lower_bound(
        found, id, {}, [](const Record<Data>& record) { return record.data.id; });
    if (!isIt(first)) {
        tellProblem(nullptr, "the file has no " + name);
        return nullptr;
    }
    if (isIt(first + 1)) {
        tellProblem(first[1].begin, "this is a second " + name + " in the file");
        return nullptr;
    }
    return &*first;
}

template <class Data>
void Patch::putEntity(std::span<const EntityValue> values)
{
    const EntityValue& first = values.front();
    const std::string name = ownerOf(first);
    const Record<Data>* const record = find<Data>(name, first.id);
    if (record == nullptr)
        return;
    for (const EntityValue& each : values)
        putMember(Owner{record->begin, name}, record->data, record->places, each.member,
                  each.value);
}

void Patch::putLoads(std::span<const LoadValue> values)
{
    const LoadValue& first = values.front();
    const std::string setName = "load set " + std::to_string(first.loadSet);
    const auto* const set = find<neutral::LoadSet>(setName, first.loadSet);
    if (set == nullptr)
        return;
    const std::string ofSet = " of " + setName;
    const std::string name = ownerOf(first) + ofSet;
    const auto& definitions = set->data.definitions;
    const auto found =
        std::ranges::find(definitions, first.definition, &neutral::LoadDefinition::id);
    if (found == definitions.end()) {
        tellProblem(set->begin, "the file has no " + name);
        return;
    }
    const bool isKnown = withLoads(found->dataType, [&](const auto list, const auto& show) {
        const auto& loads = set->data.*list;
        const LoadsOfDefinition ofDefinition = loadsOf(loads, found->id);
        for (const LoadValue& each : values) {
            const std::string loadName = loadOf(each) + ofSet;
            if (each.load >= ofDefinition.indices.size()) {
                tellProblem(set->begin, "the file has no " + loadName);
                continue;
            }
            const std::size_t index = ofDefinition.indices[each.load];
            const auto& places = (set->places.*list)[index];
            const Owner load{textAt(sureNumber(places)).data(), loadName};
            if (ofDefinition.isRepeated(loads[index].entityID))
                tellProblem(load.begin, load.name + " is not the only one of its node or element");
            else
                putMember(load, show(loads[index], first.loadSet), show(places, first.loadSet),
                          each.member, each.value);
        }
    });
    if (!isKnown)
        tellProblem(set->begin, name + " is of a kind that is not known");
}

void Patch::putFunction(const FunctionValue& value)
{
    const std::string name = ownerOf(value);
    const Record<neutral::Function>* const record = find<neutral::Function>(name, value.id);
    if (record == nullptr)
        return;
    const neutral::Function& data = record->data;
    if (value.points.x.size() != data.x.size() || value.points.y.size() != data.y.size()) {
        tellProblem(record->begin, name + " has another number of points in the file: " +
                                       std::to_string(data.x.size()));
        return;
    }
    const auto isFinite = [](double number) { return std::isfinite(number); };
    if (!std::ranges::all_of(value.points.x, isFinite) ||
        !std::ranges::all_of(value.points.y, isFinite)) {
        tellProblem(record->begin, name + " would get a point that is no number");
        return;
    }
    for (std::size_t i = 0; i < data.x.size(); ++i) {
        replace(record->places.x[i], data.x[i], value.points.x[i]);
        replace(record->places.y[i], data.y[i], value.points.y[i]);
    }
}

template <class Data>
void Patch::putMember(const Owner& owner, const Data& data, const Data& places,
                      const MemberName& member, const Value& value)
{
    const auto read = [&](const Data& from) {
        return readMember(from, member.name, member.index, true);
    };
    try {
        const Value before = read(data);
        const Value place = read(places);
        if (place == before) {
            tellProblem(owner.begin, owner.name + " has no number in the file for " +
                                         nameOf(member) + " that could be replaced");
            return;
        }
        Data changed = data;
        writeMember(changed, member.name, member.index, value);
        replace(place, before, read(changed));
    }
    catch (const sys::RuntimeError& error) {
        tellProblem(owner.begin, owner.name + ": " + error.description());
    }
}

// A number that is the value already keeps its text.
void Patch::replace(const Value& place, const Value& before, const Value& after)
{
    const std::string_view piece = places_.text(std::visit(PlaceIn(), place));
    replacements_.replace(piece,
                          after == before ? std::string(piece) : std::visit(TextInFile(), after));
}

std::vector<PatchProblem> Patch::problems() const
{
    std::vector<PatchProblem> problems;
    const char* at = content_.data();
    std::size_t line = 1;
    for (const auto& [position, what] : problems_) {
        if (position != nullptr) {
            line += static_cast<std::size_t>(std::count(at, position, '\n'));
            at = position;
        }
        problems.push_back({position == nullptr ? 0 : line, what});
    }
    return problems;
}

}  // namespace

std::vector<PatchProblem> writePatched(std::string_view content, const std::string& fileName,
                                       const ModelValues& values,
                                       const std::function<void(std::string_view)>& write)
{
    const Patch patch(content, fileName, values);
    std::vector<PatchProblem> problems = patch.problems();
    if (problems.empty())
        patch.write(write);
    return problems;
}

}  // namespace femap::embedded
