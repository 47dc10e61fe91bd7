// Makes Windows load every library from its own folder from now on, never from that of the model.
// Raises std::runtime_error when Windows refuses.
#pragma once

namespace windows
{

void takeLibrariesFromSystemOnly();

}  // namespace windows
