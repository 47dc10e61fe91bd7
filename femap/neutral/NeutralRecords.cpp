#include "femap/neutral/NeutralRecords.h"

#include "femap/neutral/NeutralBlocks.h"

#include <algorithm>
#include <utility>

namespace femap::neutral
{

namespace
{

/// How the records of a block are read.
template <class Data>
struct RecordKind
{
    int block = 0;
    std::vector<Data> NeutralContents::*rows = nullptr;
    void (*read)(BlockReading& block) = nullptr;
    int (*pass)(Lines& lines) = nullptr;  // without it those that are not sought are read, too
};

// clang-format off
constexpr std::tuple recordKinds = {
    RecordKind<Node>    {nodesBlock,        &NeutralContents::nodes,      readNode, passNode},
    RecordKind<Element> {elementsBlock,     &NeutralContents::elements,   readElement, passElement},
    RecordKind<Property>{propertiesBlock,   &NeutralContents::properties, readProperty},
    RecordKind<Material>{materialsBlock,    &NeutralContents::materials,  readMaterial},
    RecordKind<Material>{oldMaterialsBlock, &NeutralContents::materials,  readOldMaterial},
    RecordKind<Function>{functionsBlock,    &NeutralContents::functions,  readFunction},
    RecordKind<LoadSet> {loadSetsBlock,     &NeutralContents::loadSets,   readLoadSet},
};
// clang-format on

template <class Data>
class BlockSearch
{
public:
    BlockSearch(const RecordKind<Data>& kind, const Block& block, double version, Places& places)
        : kind_(kind), block_(block), version_(version), places_(places)
    {}

    void run(Sought<Data>& sought)
    {
        const auto isSought = [&](int id) { return std::ranges::binary_search(sought.ids, id); };
        Lines lines(block_.content);
        while (!lines.atEnd()) {
            const std::string_view rest = lines.rest();
            if (kind_.pass != nullptr && !isSought(kind_.pass(lines)))
                continue;
            lines = Lines(rest);
            Data data = read(lines);
            if (!isSought(data.id))
                continue;
            Lines again(rest, &places_);
            sought.found.push_back({std::move(data), read(again), rest.data()});
        }
    }

private:
    Data read(Lines& lines)
    {
        NeutralContents contents;
        BlockReading block{lines, block_.lineCount, version_, sys::windows1252(), contents};
        kind_.read(block);
        lines = block.lines;
        return std::move((contents.*kind_.rows).front());
    }

    const RecordKind<Data>& kind_;
    const Block& block_;
    double version_;
    Places& places_;
};

template <class Data>
void searchBlock(const RecordKind<Data>& kind, const Block& block, double version, Places& places,
                 SoughtRecords& sought)
{
    auto& ofKind = std::get<Sought<Data>>(sought);
    if (block.number == kind.block && !ofKind.ids.empty())
        BlockSearch(kind, block, version, places).run(ofKind);
}

template <class Data>
void sortFound(Sought<Data>& sought)
{
    std::ranges::stable_sort(sought.found, {},
                             [](const Record<Data>& record) { return record.data.id; });
}

}  // namespace

Places findRecords(std::string_view content, const std::string& fileName, SoughtRecords& sought)
{
    Places places;
    nameFileAndLine(content, fileName, [&] {
        forEachBlock(content, [&](const Block& block, double version) {
            std::apply(
                [&](const auto&... kind) {
                    (searchBlock(kind, block, version, places, sought), ...);
                },
                recordKinds);
        });
    });
    std::apply([](auto&... ofKind) { (sortFound(ofKind), ...); }, sought);
    return places;
}

}  // namespace femap::neutral
