// Where the numbers of a neutral file stand in its text.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace femap::neutral
{

/// A reader that is given one reads, in place of each number that can be replaced in the file, the
/// number of its place. So what the reader knows of the layout tells where a value stands.
class Places
{
public:
    /// Notes the text of a number. Returns the place, which differs from that number.
    int note(std::string_view text, double number)
    {
        texts_.push_back(text);
        if (static_cast<double>(texts_.size()) == number)
            texts_.push_back(text);
        return static_cast<int>(texts_.size());
    }

    std::string_view text(int place) const
    {
        return texts_.at(static_cast<std::size_t>(place - 1));
    }

private:
    std::vector<std::string_view> texts_;
};

}  // namespace femap::neutral
