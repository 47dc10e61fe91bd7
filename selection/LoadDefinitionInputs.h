// Loads as inputs: lets the engineer select load definitions of the active load set in FEMAP and
// makes each component of each of their loads an input parameter.
#pragma once

#include "form/Context.h"

#include <cstdint>

namespace selection
{

/// Sets the four prefixes of the form, which name the components that loads of this type have; an
/// empty prefix means that there is no such component.
void initialisePrefix(form::Context& context, std::int32_t loadType);

/// FEMAP is locked meanwhile. An error that ends this is raised after FEMAP has been released.
void UpdateLoadDefinitionInputs(form::Context& context);

}  // namespace selection
