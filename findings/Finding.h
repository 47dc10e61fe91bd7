// A finding: what of a study would fail or mislead in the loop of optimiser, model and solver.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace findings
{

enum class Severity
{
    Error,    // the loop fails or runs on wrong numbers
    Warning,  // probably not meant
    Hint,
};

enum class Grid
{
    Inputs,
    Outputs,
};

/// A parameter row.
struct Place
{
    Grid grid;
    int row;  // counted from 1, as in the grid

    bool operator==(const Place&) const = default;
};

struct Finding
{
    std::string_view code{};  // of the rule, the same in every version
    Severity severity = Severity::Hint;
    std::vector<Place> places{};  // that it belongs to, in the order of the grids; may be none
    std::string name{};           // of the row or the file; empty when several are gathered
    std::string sentence{};
    std::string_view cure{};
};

/// How many there are of each severity.
struct Count
{
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t hints = 0;
};

Count counted(std::span<const Finding> found);
/// "2 errors, 3 warnings"; "no findings".
std::string summary(const Count& count);

std::string_view wordOf(Severity severity);
std::string_view wordOf(Grid grid);

}  // namespace findings
