// Finds the index of an ID in an ascending list; fastest when IDs are asked for in ascending order.
#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace femap::com::bulk
{

class IDIndex
{
public:
    IDIndex() = default;
    explicit IDIndex(std::vector<int> ids) : ids_(std::move(ids)) {}

    const std::vector<int>& ids() const { return ids_; }
    std::optional<std::size_t> find(int id);

private:
    std::vector<int> ids_;
    std::size_t next_ = 0;  // the index after the one found last
};

}  // namespace femap::com::bulk
