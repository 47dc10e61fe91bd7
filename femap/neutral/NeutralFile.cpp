#include "femap/neutral/NeutralFile.h"

#include "femap/neutral/NeutralBlocks.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace femap::neutral
{

namespace
{

struct BlockKind
{
    int number;
    const char* name;
    void (*read)(BlockReading& block);
};

// clang-format off
constexpr BlockKind blockKinds[] = {
    {oldMaterialsBlock,     "materials",      readAll<readOldMaterial>},
    {propertiesBlock,       "properties",     readAll<readProperty>},
    {nodesBlock,            "nodes",          readNodes},
    {elementsBlock,         "elements",       readElements},
    {functionsBlock,        "functions",      readAll<readFunction>},
    {outputSetsBlock,       "output sets",    readOutputSets},
    {outputVectorsBlock,    "output vectors", readOutputVectors},
    {loadSetsBlock,         "loads",          readAll<readLoadSet>},
    {materialsBlock,        "materials",      readAll<readMaterial>},
    {layupsBlock,           "layups",         readLayups},
    {newOutputVectorsBlock, "output vectors", readNewOutputVectors},
};
// clang-format on

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
void readCutBlock(const Block& cut, double version, const sys::CodePage& codePage,
                  NeutralContents& contents)
{
    Block block = cut;
    block.content = cut.content.substr(0, cut.content.find_last_not_of(" \t\r\n") + 1);
    const std::size_t before = contents.vectors.size();
    try {
        readBlock(block, version, codePage, contents);
    }
    catch (const FormatError&) {
        refuseWithoutEnd(cut);
    }
    if (contents.vectors.size() == before)
        refuseWithoutEnd(cut);
    contents.remark(
        "The results may be cut short, for their last end mark is missing; compare them with the "
        "solver's");
}

NeutralContents readContents(std::string_view content, const sys::CodePage& codePage)
{
    NeutralContents contents;
    forEachBlock(content, [&](const Block& block, double version) {
        const auto read = block.hasEnd ? readBlock : readCutBlock;
        read(block, version, codePage, contents);
    });
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

}  // namespace

std::vector<std::string> readNeutralFile(std::string_view content, const std::string& fileName,
                                         const sys::CodePage& codePage, Model& model)
{
    NeutralContents contents;
    nameFileAndLine(content, fileName, [&] { contents = readContents(content, codePage); });
    std::vector<std::string> remarks = std::move(contents.remarks);
    for (std::string& remark : remarks)
        remark += ": " + fileName;
    mergeContents(std::move(contents), model);
    return remarks;
}

}  // namespace femap::neutral
