// The program that shows the form, whose end is the end of a stand-in that was started for it.
#pragma once

#include <windows.h>

namespace standin
{

/// Ends the loop of messages of this thread when the program that the window belongs to has ended,
/// however it did: COM learns of a program that broke down only after minutes.
void endWithProgramOf(HWND window);

}  // namespace standin
