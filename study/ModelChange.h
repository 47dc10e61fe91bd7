// Changes the open model for a script, as an engineer does in FEMAP.
#pragma once

#include "femap/embedded/Host.h"
#include "study/StudyScript.h"

namespace study
{

/// Changes a value in the model as a put line says: "Node|Elem|Prop|Matl ID MEMBER [INDEX] VALUE"
/// or "Output VECTOR ENTITY VALUE". Raises ScriptError when that cannot be done.
void changeModel(femap::embedded::Host& host, const ScriptLine& line);

/// Makes a set the active one: "LoadSet|OutputSet ID". Raises ScriptError when that cannot be done.
void activateSet(femap::embedded::Host& host, const ScriptLine& line);

}  // namespace study
