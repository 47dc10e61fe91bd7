// The rows of CAEOutput.txt: what their locators point at proves their names, and gives their
// values.
#pragma once

#include "form/Context.h"
#include "loop/Description.h"
#include "loop/Problems.h"

namespace loop
{

/// Makes them the rows of the form's list of outputs, without values.
void takeOutputs(form::Context& context, const Description& outputs);

/// Whether there are rows whose values are results, and rows that show quantities of the mass.
bool wantsResults(const Description& outputs);
bool wantsMass(const Description& outputs);

/// Read those rows and put their values into the list. A row whose name is not that of what it
/// points at, and one that has no number, becomes a problem.
void readResultRows(form::Context& context, const Description& outputs, Problems& problems);
void readMassRows(form::Context& context, const Description& outputs, Problems& problems);

}  // namespace loop
