// The inputs of a study in the model: what their locators point at proves their names, and tells
// which values are to be put and which were there before.
#pragma once

#include "form/Context.h"
#include "loop/Values.h"

#include <vector>

namespace loop
{

struct Inputs
{
    femap::ModelValues wanted;
    femap::ModelValues former;  // of the same places, in the same order
};

/// Rows that do not fit the model, and values that do not fit their places, become problems and are
/// left out.
Inputs inputsInModel(form::Context& context, const Description& described,
                     const std::vector<GivenValue>& values, const GivenFunctions& functions,
                     Problems& problems);

}  // namespace loop
