// The model host as the loop changes it.
#pragma once

#include "femap/ModelChanges.h"

#include <memory>

namespace femap::embedded
{

class Host;

/// The host must outlive it.
std::unique_ptr<ModelChanges> makeChanges(Host& host);

}  // namespace femap::embedded
