#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace femap::bulk
{

/// Where IDs stand in an ascending list. Quickest for those who ask for them in their order.
class Places
{
public:
    Places() = default;
    explicit Places(std::vector<int> ids) : ids_(std::move(ids)) {}

    const std::vector<int>& ids() const { return ids_; }
    std::optional<std::size_t> find(int id);

private:
    std::vector<int> ids_;
    std::size_t next_ = 0;  // the place after the one found last
};

}  // namespace femap::bulk
