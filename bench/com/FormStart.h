#pragma once

#include <string>

namespace bench
{

/// The seconds from the start of the form's program beside a FEMAP that runs until an engineer can
/// use the form: the least of some starts. arguments: as an engineer gives them.
double formStartSeconds(const std::string& arguments);

/// The same of a program that prints its version and ends, until it has ended.
double programStartSeconds();

}  // namespace bench
