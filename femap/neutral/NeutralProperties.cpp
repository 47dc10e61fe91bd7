// Reads properties (block 402), layups (927), materials (401 and 601) and functions (420) of a
// neutral file.
#include "femap/neutral/NeutralBlocks.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace femap::neutral
{

namespace
{

constexpr int newMaterialMark = -601;
constexpr int linesOfOldMaterial = 32;
constexpr std::size_t oldMaterialValues = 58;
constexpr int mostOutlines = 2;
constexpr double firstVersionWithKnownLayups = 11;  // how older ones write them is not known

// A line with a single number announces a list; every other record has more fields.
bool isCountNext(const Lines& lines)
{
    return !lines.atEnd() && lines.peek().count() == 1;
}

// The shape of a section: a count and as many points. Older files have none or one of them.
void skipOutlines(Lines& lines)
{
    for (int i = 0; i < mostOutlines && isCountNext(lines); ++i)
        lines.skipNumbers(lines.count());
}

void readPoints(Lines& lines, Function& function)
{
    while (!lines.takeListEnd()) {
        Fields point = lines.record();
        point.integer();
        const double x = point.real();
        function.x.push_back(x);
        function.y.push_back(point.real());
    }
}

Function takeFunction(BlockReading& block)
{
    Function function;
    Fields head = block.lines.record();
    function.id = head.id();
    function.type = head.integerOr(0);
    function.title = block.title();
    readPoints(block.lines, function);
    return function;
}

// The plies, each with material, two further numbers, thickness and angle, and a line with a 0.
Layup readLayup(BlockReading& block)
{
    Lines& lines = block.lines;
    Layup layup;
    layup.id = lines.record().id();
    lines.skipText(1);  // title
    for (int left = lines.count(); left > 0; --left) {
        Fields fields = lines.record();
        const int material = fields.integer();
        fields.integer();
        fields.integer();
        layup.plies.push_back({material, fields.real()});
    }
    Fields end = lines.record();
    if (end.integer() != 0)
        end.fail("no 0 follows the plies of a layup");
    return layup;
}

std::vector<Layup> tryLayups(BlockReading block)
{
    std::vector<Layup> layups;
    while (!block.lines.atEnd())
        layups.push_back(readLayup(block));
    return layups;
}

// The fields after the mark, or after the ID where there is none. Returns how many functions
// follow the material.
int readMaterialHead(Fields& fields, Material& material)
{
    material.color = fields.freeInteger();
    material.type = fields.integer();
    material.subtype = fields.integerOr(0);
    material.layer = fields.freeIntegerOr(material.layer);
    return fields.integerOr(0);
}

Material takeMaterial(BlockReading& block)
{
    Lines& lines = block.lines;
    Material material;
    Fields head = lines.record();
    material.id = head.id();
    if (head.integer() != newMaterialMark)
        head.fail("field 2 is not -601");
    const int functions = readMaterialHead(head, material);
    material.title = block.title();
    lines.countedReals();  // flags
    lines.countedReals();  // whole numbers
    material.mval = lines.countedReals();
    if (material.mval.size() < numbersLength)
        material.mval.resize(numbersLength);
    while (isCountNext(lines))
        lines.countedReals();  // IDs of functions and tables
    for (int i = 0; i < functions; ++i)
        takeFunction(block);  // belongs to the material, not to the model
    return material;
}

// The values stand in the same order as in newer files; function IDs fill the remaining lines.
Material takeOldMaterial(BlockReading& block)
{
    Material material;
    Fields head = block.lines.record();
    material.id = head.id();
    readMaterialHead(head, material);
    material.title = block.title();
    std::size_t filled = 0;
    for (int i = 2; i < linesOfOldMaterial; ++i) {
        Fields fields = block.lines.record();
        do {
            const double value = fields.real();
            if (filled < oldMaterialValues)
                material.mval[filled++] = value;
        } while (!fields.atEnd());
    }
    return material;
}

}  // namespace

void readProperty(BlockReading& block)
{
    Lines& lines = block.lines;
    Property property;
    Fields head = lines.record();
    property.id = head.id();
    property.color = head.freeInteger();
    property.matlID = head.freeInteger();
    property.type = head.integer();
    property.layer = head.freeIntegerOr(property.layer);
    property.refCS = head.freeIntegerOr(0);
    property.layupID = head.integerOr(0);
    property.title = block.title();
    lines.skipNumbers(1);  // flags
    lines.countedReals();  // whole numbers
    property.pval = lines.countedReals();
    skipOutlines(lines);
    block.contents.properties.push_back(std::move(property));
}

void readLayups(BlockReading& block)
{
    try {
        std::vector<Layup> layups = tryLayups(block);
        std::move(layups.begin(), layups.end(), std::back_inserter(block.contents.layups));
    }
    catch (const FormatError&) {
        if (block.version >= firstVersionWithKnownLayups)
            throw;
        block.contents.remark(
            "The layups could not be read, so laminates have no mass; export version 11");
    }
}

void readMaterial(BlockReading& block)
{
    block.contents.materials.push_back(takeMaterial(block));
}

void readOldMaterial(BlockReading& block)
{
    block.contents.materials.push_back(takeOldMaterial(block));
}

void readFunction(BlockReading& block)
{
    block.contents.functions.push_back(takeFunction(block));
}

}  // namespace femap::neutral
