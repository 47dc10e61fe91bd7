// Reads the load sets of a neutral file (block 507): loads, temperatures and load definitions.
#include "femap/neutral/NeutralBlocks.h"

#include <climits>
#include <map>
#include <utility>

namespace femap::neutral
{

namespace
{

constexpr double firstVersionWithDefinitions = 9.3;
constexpr int fieldsOfSetHead = 3;
constexpr int linesOfSetData = 19;      // body loads and options
constexpr int linesOfMeshLoadRest = 4;  // functions, flags, directions
constexpr int linesOfGeometryLoadRest = 12;

// FEMAP's load types of temperatures, which the file does not state.
constexpr int nodalTemperature = 9;
constexpr int elementalTemperature = 43;

// Loads on elements are the types between those on nodes and those on points.
bool isElementLoad(int type)
{
    constexpr int firstOnElements = 41;
    constexpr int firstOnPoints = 81;
    return type >= firstOnElements && type < firstOnPoints;
}

// Reads the lines with which both mesh loads and geometry loads begin.
Load readLoad(Lines& lines, const std::vector<Load>& list)
{
    Load load;
    load.id = static_cast<int>(list.size()) + 1;
    Fields head = lines.record();
    load.entityID = head.id();
    load.type = head.integer();
    load.color = head.freeIntegerOr(load.color);
    load.layer = head.freeIntegerOr(load.layer);
    head.integerOr(0);  // coordinate system
    load.subtype = head.integerOr(0);
    load.expanded = head.integerOr(0) != 0;
    load.definitionID = head.integerOr(0);
    load.faceNumber = lines.record().integer();
    Fields values = lines.record();
    load.load[0] = values.real();
    for (std::size_t i = 1; i < load.load.size(); ++i)
        load.load[i] = values.realOr(0);
    lines.skipNumbers(linesOfMeshLoadRest);
    return load;
}

void readMeshLoads(Lines& lines, std::vector<Load>& list)
{
    while (!lines.takeListEnd()) {
        Load& load = list.emplace_back(readLoad(lines, list));
        if (!isElementLoad(load.type))
            load.faceNumber = 0;  // loads on nodes have their first degree of freedom there
    }
}

void readGeometryLoads(Lines& lines, std::vector<Load>& list)
{
    while (!lines.takeListEnd()) {
        list.emplace_back(readLoad(lines, list)).faceNumber = 0;
        lines.skipText(linesOfGeometryLoadRest);
    }
}

void readTemperatures(Lines& lines, std::vector<TemperatureLoad>& list)
{
    while (!lines.takeListEnd()) {
        Fields fields = lines.record();
        TemperatureLoad& load = list.emplace_back();
        load.entityID = fields.id();
        load.color = fields.freeInteger();
        load.layer = fields.freeInteger();
        load.temp = fields.real();
        load.phase = fields.realOr(0);
        fields.integerOr(0);  // function
        load.expanded = fields.integerOr(0) != 0;
        load.definitionID = fields.integerOr(0);
    }
}

// Whether one more list and then load definitions follow. In some files the version is wrong.
bool hasDefinitions(const BlockReading& block)
{
    const Lines& lines = block.lines;
    if (lines.atEnd())
        return false;
    const bool isNextSet = lines.peek().count() <= fieldsOfSetHead;
    return lines.atListEnd() || (block.version >= firstVersionWithDefinitions && !isNextSet);
}

void readDefinitions(BlockReading& block, std::vector<LoadDefinition>& definitions)
{
    Lines& lines = block.lines;
    while (!lines.takeListEnd())
        lines.skipText(1);
    if (lines.atEnd())
        return;
    while (!lines.takeListEnd()) {
        LoadDefinition& definition = definitions.emplace_back();
        Fields head = lines.record();
        definition.id = head.id();
        definition.dataType = head.integer();
        definition.loadType = head.integer();
        definition.title = block.title();
    }
    sortByID(definitions);
}

/// Makes definitions for the loads of a set that have none.
class MissingDefinitions
{
public:
    explicit MissingDefinitions(LoadSet& set) : set_(set), existing_(set.definitions.size()) {}

    /// Makes definitionID that of an existing definition. False when no ID is left for a new one.
    bool give(int& definitionID, LoadDataType dataType, int loadType)
    {
        if (exists(definitionID))
            return true;
        const int last = set_.definitions.empty() ? 0 : set_.definitions.back().id;
        const auto [made, isNew] = made_.try_emplace({dataType, loadType}, 0);
        if (isNew && last == INT_MAX)
            return false;
        if (isNew) {
            made->second = last + 1;
            set_.definitions.push_back(
                {made->second, set_.title, static_cast<int>(dataType), loadType});
        }
        definitionID = made->second;
        return true;
    }

private:
    bool exists(int id) const
    {
        const auto begin = set_.definitions.begin();
        const auto end = begin + static_cast<std::ptrdiff_t>(existing_);
        const auto found = std::lower_bound(
            begin, end, id,
            [](const LoadDefinition& definition, int key) { return definition.id < key; });
        return found != end && found->id == id;
    }

    LoadSet& set_;
    std::size_t existing_;
    std::map<std::pair<LoadDataType, int>, int> made_;
};

bool makeMissingDefinitions(LoadSet& set)
{
    MissingDefinitions missing(set);
    bool complete = true;
    for (Load& load : set.meshLoads)
        complete &= missing.give(load.definitionID, LoadDataType::Mesh, load.type);
    for (Load& load : set.geometryLoads)
        complete &= missing.give(load.definitionID, LoadDataType::Geometry, load.type);
    for (TemperatureLoad& load : set.nodalTemperatures)
        complete &=
            missing.give(load.definitionID, LoadDataType::NodalTemperature, nodalTemperature);
    for (TemperatureLoad& load : set.elementTemperatures)
        complete &= missing.give(load.definitionID, LoadDataType::ElementalTemperature,
                                 elementalTemperature);
    return complete;
}

LoadSet takeLoadSet(BlockReading& block)
{
    Lines& lines = block.lines;
    LoadSet set;
    Fields head = lines.record();
    set.id = head.id();
    set.title = block.title();
    lines.skipNumbers(linesOfSetData);
    readMeshLoads(lines, set.meshLoads);
    readGeometryLoads(lines, set.geometryLoads);
    readTemperatures(lines, set.nodalTemperatures);
    readTemperatures(lines, set.elementTemperatures);
    if (hasDefinitions(block))
        readDefinitions(block, set.definitions);
    if (!makeMissingDefinitions(set))
        head.fail("no ID is left for the load definition of some loads");
    return set;
}

}  // namespace

void readLoadSet(BlockReading& block)
{
    block.contents.loadSets.push_back(takeLoadSet(block));
}

}  // namespace femap::neutral
