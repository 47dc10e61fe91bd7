// FEMAP over COM as the loop changes it.
#pragma once

#include "femap/ModelChanges.h"
#include "femap/com/ComObjects.h"

#include <memory>

namespace femap::com
{

/// The application must outlive it.
std::unique_ptr<ModelChanges> makeChanges(const ComContext& context);

}  // namespace femap::com
