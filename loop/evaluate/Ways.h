// The ways in which velmar-evaluate runs points: each is one kind of call.
#pragma once

#include "loop/evaluate/Call.h"
#include "loop/evaluate/EvaluateProgram.h"
#include "loop/evaluate/Run.h"
#include "loop/evaluate/Study.h"

#include <string_view>

namespace loop::evaluate
{

/// What a way works with; the study's folder is this process's own meanwhile.
struct Work
{
    const Call& call;
    const Environment& environment;
    const Setting& setting;
    const Study& study;
};

/// All return the exit code. They raise RuntimeError where they cannot go on.
/// The point of InputValues.txt.
int runPoint(const Work& work);
/// The points of a table.
int runPoints(const Work& work);
/// The point that Dakota gives.
int runForDakota(const Work& work);
/// The values as they are, and a report of the results beside those that are stored.
int prove(const Work& work);
/// Writes the table of bounds.
int writeTable(const Work& work);

/// What a line on standard error begins with, but where it begins with a file.
constexpr std::string_view ownName = "velmar-evaluate: ";

/// Runs values in the study's own folder, or those that InputValues.txt has there; tells what
/// fails.
Result runInFolder(const Work& work, const std::optional<Values>& values);
/// Tells problems, and that nothing was run.
int tellProblems(const Problems& problems, const Environment& environment);

}  // namespace loop::evaluate
