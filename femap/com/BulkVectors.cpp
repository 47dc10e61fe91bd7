#include "femap/com/BulkVectors.h"

#include "femap/com/Codes.h"
#include "femap/com/bulk/IDIndex.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace femap::com
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr double nothing = std::numeric_limits<double>::quiet_NaN();

int setOf(std::optional<ScratchSet>& set, const ComContext& context, const std::vector<int>& ids)
{
    if (!set)
        set.emplace(context.application);
    set->fill(ids);
    return set->ID();
}

std::vector<std::pair<int, std::string>> paired(LONG count, const Variant& ids,
                                                const Variant& titles)
{
    const std::vector<int> numbers = ids.numbers();
    std::vector<std::string> texts = titles.texts();
    if (numbers.size() != texts.size() || numbers.size() != static_cast<std::size_t>(count))
        throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP returned unlike numbers of titles");
    std::vector<std::pair<int, std::string>> result;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        result.emplace_back(numbers[i], withoutControlCharacters(std::move(texts[i])));
    return result;
}

}  // namespace

std::vector<double> ClassicVectorFetcher::values(int, const std::vector<int>& entityIDs)
{
    Variant values;
    demandOk(code(output_.call("GetOutputListAtSet", setOf(set_, context_, entityIDs), nothing,
                               &values)),
             "GetOutputListAtSet failed");
    return values.reals();
}

std::vector<std::pair<int, std::string>> ClassicVectorFetcher::titles()
{
    LONG count = 0;
    Variant ids;
    Variant titles;
    demandOk(code(output_.call("GetTitleList", 0, 0, &count, &ids, &titles)),
             "GetTitleList failed");
    return paired(count, ids, titles);
}

std::vector<double> ModernVectorFetcher::values(int vectorID, const std::vector<int>& entityIDs)
{
    const int location = locationOf(vectorID);
    const int set = setOf(set_, context_, entityIDs);
    results_.call("clear");
    fillMissingWithNothing();
    demandOk(code(results_.call("DataNeeded", location, set)), "DataNeeded failed");
    LONG columns = 0;
    Variant indices;
    demandOk(code(results_.call("AddColumnV2", outputSet_, vectorID, false, &columns, &indices)),
             "AddColumnV2 failed");
    const std::vector<int> column = indices.numbers();
    if (column.size() != 1)
        throw RuntimeError(ErrorNumber::ObjectFailed, "AddColumnV2 added no column");
    demandOk(code(results_.call("Populate")), "Populate failed");
    Variant ids;
    Variant values;
    demandOk(code(results_.call("GetColumn", column.front(), &ids, &values)), "GetColumn failed");

    const std::vector<int> rows = ids.numbers();
    const std::vector<double> numbers = values.reals();
    if (rows.size() != numbers.size())
        throw RuntimeError(ErrorNumber::ObjectFailed, "GetColumn returned unlike numbers");
    std::vector<double> result(entityIDs.size(), nothing);
    bulk::IDIndex indexOf(entityIDs);
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (const std::optional<std::size_t> index = indexOf.find(rows[i]))
            result[*index] = numbers[i];
    return result;
}

std::vector<std::pair<int, std::string>> ModernVectorFetcher::titles()
{
    LONG count = 0;
    Variant ids;
    Variant titles;
    demandOk(code(results_.call("VectorTitlesV2", outputSet_, false, 0, 0, &count, &ids, &titles)),
             "VectorTitlesV2 failed");
    return paired(count, ids, titles);
}

// The EntityType at which the vector has its values: nodes or elements.
int ModernVectorFetcher::locationOf(int vectorID)
{
    LONG location = 0;
    LONG category = 0;
    VARIANT_BOOL first = VARIANT_FALSE;
    VARIANT_BOOL second = VARIANT_FALSE;
    LONG last = 0;
    demandOk(code(results_.call("VectorInfoV2", outputSet_, vectorID, &location, &category, &first,
                                &second, &last)),
             "VectorInfoV2 failed");
    return static_cast<int>(location);
}

// Makes FEMAP return not-a-number for a missing value. A FEMAP that lacks this setting returns 0
// there; reading one by one then finds no value, which ends the bulk reading.
void ModernVectorFetcher::fillMissingWithNothing()
{
    try {
        results_.put("ValueForNonExisting", nothing);
    }
    catch (const RuntimeError&) {
        // Found out when PrefetchingVector compares values.
    }
}

}  // namespace femap::com
