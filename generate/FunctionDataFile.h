// Writes the points of every function among the inputs into FunctionsInputvalues.txt beside the
// open model. A function that FEMAP does not have is left out, and the engineer is told.
#pragma once

#include "femap/Objects.h"
#include "form/Progress.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace generate
{

/// What the file holds of one function.
struct ReadFunction
{
    std::size_t line = 0;  // where it begins, counted from 1
    int id = 0;
    std::string title;
    femap::FunctionPoints points;
};

using LineProblem = std::function<void(std::size_t line, const std::string& what)>;

/// Reads the file back, from lines without their ends. What is not as it should be is told, and its
/// block left out.
std::vector<ReadFunction> readFunctionBlocks(std::span<const std::string> lines,
                                             const LineProblem& tell);

void WriteFunctionInputs(form::Context& context, form::Progress& progress);

}  // namespace generate
