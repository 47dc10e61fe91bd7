#include "femap/neutral/NeutralFile.h"

#include "femap/NumberText.h"
#include "femap/neutral/NeutralBlocks.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace femap::neutral
{

namespace
{

constexpr int headerBlock = 100;
constexpr int vectorBlock = 451;
constexpr double firstVersion = 4.4;
constexpr double firstUnknownVersion = 12;

struct BlockKind
{
    int number;
    const char* name;
    void (*read)(BlockReading& block);
};

// clang-format off
constexpr BlockKind blockKinds[] = {
    { 401, "materials",      readOldMaterials},
    { 402, "properties",     readProperties},
    { 403, "nodes",          readNodes},
    { 404, "elements",       readElements},
    { 420, "functions",      readFunctions},
    { 450, "output sets",    readOutputSets},
    { 451, "output vectors", readOutputVectors},
    { 507, "loads",          readLoadSets},
    { 601, "materials",      readMaterials},
    { 927, "layups",         readLayups},
    {1051, "output vectors", readNewOutputVectors},
};
// clang-format on

double readVersion(const Block& header)
{
    Lines lines(header.content);
    lines.skipText(1);  // title
    Fields fields = lines.record();
    const double version = fields.real();
    if (version < firstVersion || version >= firstUnknownVersion)
        fields.fail("the file has the version " + numberText(version) +
                    ", but only the versions 4.4 to 11 can be read");
    if (!lines.atEnd())
        lines.record().fail("the header has more lines than a title and a version");
    return version;
}

// A solver leaves out the last mark of its results.
bool mayLackItsEnd(const Block& block)
{
    return block.hasEnd || block.number == vectorBlock;
}

// The layout of every other block depends on the version, so it must be known before them.
double findVersion(std::string_view content)
{
    Blocks blocks(content);
    while (const std::optional<Block> block = blocks.next()) {
        if (!mayLackItsEnd(*block))
            blocks.refuseWithoutEnd(*block);
        if (block->number == headerBlock)
            return readVersion(*block);
    }
    throw FormatError(content.data(), "this is no FEMAP neutral file, or its header is missing");
}

void readBlock(const Block& block, double version, const sys::CodePage& codePage,
               NeutralContents& contents)
{
    const auto* const kind =
        std::find_if(std::begin(blockKinds), std::end(blockKinds),
                     [&](const BlockKind& candidate) { return candidate.number == block.number; });
    if (kind == std::end(blockKinds))
        return;
    try {
        BlockReading reading{Lines(block.content), block.lineCount, version, codePage, contents};
        kind->read(reading);
    }
    catch (const FormatError& error) {
        throw FormatError(error.position(), "block " + std::to_string(block.number) + " (" +
                                                kind->name + "): " + error.what());
    }
}

// Results without their last mark are read when they end with a whole vector.
void readCutBlock(const Blocks& blocks, Block block, double version, const sys::CodePage& codePage,
                  NeutralContents& contents)
{
    if (!mayLackItsEnd(block))
        blocks.refuseWithoutEnd(block);
    block.content = block.content.substr(0, block.content.find_last_not_of(" \t\r\n") + 1);
    const std::size_t before = contents.vectors.size();
    try {
        readBlock(block, version, codePage, contents);
    }
    catch (const FormatError&) {
        blocks.refuseWithoutEnd(block);
    }
    if (contents.vectors.size() == before)
        blocks.refuseWithoutEnd(block);
    contents.remark(
        "The results may be cut short, for their last end mark is missing; compare them with the "
        "solver's");
}

NeutralContents readContents(std::string_view content, const sys::CodePage& codePage)
{
    NeutralContents contents;
    double version = findVersion(content);
    Blocks blocks(content);
    while (const std::optional<Block> block = blocks.next()) {
        if (!block->hasEnd)
            readCutBlock(blocks, *block, version, codePage, contents);
        else if (block->number == headerBlock)
            version = readVersion(*block);  // files that were joined have several
        else
            readBlock(*block, version, codePage, contents);
    }
    return contents;
}

void mergeVectors(std::vector<VectorOfSet> vectors, Table<OutputSet>& outputSets)
{
    const auto bySet = [](const VectorOfSet& a, const VectorOfSet& b) { return a.setID < b.setID; };
    if (!std::is_sorted(vectors.begin(), vectors.end(), bySet))
        std::stable_sort(vectors.begin(), vectors.end(), bySet);
    for (auto first = vectors.begin(); first != vectors.end();) {
        const auto last = std::upper_bound(first, vectors.end(), *first, bySet);
        std::vector<OutputVector> ofSet;
        ofSet.reserve(static_cast<std::size_t>(last - first));
        std::transform(first, last, std::back_inserter(ofSet),
                       [](VectorOfSet& row) { return std::move(row.vector); });
        outputSets.find(first->setID)->vectors.merge(std::move(ofSet));
        first = last;
    }
}

// A set that is known already keeps its vectors. A file may hold vectors of a set that only another
// file describes.
void mergeOutputSets(std::vector<OutputSet> sets, std::vector<VectorOfSet> vectors,
                     Table<OutputSet>& outputSets)
{
    std::vector<OutputSet> added;
    const auto addUnlessKnown = [&](int id) {
        const bool known = outputSets.find(id) || (!added.empty() && added.back().id == id);
        if (!known)
            added.emplace_back().id = id;
    };
    for (const OutputSet& set : sets)
        addUnlessKnown(set.id);
    for (const VectorOfSet& row : vectors)
        addUnlessKnown(row.setID);
    outputSets.merge(std::move(added));
    for (OutputSet& set : sets) {
        OutputSet& target = *outputSets.find(set.id);
        target.title = std::move(set.title);
        target.value = set.value;
    }
    mergeVectors(std::move(vectors), outputSets);
}

void mergeContents(NeutralContents contents, Model& model)
{
    model.nodes.merge(std::move(contents.nodes));
    model.elements.merge(std::move(contents.elements));
    model.properties.merge(std::move(contents.properties));
    model.layups.merge(std::move(contents.layups));
    model.materials.merge(std::move(contents.materials));
    model.functions.merge(std::move(contents.functions));
    model.loadSets.merge(std::move(contents.loadSets));
    mergeOutputSets(std::move(contents.outputSets), std::move(contents.vectors), model.outputSets);
}

// The line of a position in the text, counted from 1.
std::ptrdiff_t lineNumber(std::string_view content, const char* position)
{
    return std::count(content.data(), position, '\n') + 1;
}

}  // namespace

std::vector<std::string> readNeutralFile(std::string_view content, const std::string& fileName,
                                         const sys::CodePage& codePage, Model& model)
{
    NeutralContents contents;
    try {
        contents = readContents(content, codePage);
    }
    catch (const FormatError& error) {
        throw sys::RuntimeError(
            sys::ErrorNumber::FileError,
            fileName + ":" + std::to_string(lineNumber(content, error.position())) + ": " +
                error.what() +
                ". Export the model again from FEMAP as a neutral file of version 4.4 to 11.");
    }
    std::vector<std::string> remarks = std::move(contents.remarks);
    for (std::string& remark : remarks)
        remark += ": " + fileName;
    mergeContents(std::move(contents), model);
    return remarks;
}

}  // namespace femap::neutral
