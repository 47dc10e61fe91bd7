#pragma once

#include "femap/com/ComApplication.h"
#include "femap/com/Dispatch.h"
#include "femap/com/RetryPolicy.h"

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace comtest
{

/// "Z:\…\examples\panel.neu": a model with everything that FEMAP hands out.
std::string panelModel();
/// A new file name in the system's folder for such.
std::string temporaryFile(const std::string& name);
/// The lines of a file that the stand-in writes.
std::vector<std::string> linesOf(const std::string& path);
/// Whether the condition came true within five seconds.
bool comesTrue(const std::function<bool()>& condition);

/// Whatever happens to this program, the process ends with it. One that stayed would hold what this
/// one prints to, and whoever waits for the end of that would wait for ever.
void endWithThisProgram(HANDLE process);
/// Runs a program to its end. Returns its exit code; STILL_ACTIVE when it does not end.
DWORD runProgram(const std::string& program, const std::string& arguments);
/// The same with the stand-in program.
DWORD runStandin(const std::string& arguments);
/// The running femap.model; none when there is none.
std::optional<femap::com::Dispatch> runningFemap();

/// The stand-in program, from its "ready" until this goes.
class StartedStandin
{
public:
    explicit StartedStandin(const std::string& arguments);
    ~StartedStandin();
    StartedStandin(const StartedStandin&) = delete;
    StartedStandin& operator=(const StartedStandin&) = delete;

    /// Its application, for the stand-in's own members.
    femap::com::Dispatch& control() { return *control_; }
    DWORD processID() const { return GetProcessId(process_.handle); }
    void kill();
    /// Keeps it from doing anything, as a debugger does, and lets it go on.
    void stop();
    void goOn();
    /// The program has ended by itself within five seconds.
    bool ends() const { return WaitForSingleObject(process_.handle, 5000) == WAIT_OBJECT_0; }

private:
    // Ended with this by force, if it still runs.
    struct Process
    {
        ~Process();
        HANDLE handle = nullptr;
    };

    void quit();

    Process process_;
    std::optional<femap::com::Dispatch> control_;
};

}  // namespace comtest
