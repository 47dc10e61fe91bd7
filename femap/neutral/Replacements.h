// Pieces of a text that others take the place of, while everything else stays byte for byte.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace femap::neutral
{

class Replacements
{
public:
    explicit Replacements(std::string_view content) : content_(content) {}

    /// piece lies within the content; pieces do not overlap. The last text for a piece counts.
    void replace(std::string_view piece, std::string text);

    /// Where a line is replaced that has more characters then.
    std::vector<const char*> linesLongerThan(std::size_t length) const;

    /// Writes everything, in pieces of some size.
    void write(const std::function<void(std::string_view)>& write) const;

private:
    struct Replacement
    {
        std::size_t size = 0;  // of what is replaced
        std::string text;
    };

    std::string_view content_;
    std::map<const char*, Replacement> replacements_;
};

}  // namespace femap::neutral
