// Reads the nodes (block 403) and elements (block 404) of a neutral file.
#include "femap/neutral/NeutralBlocks.h"

#include <array>
#include <cstddef>
#include <type_traits>

namespace femap::neutral
{

namespace
{

constexpr int linesOfElement = 7;
constexpr int releaseFlags = 12;
constexpr int listFlags = 4;

// Files may leave out numbers at the end of a line, but not all of them.
template <class Number, std::size_t size>
void readNumbers(Fields fields, std::array<Number, size>& values, std::size_t first,
                 std::size_t count)
{
    const auto next = [&fields] {
        if constexpr (std::is_same_v<Number, int>)
            return fields.freeInteger();
        else
            return fields.real();
    };
    values[first] = next();
    for (std::size_t i = first + 1; i < first + count && !fields.atEnd(); ++i)
        values[i] = next();
}

// Rigid and interpolation elements are followed by lists of their nodes.
void skipNodeLists(Lines& lines, Fields flags)
{
    for (int i = 0; i < releaseFlags; ++i)
        flags.integerOr(0);
    for (int i = 0; i < listFlags; ++i) {
        if (flags.integerOr(0) == 0)
            continue;
        while (!lines.takeListEnd())
            lines.record().id();
    }
}

void readElementHead(Fields fields, Element& element)
{
    element.id = fields.id();
    element.color = fields.freeInteger();
    element.propID = fields.freeInteger();
    element.type = fields.integer();
    element.topology = fields.integer();
    element.layer = fields.freeIntegerOr(element.layer);
    element.orientID = fields.freeIntegerOr(0);
    fields.integerOr(0);  // whether a material orientation is given
    element.geomID = fields.freeIntegerOr(0);
}

}  // namespace

void readNode(BlockReading& block)
{
    Fields fields = block.lines.record();
    Node& node = block.contents.nodes.emplace_back();
    node.id = fields.id();
    node.defCSys = fields.freeInteger();
    node.outCSys = fields.freeInteger();
    node.layer = fields.freeInteger();
    node.color = fields.freeInteger();
    for (bool& constrained : node.permBC)
        constrained = fields.integer() != 0;
    node.x = fields.real();
    node.y = fields.real();
    node.z = fields.real();
    node.type = fields.integerOr(0);
}

void readElement(BlockReading& block)
{
    Lines& lines = block.lines;
    Element& element = block.contents.elements.emplace_back();
    readElementHead(lines.record(), element);
    readNumbers(lines.record(), element.node, 0, 10);
    readNumbers(lines.record(), element.node, 10, 10);
    readNumbers(lines.record(), element.orient, 0, 3);
    readNumbers(lines.record(), element.offset, 0, 3);
    readNumbers(lines.record(), element.offset, 3, 3);
    skipNodeLists(lines, lines.record());
}

int passNode(Lines& lines)
{
    return lines.record().id();
}

int passElement(Lines& lines)
{
    const int id = lines.record().id();
    lines.skipText(linesOfElement - 2);
    skipNodeLists(lines, lines.record());
    return id;
}

void readNodes(BlockReading& block)
{
    makeRoom(block.contents.nodes, block.lineCount);
    readAll<readNode>(block);
}

void readElements(BlockReading& block)
{
    makeRoom(block.contents.elements, block.lineCount / linesOfElement);
    readAll<readElement>(block);
}

}  // namespace femap::neutral
