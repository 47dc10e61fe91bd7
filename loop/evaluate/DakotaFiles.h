// The two files by which Dakota talks with what it runs: the parameters that it gives for one
// point, in either of its layouts, and the results that it gets.
#pragma once

#include "loop/Problems.h"
#include "loop/evaluate/Points.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace loop::evaluate
{

struct DakotaParameters
{
    std::vector<NamedValue> variables;
    std::vector<NamedValue> functions;  // what is wanted, each with its entry of the active set

    bool operator==(const DakotaParameters&) const = default;
};

/// Either layout: "VALUE NAME" or "{ NAME = VALUE }". A file that is none of them, and an entry of
/// the active set that asks for more or less than the value, are problems.
DakotaParameters readDakotaParameters(std::string_view text, std::string_view file,
                                      Problems& problems);

/// "VALUE NAME" for each, in that order.
std::string dakotaResults(std::span<const NamedValue> functions, std::span<const double> numbers);

/// What stands in place of results when there are none.
constexpr std::string_view dakotaFailure = "fail\n";

}  // namespace loop::evaluate
