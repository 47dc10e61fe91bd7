#pragma once

#include "app/study/StudyScript.h"
#include "femap/embedded/Host.h"

namespace study
{

/// Changes a value in the model as a put line says: "Node|Elem|Prop|Matl ID MEMBER [INDEX] VALUE"
/// or "Output VECTOR ENTITY VALUE". Raises ScriptError when that cannot be done.
void changeModel(femap::embedded::Host& host, const ScriptLine& line);

/// Makes a load set or an output set the active one, as an engineer does in FEMAP:
/// "LoadSet|OutputSet ID". Raises ScriptError when that cannot be done.
void activateSet(femap::embedded::Host& host, const ScriptLine& line);

}  // namespace study
