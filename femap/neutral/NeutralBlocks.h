// The blocks of a neutral file: finding them one by one, and the functions that read what they
// hold.
#pragma once

#include "femap/neutral/Model.h"
#include "femap/neutral/NeutralLines.h"
#include "system/CodePage.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace femap::neutral
{

/// The numbers of the blocks that are read.
inline constexpr int headerBlock = 100;
inline constexpr int oldMaterialsBlock = 401;
inline constexpr int propertiesBlock = 402;
inline constexpr int nodesBlock = 403;
inline constexpr int elementsBlock = 404;
inline constexpr int functionsBlock = 420;
inline constexpr int outputSetsBlock = 450;
inline constexpr int outputVectorsBlock = 451;
inline constexpr int loadSetsBlock = 507;
inline constexpr int materialsBlock = 601;
inline constexpr int layupsBlock = 927;
inline constexpr int newOutputVectorsBlock = 1051;

/// One block of a neutral file.
struct Block
{
    int number = 0;
    std::string_view content;  // whole lines
    std::size_t lineCount = 0;
    bool hasEnd = true;  // false for a block at whose end the file is cut
};

/// Finds the blocks of a neutral file one by one. Raises FormatError at text between blocks.
class Blocks
{
public:
    explicit Blocks(std::string_view file) : lines_(file) {}

    /// The next block; nothing at the end of the file.
    std::optional<Block> next();

private:
    bool skipToStart();
    int takeNumber();
    [[noreturn]] void failAtEnd(const std::string& problem) const;

    Lines lines_;
    bool first_ = true;
};

/// Raises FormatError for a block that has no end.
[[noreturn]] void refuseWithoutEnd(const Block& block);

using BlockVisitor = std::function<void(const Block& block, double version)>;

/// Visits the blocks of a file but for its headers, with the version that they have. Raises
/// FormatError without a header, for a version that cannot be read and for a block without an end;
/// only that of the output vectors may lack it.
void forEachBlock(std::string_view file, const BlockVisitor& visit);

/// Calls read and raises RuntimeError "FILE:LINE: what is wrong" for its FormatError.
void nameFileAndLine(std::string_view content, const std::string& fileName,
                     const std::function<void()>& read);

struct VectorOfSet
{
    int setID = 0;
    OutputVector vector;
};

/// What the blocks hold, in the order of the file.
struct NeutralContents
{
    std::vector<Node> nodes;
    std::vector<Element> elements;
    std::vector<Property> properties;
    std::vector<Layup> layups;
    std::vector<Material> materials;
    std::vector<Function> functions;
    std::vector<LoadSet> loadSets;
    std::vector<OutputSet> outputSets;  // without their vectors
    std::vector<VectorOfSet> vectors;
    std::vector<std::string> remarks;  // what the engineer is to know about the file

    void remark(const std::string& text) { remarks.push_back(text); }
};

/// What the functions that read a block work with. They raise FormatError at what does not fit.
struct BlockReading  // NOLINT(cppcoreguidelines-pro-type-member-init): always an aggregate
{
    Lines lines;
    std::size_t lineCount = 0;
    double version = 0;
    const sys::CodePage& codePage;
    NeutralContents& contents;

    /// The next line as a title.
    std::string title();
};

// These read the next record.
void readNode(BlockReading& block);
void readElement(BlockReading& block);
void readProperty(BlockReading& block);
void readMaterial(BlockReading& block);
void readOldMaterial(BlockReading& block);
void readFunction(BlockReading& block);
void readLoadSet(BlockReading& block);

// These go behind the next record without reading all of it, and return its ID.
int passNode(Lines& lines);
int passElement(Lines& lines);

// These read all records of the block.
void readNodes(BlockReading& block);
void readElements(BlockReading& block);
void readLayups(BlockReading& block);
void readOutputSets(BlockReading& block);
void readOutputVectors(BlockReading& block);
void readNewOutputVectors(BlockReading& block);
template <void (*readRecord)(BlockReading&)>
void readAll(BlockReading& block)
{
    while (!block.lines.atEnd())
        readRecord(block);
}

/// Reserves room for more rows: exactly for the first ones, later by half to copy them rarely.
template <class Row>
void makeRoom(std::vector<Row>& rows, std::size_t more)
{
    const std::size_t needed = rows.size() + more;
    if (needed > rows.capacity())
        rows.reserve(rows.empty() ? needed : std::max(needed, rows.size() + rows.size() / 2));
}

}  // namespace femap::neutral
