// A study as "Apply" left it in its folder: the names of its inputs and outputs, and the values
// that its inputs have now.
#pragma once

#include "loop/Description.h"
#include "loop/Problems.h"
#include "system/System.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace loop::evaluate
{

/// An input that takes numbers: every one but functions.
struct Variable
{
    std::string name;
    std::string nominal;   // as InputValues.txt has it
    std::size_t row = 0;   // of the description
    std::size_t line = 0;  // of InputValues.txt, counted from 1
};

struct Study
{
    std::string folder;  // as the beginning of paths; full
    Description inputs;
    Description outputs;
    std::vector<std::string> valueLines;  // of InputValues.txt
    std::vector<Variable> variables;

    std::string name() const { return inputs.name(); }
    std::vector<std::string> outputNames() const;
    std::string pathOf(std::string_view file) const { return folder + std::string(file); }
};

/// What is wrong becomes problems; then the result is of no use.
Study readStudy(sys::System& system, const std::string& folder, Problems& problems);

/// A value for each variable of a study, as text.
using Values = std::vector<std::string>;

Values nominalValues(const Study& study);

/// The bytes of InputValues.txt with these values.
std::string valuesBytes(const sys::System& system, const Study& study,
                        std::span<const std::string> values);

/// Writes a file whole or not at all. Raises RuntimeError.
void writeWhole(sys::System& system, const std::string& path, std::string_view bytes);

/// The numbers of OutputValues.txt in a folder, one for each output. What is wrong becomes
/// problems.
std::vector<double> readOutputs(sys::System& system, const Study& study, const std::string& folder,
                                Problems& problems);

}  // namespace loop::evaluate
