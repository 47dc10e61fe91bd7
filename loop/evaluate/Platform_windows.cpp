// Platform.h on Windows.
#include "generate/Targets.h"
#include "loop/evaluate/Platform.h"
#include "system/ProgramStart.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <windows.h>

#include <atomic>

namespace loop::evaluate
{

namespace
{

std::atomic<bool> wasAskedToStop = false;

// On a thread of its own. Windows ends the process when it returns, but for Ctrl+C and Ctrl+Break.
BOOL WINAPI askToStop(DWORD event)
{
    wasAskedToStop = true;
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT)
        Sleep(INFINITE);  // until the program has put everything back, or Windows has waited enough
    return TRUE;
}

}  // namespace

void prepareProcess()
{
    sys::prepareProgram();
    SetConsoleOutputCP(CP_UTF8);
    SetConsoleCtrlHandler(askToStop, TRUE);
}

bool isToStop()
{
    return wasAskedToStop;
}

bool hasFemap()
{
    return true;
}

std::string ownFolder()
{
    constexpr std::size_t longestPath = 32768;
    std::wstring path(longestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return windows::fromWide(path.substr(0, path.rfind(L'\\') + 1));
}

std::string programFile(const std::string& name)
{
    return name + ".exe";
}

std::string batchLine(sys::System& system, const std::string& folder)
{
    std::string file(generate::batchFile);
    if (!system.files.fileExists(folder + file))
        throw sys::RuntimeError(sys::ErrorNumber::FileNotFound, "File not found: " + folder + file);
    return file;
}

bool isOnShare(const std::string& folder)
{
    return folder.starts_with("\\\\") || folder.starts_with("//");
}

}  // namespace loop::evaluate
