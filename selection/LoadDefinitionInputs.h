// Loads as inputs: lets the engineer select load definitions of the active load set in FEMAP and
// makes each component of each of their loads an input parameter.
#pragma once

#include "femap/Objects.h"
#include "form/Context.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace selection
{

/// Sets the four prefixes of the form, which name the components that loads of this type have; an
/// empty prefix means that there is no such component.
void initialisePrefix(form::Context& context, std::int32_t loadType);

/// A value that each load of a definition has, and its word in the names of rows.
struct LoadComponent
{
    std::string_view word;
    femap::MemberName member;
};

/// The values of the loads of such a definition that are offered as inputs, in order; none for
/// loads that no row can be of.
std::vector<LoadComponent> loadComponents(int dataType, int loadType);

/// The name of the row of such a value.
std::string loadVariableName(std::string_view title, int definition, std::string_view component);

/// FEMAP is locked meanwhile. An error that ends this is raised after FEMAP has been released.
void UpdateLoadDefinitionInputs(form::Context& context);

}  // namespace selection
