#pragma once

#include "logging/RuntimeError.h"

#include <string>
#include <vector>

namespace femap::bulk
{

using logging::ErrorNumber;
using logging::RuntimeError;

/// The calls that came to FEMAP or to a fetcher, in their order.
using Calls = std::vector<std::string>;

[[noreturn]] inline void refuse(const std::string& what)
{
    throw RuntimeError(ErrorNumber::ObjectFailed, what + " was refused");
}

}  // namespace femap::bulk
