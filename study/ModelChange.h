// Opens, closes and changes models for a script, as an engineer does in FEMAP.
#pragma once

#include "femap/embedded/Host.h"
#include "study/StudyScript.h"

#include <string>
#include <utility>
#include <vector>

namespace study
{

/// Models that are open, with their files.
using OpenModels = std::vector<std::pair<femap::neutral::Model, std::string>>;

/// Makes the model of an open line's file the current one. The one that was goes behind it, unless
/// it is of the same file. Raises ScriptError when the file cannot be opened.
void openModel(femap::embedded::Host& host, OpenModels& behind, const ScriptLine& line);

/// Closes the current model; the last one behind it, if any, becomes the current one.
void closeModel(femap::embedded::Host& host, OpenModels& behind, const ScriptLine& line);

/// Changes a value in the model as a put line says: "Node|Elem|Prop|Matl ID MEMBER [INDEX] VALUE"
/// or "Output VECTOR ENTITY VALUE". Raises ScriptError when that cannot be done.
void changeModel(femap::embedded::Host& host, const ScriptLine& line);

/// Makes a set the active one: "LoadSet|OutputSet ID". Raises ScriptError when that cannot be done.
void activateSet(femap::embedded::Host& host, const ScriptLine& line);

}  // namespace study
