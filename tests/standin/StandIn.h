#pragma once

#include "femap/com/Apartment.h"
#include "standin/StartedStandin.h"
#include "windows/Text.h"

#include <windows.h>

#include <filesystem>
#include <string>

namespace driver
{

/// A stand-in for FEMAP in a process of its own, with a model open.
class StandIn
{
public:
    explicit StandIn(const std::filesystem::path& model, const std::string& switches = "")
        : program_("--model \"" + windows::fromWide(model.wstring()) + "\" " + switches)
    {}

    /// What the next selection dialogs answer, such as "1-5 7", "all" or "cancel".
    void pick(const std::string& text) { control().call("standinPick", text); }
    void sendEvent(int code) { control().call("standinSendEvent", code); }
    /// Rejects this many calls; without a number, calls until it is ended.
    void beBusy(int calls = 1000000) { control().call("standinBusy", calls); }
    /// Rejects this many as a program does that answers nobody, name look-ups too.
    void reject(int calls) { control().call("standinReject", calls); }
    /// Answers the call after so many others only after this time, in seconds.
    void stallAt(int call, int seconds) { control().call("standinStallAt", call, seconds); }
    /// Takes the form that registered itself into a window of its own.
    void dock() { control().call("standinDock", 1); }
    /// Closes that window, and the form in it with it.
    void closeDock() { control().call("standinDock", 0); }
    /// How many questions for help, for a menu and turns of the wheel came to that window.
    int dockHeard() { return control().call("standinDockHeard").number(); }
    /// "none" or "untitled".
    void setModel(const std::string& state) { control().call("standinModel", state); }
    int lockCount() { return control().call("standinLockCount").number(); }
    int objectCount() { return control().call("standinObjectCount").number(); }
    /// How many calls came in so far, rejected ones too.
    int callCount() { return control().call("standinCallCount").number(); }
    std::string registrations() { return control().call("standinRegistrations").text(); }

    DWORD processID() const { return program_.processID(); }
    void kill() { program_.kill(); }
    /// Keeps it from doing anything until it goes on.
    void stop() { program_.stop(); }
    void goOn() { program_.goOn(); }

private:
    femap::com::Dispatch& control() { return program_.control(); }

    femap::com::Apartment apartment_;
    comtest::StartedStandin program_;
};

}  // namespace driver
