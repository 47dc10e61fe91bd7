#pragma once

#include "femap/embedded/Model.h"
#include "logging/CodePage.h"

#include <string>
#include <string_view>

namespace femap::embedded
{

/// Adds to the model everything a neutral file holds (versions 4.4 to 11). An entity that the model
/// has already is replaced; an output set keeps its other vectors. Loads without a load definition
/// get one for each kind of load, with the title of the load set.
/// Raises RuntimeError "FILE:LINE: what is wrong" and leaves the model as it was when a block or
/// record does not fit, the file has another version or it has no header (block 100).
/// fileName is only for messages.
void readNeutralFile(std::string_view content, const std::string& fileName,
                     const logging::CodePage& codePage, Model& model);

}  // namespace femap::embedded
