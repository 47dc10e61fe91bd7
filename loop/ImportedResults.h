// Results of a run in the model, for as long as they are read: imported as further output sets,
// those deleted again, and the output set that was active made active again.
#pragma once

#include "form/Context.h"
#include "loop/Problems.h"

#include <functional>
#include <string>

namespace loop
{

struct ResultsFile
{
    femap::SolverBrand brand = {};
    std::string path;
    std::string name;  // as problems call it
};

/// Imports the results, makes that of their output sets the active one which stands for the one
/// that the study reads, and lets them be read. The study reads the active output set, or the
/// lowest where none is active; its place among the sets of the model is the place among the new
/// ones. Whatever fails becomes a problem; the new sets are deleted then as well, and when that
/// fails it is said. FEMAP's end and a wait that is ended are passed on.
void withImportedResults(form::Context& context, const ResultsFile& results, Problems& problems,
                         const std::function<void()>& read);

}  // namespace loop
