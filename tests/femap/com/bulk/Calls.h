#pragma once

#include "system/RuntimeError.h"

#include <string>
#include <vector>

namespace femap::com::bulk
{

using sys::ErrorNumber;
using sys::RuntimeError;

/// The calls that came to FEMAP or to a fetcher, in their order.
using Calls = std::vector<std::string>;

[[noreturn]] inline void refuse(const std::string& what)
{
    throw RuntimeError(ErrorNumber::ObjectFailed, what + " was refused");
}

}  // namespace femap::com::bulk
