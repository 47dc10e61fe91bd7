#include "femap/com/BulkCalls.h"

#include "femap/com/Codes.h"

#include <algorithm>
#include <functional>

namespace femap::com
{

using sys::ErrorNumber;
using sys::RuntimeError;

std::vector<int> idsIn(Dispatch& set)
{
    LONG count = 0;
    Variant array;
    demandOk(code(set.call("GetArray", &count, &array)), "The IDs of a set cannot be read");
    std::vector<int> ids = array.numbers();
    cutTo(ids, count);
    const bool ascends =
        std::adjacent_find(ids.begin(), ids.end(), std::greater_equal<>()) == ids.end();
    if (ids.size() != static_cast<std::size_t>(count) || !ascends ||
        (!ids.empty() && ids.front() <= 0))
        throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP returned IDs that make no set");
    return ids;
}

std::vector<int> allIDs(Dispatch& application, EntityType type)
{
    Dispatch set = application.object("feSet");
    demandOk(code(set.call("AddAll", number(type))), "The IDs of a kind cannot be listed");
    return idsIn(set);
}

ScratchSet::ScratchSet(Dispatch& application)
    : set_(application.object("feSet")), id_(set_.call("ID").number())
{}

void ScratchSet::fill(std::span<const int> ids)
{
    if (std::equal(ids.begin(), ids.end(), held_.begin(), held_.end()))
        return;
    if (!held_.empty())
        demandOk(code(set_.call("clear")), "A set cannot be emptied");
    held_.clear();
    std::vector<int> wanted(ids.begin(), ids.end());
    demandOk(code(set_.call("AddArray", static_cast<int>(wanted.size()), wanted)),
             "A set cannot be filled");
    held_ = std::move(wanted);
}

}  // namespace femap::com
