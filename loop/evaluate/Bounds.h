// The bounds of a study's inputs: those that "Apply" wrote, as a table beside the model that an
// engineer may edit.
#pragma once

#include "loop/Problems.h"
#include "loop/evaluate/Study.h"
#include "system/System.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace loop::evaluate
{

/// The bounds in the table, for whoever gives a point.
class Bounds
{
public:
    /// As texts of numbers; an empty one is none.
    struct Range
    {
        std::string lower;
        std::string upper;
        std::size_t line = 0;

        bool operator==(const Range&) const = default;
    };

    Bounds() = default;
    Bounds(std::string file, std::map<std::string, Range> ranges);

    /// Null for a name that has none.
    const Range* find(const std::string& name) const;
    /// A number beyond the bounds of that name is a problem of that line of a file.
    void demand(const std::string& name, double number, std::string_view file, std::size_t line,
                Problems& problems) const;

private:
    std::string file_;
    std::map<std::string, Range> ranges_;
};

/// The name of the table.
std::string boundsFile(const Study& study);

/// The table beside the model; no bounds where there is none. What is wrong becomes problems.
Bounds readBounds(sys::System& system, const Study& study, Problems& problems);

/// The table for the study as it is: name, kind, value, lower and upper of each input. The bounds
/// are those of the table that is there, and for other names those that "Apply" writes for them.
std::string boundsTable(const sys::System& system, const Study& study, const Bounds& before);

}  // namespace loop::evaluate
