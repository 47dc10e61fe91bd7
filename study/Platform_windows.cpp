// velmar-study on Windows; recordedForm is in RecordedForm_windows.cpp.

#include "femap/com/FemapConnector.h"
#include "study/Platform.h"
#include "windows/Libraries.h"

#include <windows.h>

#include <iostream>
#include <memory>
#include <string>

namespace study
{

void prepareProcess()
{
    windows::takeLibrariesFromSystemOnly();
}

std::function<std::unique_ptr<femap::Connector>(femap::SelectionDialogs&)> runningFemap()
{
    return [](femap::SelectionDialogs& dialogs) {
        auto femap = std::make_unique<femap::com::FemapConnector>(&dialogs);
        femap->reportTo([](const std::string& text) { std::cerr << text << std::endl; });
        return femap;
    };
}

bool errorsShowColours()
{
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(errors, &mode) != FALSE &&
           SetConsoleMode(errors, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
}

}  // namespace study
