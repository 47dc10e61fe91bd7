// IDs as text, as an engineer types them: "1-5 7".
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace femap
{

struct IDRange
{
    int first;
    int last;

    bool contains(int id) const { return id >= first && id <= last; }
};

/// "7" or "5-9"; nothing when the text is neither, or names an ID below 1 or a range that descends.
std::optional<IDRange> parseIDRange(std::string_view text);

/// Ascending IDs as ranges with blanks between; "…" stands for further ranges.
std::string rangesText(const std::vector<int>& ids,
                       std::size_t mostRanges = std::numeric_limits<std::size_t>::max());

}  // namespace femap
