#include "loop/Problems.h"

#include <algorithm>
#include <tuple>

namespace loop
{

void Problems::add(std::string_view file, std::size_t line, std::string_view what)
{
    std::string text(file);
    if (line != 0)
        text.append(":").append(std::to_string(line));
    text.append(text.empty() ? "" : ": ").append(what);
    lines_.push_back({std::string(file), line, std::move(text)});
}

std::string Problems::text() const
{
    std::vector<Problem> sorted = lines_;
    std::ranges::stable_sort(
        sorted, {}, [](const Problem& problem) { return std::tie(problem.file, problem.line); });
    std::string result;
    for (const Problem& problem : sorted)
        result.append(problem.text).append("\n");
    return result;
}

}  // namespace loop
