#pragma once

#include "app/form/Context.h"

#include <cstdint>

namespace selection
{

/// Sets the four prefixes of the form, which name the components that loads of this type have; an
/// empty prefix means that there is no such component.
void initialisePrefix(form::Context& context, std::int32_t loadType);

/// Lets the engineer pick load definitions of the active load set and makes each component of
/// each of their loads an input parameter. FEMAP is locked meanwhile and released whichever way
/// this ends; an error that ends it goes up after the release.
void UpdateLoadDefinitionInputs(form::Context& context);

}  // namespace selection
