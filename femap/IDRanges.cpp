#include "femap/IDRanges.h"

#include "femap/NumberText.h"

namespace femap
{

std::optional<IDRange> parseIDRange(std::string_view text)
{
    const std::size_t dash = text.find('-');
    const std::optional<int> first = wholeNumber(text.substr(0, dash));
    const std::optional<int> last =
        dash == std::string_view::npos ? first : wholeNumber(text.substr(dash + 1));
    if (!first || !last || *first < 1 || *last < *first)
        return {};
    return IDRange{*first, *last};
}

std::string rangesText(const std::vector<int>& ids, std::size_t mostRanges)
{
    std::string result;
    std::size_t ranges = 0;
    for (std::size_t i = 0; i < ids.size(); ++ranges) {
        if (ranges == mostRanges)
            return result + " …";
        std::size_t last = i;
        while (last + 1 < ids.size() && ids[last + 1] == ids[last] + 1)
            ++last;
        result += (ranges == 0 ? "" : " ") + std::to_string(ids[i]);
        if (last > i)
            result += '-' + std::to_string(ids[last]);
        i = last + 1;
    }
    return result;
}

}  // namespace femap
