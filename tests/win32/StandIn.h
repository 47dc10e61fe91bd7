#pragma once

#include "FormDriver.h"
#include "femap/com/Apartment.h"
#include "femap/com/Dispatch.h"

#include <memory>
#include <string>

namespace driver
{

/// A stand-in for FEMAP in a process of its own, with the model of a folder open.
class StandIn
{
public:
    explicit StandIn(const std::filesystem::path& model);
    ~StandIn();
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;

    /// What the next selection dialogs answer, such as "1-5 7", "all" or "cancel".
    void pick(const std::string& text) { femap_->call("standinPick", text); }
    void sendEvent(int code) { femap_->call("standinSendEvent", code); }
    void dieAt(int call) { femap_->call("standinDieAt", call); }
    /// Rejects this many calls; without a number, calls until it is ended.
    void beBusy(int calls = 1000000) { femap_->call("standinBusy", calls); }
    /// "none" or "untitled".
    void setModel(const std::string& state) { femap_->call("standinModel", state); }
    int lockCount() { return femap_->call("standinLockCount").number(); }
    int objectCount() { return femap_->call("standinObjectCount").number(); }
    std::string messages() { return femap_->call("standinMessages").text(); }
    std::string registrations() { return femap_->call("standinRegistrations").text(); }
    Process& process() { return process_; }

private:
    femap::com::Apartment apartment_;
    Process process_;
    std::unique_ptr<femap::com::Dispatch> femap_;
};

}  // namespace driver
