#include "windows/Libraries.h"

#include <windows.h>

#include <stdexcept>

namespace windows
{

void takeLibrariesFromSystemOnly()
{
    if (SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32) == FALSE)
        throw std::runtime_error("Windows does not let the program choose where its libraries are");
}

}  // namespace windows
