// The values that an optimiser gives: InputValues.txt, matched with the rows of CAEInput.txt, and
// the points in FunctionsInputvalues.txt.
#pragma once

#include "generate/FunctionDataFile.h"
#include "loop/Description.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace loop
{

struct GivenValue
{
    std::size_t line = 0;          // of the file of values; 0: it has none for the row
    std::optional<double> number;  // none for a function
};

/// The values of the rows of a description, one for each, from the file that it names. The lines
/// must have the order and the names of the rows; only functions may be left out.
std::vector<GivenValue> readValues(sys::System& system, const Description& inputs,
                                   Problems& problems);

struct GivenFunctions
{
    std::vector<generate::ReadFunction> blocks;
    std::string remark;  // why a file that is not empty was left out; empty: it was not
};

/// The points of FunctionsInputvalues.txt, unless that is older than the description of the inputs
/// and so of another "Apply".
GivenFunctions readFunctions(sys::System& system, const Description& inputs, Problems& problems);

/// What follows the name in a line of names and values; none when the line is of another name.
std::optional<std::string_view> valueBehind(std::string_view name, std::string_view line);

}  // namespace loop
