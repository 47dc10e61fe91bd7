#include "loop/Output.h"

#include "loop/ImportedResults.h"
#include "loop/OutputFiles.h"
#include "loop/OutputRows.h"
#include "system/PendingError.h"

namespace loop
{

namespace
{

// Lets a step be done; an error of its own is a problem of the file.
template <class Step>
void attempt(Problems& problems, const std::string& file, const Step& step)
{
    sys::PendingError refused;
    if (!refused.attempt(step))
        problems.add(file, 0, refused.description());
}

}  // namespace

void takeOutputValues(form::Context& context, const Description& outputs,
                      const std::string& results, Problems& problems)
{
    takeOutputs(context, outputs);
    if (wantsResults(outputs))
        withImportedResults(context, {outputs.solver->brand, results, outputs.solverFile}, problems,
                            [&] { readResultRows(context, outputs, problems); });
    if (wantsMass(outputs))
        attempt(problems, outputs.file, [&] { readMassRows(context, outputs, problems); });
    if (problems.empty())
        attempt(problems, outputs.valuesFile,
                [&] { writeOutputValues(context, outputs.pathOf(outputs.valuesFile)); });
}

}  // namespace loop
