#pragma once

#include "fake/TemporaryFolder.h"
#include "femap/Application.h"

#include <string>
#include <vector>

namespace comtest
{

/// One value of every sort of member that entities have, all of them different from the panel's.
std::vector<femap::EntityValue> newValues();
/// New numbers of the first two loads of every definition of a load set, whatever their kind.
std::vector<femap::LoadValue> newLoads(femap::Application& femap, int loadSet);
/// Every function's points, moved.
std::vector<femap::FunctionValue> newPoints(femap::Application& femap);

/// The same places, with the values that FEMAP has there now.
femap::ModelValues presentValues(femap::Application& femap, const femap::ModelValues& places);
/// A line for each place and what stands there.
std::vector<std::string> linesOf(const femap::ModelValues& values);

/// A folder with what a solver leaves: "run.op2", and the file that the model host reads for it,
/// with the panel's results.
class SolverFolder
{
public:
    SolverFolder();
    std::string path(const std::string& name) const { return folder_.path(name); }

private:
    fake::TemporaryFolder folder_;
};

/// Changes the panel in every way there is, and writes down what FEMAP has then, or how the refusal
/// begins, line by line. Two FEMAPs give the same text.
std::string ofChanges(femap::Application& femap, const SolverFolder& folder);

}  // namespace comtest
