// The task description of the tool "Velmar", and the files that are written along with it.
#pragma once

#include "form/Progress.h"
#include "generate/LinePieces.h"
#include "generate/SolverFormat.h"
#include "generate/TextFile.h"
#include "generate/TextTemplate.h"

#include <string>

namespace generate
{

/// Writes everything that the tool "Velmar" needs for the open model: the task description, the
/// exchange files without their templates, the batch file and the function data file.
void WriteDescFile(form::Context& context, form::Progress& progress);

// What the task description says of rows.
/// Whether it declares the input as a variable; the others only could be one …
bool isVaried(const ParameterRow& row);
/// … and the bounds of these.
FixedBounds boundsOfVariables();
/// Whether it constrains the output: one whose name begins so.
bool isConstrained(const ParameterRow& row);
constexpr std::string_view constrainedNameStart = "Elem";

/// The solver's settings, which its script copies to the file of that name before each run; empty
/// for a solver without.
std::string copiedSettings(const SolverFormat& solver);
constexpr std::string_view settingsFile = "nastran.ini";
/// The endings of what the script deletes besides the results: files of the model's name that a run
/// of the solver leaves.
constexpr std::string_view leftBySolver[] = {"Log", "rsf"};
/// The codes with which the solver may end.
constexpr int codesOfSolver[] = {0, 1};

// The parts of the task description.
void WriteDescFileHead(form::Context& context, TextFile& file);
/// Brings the file to its place as well.
void WriteDescFileTail(form::Context& context, form::Progress& progress, TextFile& file,
                       const std::string& name);
void WriteDescFileOptimize(form::Context& context, form::Progress& progress, TextFile& file);

}  // namespace generate
