// Reads the output sets (block 450) and output vectors (blocks 451 and 1051) of a neutral file.
#include "femap/neutral/NeutralBlocks.h"

#include <array>
#include <cstdint>
#include <numeric>
#include <utility>

namespace femap::neutral
{

namespace
{

// Newer files add lines after the notes of an output set, but which version adds how many is not
// certain. These counts are tried in order until all sets of the block can be read.
constexpr double firstVersionWithExtraLines = 11;
constexpr std::array<int, 5> extraLinesOfOldFiles = {0, 1, 4, 2, 3};
constexpr std::array<int, 5> extraLinesOfNewFiles = {1, 4, 0, 2, 3};

OutputSet readOutputSet(BlockReading& block, int extraLines)
{
    Lines& lines = block.lines;
    OutputSet set;
    set.id = lines.record().id();
    set.title = block.title();
    lines.record().integer();  // program, kind of analysis
    set.value = lines.record().real();
    lines.skipText(lines.count());
    lines.skipText(extraLines);
    return set;
}

std::vector<OutputSet> tryOutputSets(BlockReading block, int extraLines)
{
    std::vector<OutputSet> sets;
    while (!block.lines.atEnd())
        sets.push_back(readOutputSet(block, extraLines));
    return sets;
}

// Moves the rows out, or copies them when much of their room is spare.
template <class Row>
std::vector<Row> takeExactly(std::vector<Row>& rows)
{
    const std::size_t spare = rows.capacity() - rows.size();
    if (spare <= rows.size() / 8)
        return std::exchange(rows, {});
    return std::vector<Row>(rows);
}

/// Collects the values of one output vector at a time.
class Values
{
public:
    /// Reads up to the end of the list: single values or runs of them over many entities.
    void read(Lines& lines);
    /// Moves them to the vector in ascending order of ID; of several with one ID the last stays.
    void store(OutputVector& vector);

private:
    struct Row
    {
        int id;
        double value;
    };

    void readRun(Lines& lines, Fields fields, int first);
    void makeRoomFor(std::size_t more)
    {
        makeRoom(ids_, more);
        makeRoom(values_, more);
    }
    // To be told of each ID, or the first of a run, before it is added.
    void compareWithLast(int id) { ascending_ &= ids_.empty() || ids_.back() < id; }
    void add(int id, double value)
    {
        compareWithLast(id);
        ids_.push_back(id);
        values_.push_back(value);
    }
    void sort();

    std::size_t usual_ = 0;  // how many values the previous vector had
    bool ascending_ = true;  // so far
    std::vector<int> ids_;
    std::vector<double> values_;
};

void Values::read(Lines& lines)
{
    ids_.clear();
    values_.clear();
    ascending_ = true;
    makeRoomFor(usual_);
    while (!lines.takeListEnd()) {
        Fields fields = lines.record();
        const int id = fields.id();
        const Fields afterID = fields;
        const double value = fields.real();
        if (fields.atEnd())
            add(id, value);
        else
            readRun(lines, afterID, id);
    }
}

void Values::readRun(Lines& lines, Fields fields, int first)
{
    const int last = fields.integer();
    if (last < first)
        fields.fail("the last ID is less than the first");
    // Every value takes two bytes at least, whatever the IDs say.
    makeRoomFor(std::min(static_cast<std::size_t>(last - first) + 1, lines.rest().size() / 2 + 1));
    for (int id = first;; ++id) {
        while (fields.atEnd())
            fields = lines.record();
        values_.push_back(fields.real());
        if (id == last)
            break;
    }
    compareWithLast(first);
    const auto ids = ids_.insert(ids_.end(), values_.size() - ids_.size(), 0);
    std::iota(ids, ids_.end(), std::int64_t{first});  // wide, for it counts one further than last
    fields.expectEnd();
}

void Values::sort()
{
    std::vector<Row> rows;
    rows.reserve(ids_.size());
    for (std::size_t i = 0; i < ids_.size(); ++i)
        rows.push_back({ids_[i], values_[i]});
    sortByID(rows);
    ids_.clear();
    values_.clear();
    for (const Row& row : rows)
        add(row.id, row.value);
}

void Values::store(OutputVector& vector)
{
    if (!ascending_)
        sort();
    usual_ = ids_.size();
    vector.ids = takeExactly(ids_);
    vector.values = takeExactly(values_);
}

// Solvers that do not know the extremes write 0 twice, or a minimum above the maximum.
void completeExtremes(OutputVector& vector)
{
    const bool unknown =
        vector.maxval < vector.minval || (vector.minval == 0 && vector.maxval == 0);
    if (!unknown)
        return;
    vector.minval = vector.maxval = 0;
    if (vector.values.empty())
        return;
    const auto [least, greatest] = std::minmax_element(vector.values.begin(), vector.values.end());
    vector.minval = *least;
    vector.maxval = *greatest;
}

EntityType readLocation(Fields fields)
{
    fields.integer();  // entity of the minimum
    fields.integer();  // entity of the maximum
    fields.integer();  // kind of output
    const int type = fields.integer();
    if (type == static_cast<int>(EntityType::Node))
        return EntityType::Node;
    if (type == static_cast<int>(EntityType::Element))
        return EntityType::Element;
    fields.fail("the entity type is neither 7 (nodes) nor 8 (elements)");
}

VectorOfSet readVector(BlockReading& block, int linesOfComponents, Values& values)
{
    Lines& lines = block.lines;
    VectorOfSet result;
    OutputVector& vector = result.vector;
    Fields head = lines.record();
    result.setID = head.id();
    vector.id = head.id();
    vector.title = block.title();
    Fields extremes = lines.record();
    vector.minval = extremes.real();
    vector.maxval = extremes.real();
    lines.skipNumbers(linesOfComponents);
    vector.location = readLocation(lines.record());
    lines.skipNumbers(1);  // flags
    values.read(lines);
    values.store(vector);
    completeExtremes(vector);
    return result;
}

void readVectors(BlockReading& block, int linesOfComponents)
{
    Values values;
    while (!block.lines.atEnd())
        block.contents.vectors.push_back(readVector(block, linesOfComponents, values));
}

}  // namespace

void readOutputSets(BlockReading& block)
{
    const bool isNew = block.version >= firstVersionWithExtraLines;
    const auto& choices = isNew ? extraLinesOfNewFiles : extraLinesOfOldFiles;
    std::optional<FormatError> firstError;
    for (const int extraLines : choices) {
        try {
            std::vector<OutputSet> sets = tryOutputSets(block, extraLines);
            std::move(sets.begin(), sets.end(), std::back_inserter(block.contents.outputSets));
            return;
        }
        catch (const FormatError& error) {
            if (!firstError)
                firstError = error;
        }
    }
    throw FormatError(*firstError);
}

void readOutputVectors(BlockReading& block)
{
    constexpr int linesOfComponents = 2;
    readVectors(block, linesOfComponents);
}

void readNewOutputVectors(BlockReading& block)
{
    constexpr int linesOfComponents = 3;
    readVectors(block, linesOfComponents);
}

}  // namespace femap::neutral
