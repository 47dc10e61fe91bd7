#include "femap/com/BulkVectors.h"

#include "femap/com/Codes.h"
#include "femap/com/VectorEntities.h"
#include "femap/com/bulk/IDIndex.h"
#include "system/PendingError.h"

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
    std::vector<int> numbers = ids.numbers();
    std::vector<std::string> texts = titles.texts();
    cutTo(numbers, count);
    cutTo(texts, count);
    if (numbers.size() != texts.size() || numbers.size() != static_cast<std::size_t>(count))
        throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP returned unlike numbers of titles");
    std::vector<std::pair<int, std::string>> result;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        result.emplace_back(numbers[i], withoutControlCharacters(std::move(texts[i])));
    return result;
}

// A 0 of an entity that has no data becomes nothing.
template <class Vector>
std::vector<double> withoutFillers(std::vector<double> values, const std::vector<int>& entityIDs,
                                   Vector& vector, int vectorID)
{
    const std::size_t count = std::min(values.size(), entityIDs.size());
    for (std::size_t i = 0; i < count; ++i)
        if (values[i] == 0 && !vector.entities().has(vector.outputSet(), vectorID, entityIDs[i]))
            values[i] = nothing;
    return values;
}

// The EntityType at which the vector has its values: nodes or elements.
int locationOf(Dispatch& results, int outputSet, int vectorID)
{
    LONG location = 0;
    LONG category = 0;
    VARIANT_BOOL first = VARIANT_FALSE;
    VARIANT_BOOL second = VARIANT_FALSE;
    LONG last = 0;
    demandOk(code(results.call("VectorInfoV2", outputSet, vectorID, &location, &category, &first,
                               &second, &last)),
             "VectorInfoV2 failed");
    return static_cast<int>(location);
}

// Makes FEMAP return not-a-number for a missing value. One that lacks this setting returns 0 there.
void fillMissingWithNothing(Dispatch& results)
{
    sys::PendingError ignored;
    ignored.attempt([&] { results.put("ValueForNonExisting", nothing); });
}

}  // namespace

std::vector<double> ClassicVectorFetcher::values(int vectorID, const std::vector<int>& entityIDs)
{
    Variant values;
    demandOk(code(vector_.object().call("GetOutputListAtSet", setOf(set_, context_, entityIDs),
                                        nothing, &values)),
             "GetOutputListAtSet failed");
    return withoutFillers(values.reals(), entityIDs, vector_, vectorID);
}

std::vector<std::pair<int, std::string>> ClassicVectorFetcher::titles()
{
    LONG count = 0;
    Variant ids;
    Variant titles;
    demandOk(code(vector_.object().call("GetTitleList", 0, 0, &count, &ids, &titles)),
             "GetTitleList failed");
    return paired(count, ids, titles);
}

// In a table of its own: what of an earlier one survives "clear" is not known.
std::vector<double> ModernVectorFetcher::values(int vectorID, const std::vector<int>& entityIDs)
{
    const int outputSet = vector_.outputSet();
    Dispatch table = context_.application.object("feResults");
    const int location = locationOf(vector_.results(), outputSet, vectorID);
    const int set = setOf(set_, context_, entityIDs);
    fillMissingWithNothing(table);
    demandOk(code(table.call("DataNeeded", location, set)), "DataNeeded failed");
    const int column = addColumn(table, outputSet, vectorID);
    demandOk(code(table.call("Populate")), "Populate failed");
    Variant ids;
    Variant values;
    demandOk(code(table.call("GetColumn", column, &ids, &values)), "GetColumn failed");

    const std::vector<int> rows = ids.numbers();
    const std::vector<double> numbers = values.reals();
    if (rows.size() != numbers.size())
        throw RuntimeError(ErrorNumber::ObjectFailed, "GetColumn returned unlike numbers");
    std::vector<double> result(entityIDs.size(), nothing);
    bulk::IDIndex indexOf(entityIDs);
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (const std::optional<std::size_t> index = indexOf.find(rows[i]))
            result[*index] = numbers[i];
    return withoutFillers(std::move(result), entityIDs, vector_, vectorID);
}

std::vector<std::pair<int, std::string>> ModernVectorFetcher::titles()
{
    LONG count = 0;
    Variant ids;
    Variant titles;
    Dispatch table = context_.application.object("feResults");
    demandOk(
        code(table.call("VectorTitlesV2", vector_.outputSet(), false, 0, 0, &count, &ids, &titles)),
        "VectorTitlesV2 failed");
    return paired(count, ids, titles);
}

}  // namespace femap::com
