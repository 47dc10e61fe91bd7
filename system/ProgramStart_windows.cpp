// ProgramStart.h on Windows.
#include "system/ProgramStart.h"
#include "system/TemporaryFiles.h"
#include "windows/Libraries.h"

namespace sys
{

void prepareProgram()
{
    windows::takeLibrariesFromSystemOnly();
    removeTemporariesWhenEnded();
}

}  // namespace sys
