// What differs in the generated files from solver to solver.
#pragma once

#include "femap/ModelChanges.h"

#include <span>
#include <string>
#include <string_view>

namespace generate
{

struct SolverFormat
{
    std::string_view solver;    // as the Solver box shows it
    std::string_view codeName;  // as the exchange files call it
    std::string_view commandStart;
    std::string_view deck;     // extension of the input deck
    std::string_view results;  // extension of the results file
    std::string_view commandEnd;
    std::string_view engineFolder;  // holds settings to copy before each run; empty: none to copy
    femap::SolverBrand brand;
};

/// Null when the text names no supported solver. Upper and lower case differ.
const SolverFormat* findSolverFormat(std::string_view solver);

/// The same by what the exchange files call it.
const SolverFormat* findSolverCode(std::string_view codeName);

/// All that are supported.
std::span<const SolverFormat> solverFormats();

/// The name of the input deck.
std::string deckName(const SolverFormat& format, std::string_view modelName);

std::string commandLine(const SolverFormat& format, std::string_view modelName);

}  // namespace generate
