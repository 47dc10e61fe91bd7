// Whether the files that a model's name goes into can hold that name.
#pragma once

#include "system/CodePage.h"

#include <string>

namespace generate
{

/// Raises RuntimeError (InvalidCall) when the code page lacks a character of the model's file name.
/// Then the batch file and the project would name other files, and delete those. The folder, which
/// stands in none of the files, may have any name.
void demandNameInCodePage(const sys::CodePage& codePage, const std::string& modelFile);

}  // namespace generate
