// The blocks of a neutral file: finding them one by one, and the functions that read them.
#pragma once

#include "femap/neutral/Model.h"
#include "femap/neutral/NeutralLines.h"
#include "system/CodePage.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace femap::neutral
{

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
    /// Raises FormatError for a block that has no end.
    [[noreturn]] void refuseWithoutEnd(const Block& block) const;

private:
    bool skipToStart();
    int takeNumber();
    [[noreturn]] void failAtEnd(const std::string& problem) const;

    Lines lines_;
    bool first_ = true;
};

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

void readNodes(BlockReading& block);
void readElements(BlockReading& block);
void readProperties(BlockReading& block);
void readLayups(BlockReading& block);
void readMaterials(BlockReading& block);
void readOldMaterials(BlockReading& block);
void readFunctions(BlockReading& block);
void readLoadSets(BlockReading& block);
void readOutputSets(BlockReading& block);
void readOutputVectors(BlockReading& block);
void readNewOutputVectors(BlockReading& block);

/// Reserves room for more rows: exactly for the first ones, later by half to copy them rarely.
template <class Row>
void makeRoom(std::vector<Row>& rows, std::size_t more)
{
    const std::size_t needed = rows.size() + more;
    if (needed > rows.capacity())
        rows.reserve(rows.empty() ? needed : std::max(needed, rows.size() + rows.size() / 2));
}

}  // namespace femap::neutral
