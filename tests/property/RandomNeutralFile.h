#pragma once

#include "property/Generators.h"

#include <string>

namespace property
{

/// A finite number: of a few digits, or any.
double randomReal(Random& random);

/// The text of a neutral file with a few entities of each kind that can be changed, as several
/// programs write it: in some version, with numbers in all their forms, blanks and both kinds of
/// line ends.
std::string randomNeutralFile(Random& random);

}  // namespace property
