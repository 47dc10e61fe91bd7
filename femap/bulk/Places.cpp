#include "femap/bulk/Places.h"

#include <algorithm>

namespace femap::bulk
{

std::optional<std::size_t> Places::find(int id)
{
    if (next_ > 0 && ids_[next_ - 1] == id)
        return next_ - 1;
    if (next_ == ids_.size() || ids_[next_] != id) {
        const auto place = std::lower_bound(ids_.begin(), ids_.end(), id);
        if (place == ids_.end() || *place != id)
            return std::nullopt;
        next_ = static_cast<std::size_t>(place - ids_.begin());
    }
    return next_++;
}

}  // namespace femap::bulk
