// The results table object ("feResults") of the stand-in.
#include "standin/Objects.h"
#include "standin/Server.h"

#include <algorithm>
#include <set>

namespace standin
{

namespace
{

constexpr int invalid = 3;
constexpr int badType = 8;
constexpr int notExist = static_cast<int>(ReturnCode::NotExist);

using Results = ResultsObject;

// clang-format off
void putValueForNonExisting(Results& results, Arguments& arguments)
{
    results.valueForNonExisting = arguments.real(0);
}

constexpr Member<ResultsObject> resultsMembers[] = {
    {"ValueForNonExisting", serve<&Results::valueForNonExisting>, putValueForNonExisting},
    {"clear",               serve<&Results::clear>},
    {"NumberOfRows",        serve<&Results::numberOfRows>},
    {"NumberOfColumns",     serve<&Results::numberOfColumns>},
    {"Populate",            serve<&Results::populate>},
    {"AddColumn",           serve<&Results::addColumn>},
    {"GetColumnMinMax",     serve<&Results::getColumnMinMax>},
    {"GetValue",            serve<&Results::getValue>},
    {"DataNeeded",          serve<&Results::dataNeeded>},
    {"GetColumn",           serve<&Results::getColumn>},
    {"VectorExists",        serve<&Results::vectorExists>},
    {"VectorTitle",         serve<&Results::vectorTitle>},
    {"VectorEntities",      serve<&Results::vectorEntities>},
    {"Vectors",             serve<&Results::vectors>},
    {"AddColumnV2",         serve<&Results::addColumn>},
    {"VectorExistsV2",      serve<&Results::vectorExists>},
    {"VectorInfoV2",        serve<&Results::vectorInfo>},
    {"VectorTitleV2",       serve<&Results::vectorTitle>},
    {"VectorEntitiesV2",    serve<&Results::vectorEntities>},
    {"VectorsV2",           serve<&Results::vectors>},
    {"VectorTitlesV2",      serve<&Results::vectorTitles>},
    {"EntityValue",         serve<&Results::entityValue>},
    {"EntityValueV2",       serve<&Results::entityValue>},
};
// clang-format on
static_assert(areDeclared(resultsMembers, ResultsObject::declarations));

}  // namespace

std::span<const Member<ResultsObject>> ResultsObject::members()
{
    return resultsMembers;
}

std::optional<embedded::HostOutputVector> ResultsObject::find(int set, int vector)
{
    const int own = server().ownVectorID(vector);
    std::optional<embedded::HostOutputVector> found(server().host);
    if (server().shownVectorID(own) != vector || found->GetFromSet(set, own) != ReturnCode::Ok)
        found.reset();
    return found;
}

// Columns can be read once the table was populated.
const neutral::OutputVector* ResultsObject::column(int index) const
{
    const auto at = static_cast<std::size_t>(index);
    return !populated_ || index < 0 || at >= columns_.size() ? nullptr : &columns_[at].loaded();
}

int ResultsObject::clear()
{
    if (!server().modes[Mode::ClearKeeps])
        columns_.clear();
    rows_.reset();
    populated_ = false;
    return ok;
}

int ResultsObject::dataNeeded(int location, int set)
{
    if (populated_)
        return invalid;
    rows_ = server().idsIn(set, static_cast<EntityType>(location));
    return ok;
}

int ResultsObject::addColumn(Arguments& arguments)
{
    if (populated_)
        return invalid;
    const auto vector = find(arguments.number(0), arguments.number(1));
    if (!vector)
        return notExist;
    if (!columns_.empty() && columns_.front().loaded().location != vector->loaded().location)
        return badType;
    arguments.fill(3, 1);
    arguments.fillAny(4, std::vector<int>{numberOfColumns()});
    columns_.push_back(*vector);
    return ok;
}

int ResultsObject::populate()
{
    populated_ = true;
    return ok;
}

int ResultsObject::numberOfRows()
{
    std::set<int> rows;
    for (const embedded::HostOutputVector& column : columns_)
        rows.insert(column.loaded().ids.begin(), column.loaded().ids.end());
    return populated_ ? static_cast<int>(rows.size()) : 0;
}

int ResultsObject::numberOfColumns()
{
    return static_cast<int>(columns_.size());
}

int ResultsObject::getColumn(Arguments& arguments)
{
    const neutral::OutputVector* const vector = column(arguments.number(0));
    if (vector == nullptr)
        return invalid;
    const std::vector<int>& rows = rows_ ? *rows_ : vector->ids;
    const std::vector<double> values = valuesAt(*vector, rows, valueForNonExisting);
    arguments.fillAny(1, rows);
    arguments.fillAny(2, values);
    return ok;
}

int ResultsObject::getColumnMinMax(Arguments& arguments)
{
    const neutral::OutputVector* const vector = column(arguments.number(0));
    if (vector == nullptr)
        return invalid;
    const std::vector<int> limit = arguments.number(1) == 0
                                       ? vector->ids
                                       : server().idsIn(arguments.number(1), vector->location);
    int minimumID = 0;
    int maximumID = 0;
    double minimum = vector->minval;
    double maximum = vector->maxval;
    for (std::size_t i = 0; i < vector->ids.size(); ++i) {
        if (!std::binary_search(limit.begin(), limit.end(), vector->ids[i]))
            continue;
        const double value = vector->values[i];
        if (minimumID == 0 || value < minimum) {
            minimumID = vector->ids[i];
            minimum = value;
        }
        if (maximumID == 0 || value > maximum) {
            maximumID = vector->ids[i];
            maximum = value;
        }
    }
    arguments.fill(2, minimumID);
    arguments.fill(3, maximumID);
    arguments.fill(4, minimum);
    arguments.fill(5, maximum);
    return ok;
}

int ResultsObject::getValue(Arguments& arguments)
{
    const neutral::OutputVector* const vector = column(arguments.number(1));
    if (vector == nullptr)
        return invalid;
    return fillValue(arguments, 2, vector->valueAt(arguments.number(0)));
}

// value: null where there is none.
int ResultsObject::fillValue(Arguments& arguments, std::size_t i, const double* value) const
{
    if (value == nullptr && !server().modes[Mode::MissingIsZero])
        return failed;
    arguments.fill(i, value == nullptr ? 0 : *value);
    return ok;
}

int ResultsObject::entityValue(Arguments& arguments)
{
    const auto vector = find(arguments.number(0), arguments.number(1));
    if (!vector)
        return notExist;
    return fillValue(arguments, 3, vector->loaded().valueAt(arguments.number(2)));
}

int ResultsObject::vectorTitle(Arguments& arguments)
{
    const auto vector = find(arguments.number(0), arguments.number(1));
    if (!vector)
        return notExist;
    arguments.fillText(2, vector->loaded().title);
    return ok;
}

// The set's vectors as FEMAP shows them.
std::vector<ResultsObject::Title> ResultsObject::shownVectors(const neutral::OutputSet& set) const
{
    std::vector<Title> shown;
    for (const neutral::OutputVector& vector : set.vectors)
        shown.push_back({server().shownVectorID(vector.id), vector.title});
    std::ranges::sort(shown, {}, &Title::id);
    return shown;
}

int ResultsObject::vectorTitles(Arguments& arguments)
{
    const neutral::OutputSet* const set =
        server().host.openModel().outputSets.find(arguments.number(0));
    if (set == nullptr)
        return notExist;
    auto [ids, titles] =
        titlesIn(shownVectors(*set), arguments.number(2), arguments.number(3), server().modes);
    if (arguments.flag(1))
        for (std::size_t i = 0; i < ids.size(); ++i)
            titles[i].insert(0, std::to_string(ids[i]) + "..");
    arguments.fill(4, static_cast<int>(ids.size()));
    arguments.fillAny(5, ids);
    arguments.fillAny(6, titles);
    return ok;
}

int ResultsObject::vectors(int set, int target, bool clearFirst)
{
    const neutral::OutputSet* const found = server().host.openModel().outputSets.find(set);
    return found == nullptr
               ? failed
               : fillSet(target, clearFirst, server().idsOf(EntityType::OutputVector, set));
}

int ResultsObject::vectorEntities(int set, int vector, int target, bool clearFirst)
{
    const auto found = find(set, vector);
    return found ? fillSet(target, clearFirst, found->loaded().ids) : notExist;
}

int ResultsObject::fillSet(int target, bool clearFirst, const std::vector<int>& ids)
{
    embedded::HostSet* const set = server().findSet(target);
    if (set == nullptr)
        return failed;
    if (clearFirst)
        set->clear();
    set->add(ids);
    return ok;
}

int ResultsObject::vectorExists(int set, int vector)
{
    return find(set, vector) ? ok : failed;
}

int ResultsObject::vectorInfo(Arguments& arguments)
{
    const auto vector = find(arguments.number(0), arguments.number(1));
    if (!vector)
        return notExist;
    arguments.fill(2, static_cast<int>(vector->loaded().location));
    arguments.fill(3, 0);
    arguments.fillFlag(4, false);
    arguments.fillFlag(5, false);
    arguments.fill(6, 0);
    return ok;
}

}  // namespace standin
