#include "femap/com/bulk/IDIndex.h"

#include <algorithm>

namespace femap::com::bulk
{

std::optional<std::size_t> IDIndex::find(int id)
{
    if (next_ > 0 && ids_[next_ - 1] == id)
        return next_ - 1;
    if (next_ == ids_.size() || ids_[next_] != id) {
        const auto found = std::lower_bound(ids_.begin(), ids_.end(), id);
        if (found == ids_.end() || *found != id)
            return std::nullopt;
        next_ = static_cast<std::size_t>(found - ids_.begin());
    }
    return next_++;
}

}  // namespace femap::com::bulk
