// Reads a FEMAP neutral file (versions 4.4 to 11) into a model.
#pragma once

#include "femap/neutral/Model.h"
#include "system/CodePage.h"

#include <string>
#include <string_view>
#include <vector>

namespace femap::neutral
{

/// Adds everything that the file holds. An entity that the model has already is replaced; an output
/// set keeps its other vectors. Loads without a load definition get one for each kind of load, with
/// the title of the load set. Raises RuntimeError "FILE:LINE: what is wrong" and leaves the model
/// as it was when a block or record does not fit, the file has another version or it has no header
/// (block 100). fileName is only for messages.
/// Returns what the engineer is to know about a file that was read: that it may be cut.
std::vector<std::string> readNeutralFile(std::string_view content, const std::string& fileName,
                                         const sys::CodePage& codePage, Model& model);

}  // namespace femap::neutral
