// What is wrong with a study in the loop: all of it is gathered before anything is done, and told
// at once.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace loop
{

class Problems
{
public:
    /// file: its name in the folder; line: counted from 1, 0 where it is about the whole file. what
    /// names the cure as well.
    void add(std::string_view file, std::size_t line, std::string_view what);

    bool empty() const { return lines_.empty(); }
    /// A line each, "FILE:LINE: what", in the order of files and lines.
    std::string text() const;

private:
    struct Problem
    {
        std::string file;
        std::size_t line;
        std::string text;
    };
    std::vector<Problem> lines_;
};

}  // namespace loop
