// FEMAP's return codes and kinds of entities as the numbers that COM passes.
#pragma once

#include "femap/Constants.h"
#include "femap/com/Variant.h"
#include "system/RuntimeError.h"

#include <string>

namespace femap::com
{

inline ReturnCode code(const Variant& returned)
{
    return static_cast<ReturnCode>(returned.number());
}

inline int number(EntityType type)
{
    return static_cast<int>(type);
}

/// Raises RuntimeError for any code but Ok.
inline void demandOk(ReturnCode returned, const std::string& what)
{
    if (returned != ReturnCode::Ok)
        throw sys::RuntimeError(
            sys::ErrorNumber::ObjectFailed,
            what + " (FEMAP's code " + std::to_string(static_cast<int>(returned)) + ")");
}

}  // namespace femap::com
