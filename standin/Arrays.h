// Arrays as a FEMAP of another mind returns them.
#pragma once

#include "standin/Modes.h"

#include <windows.h>

#include <oleauto.h>

namespace standin
{

/// Does to a returned array what the modes say; leaves everything else alone. isOfMany: it has an
/// element for each of many entities, or several.
void reshape(VARIANT& returned, const Modes& modes, bool isOfMany);

}  // namespace standin
