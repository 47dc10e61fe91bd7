#pragma once

#include "femap/ForwardingApplication.h"
#include "femap/embedded/Host.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace fake
{

/// A way to FEMAP that can be told to find none. What it hands out keeps the names of the calls
/// made to it and can be told to let some fail.
class FakeConnector : public femap::Connector
{
public:
    explicit FakeConnector(femap::embedded::Host& host) : host_(host) {}

    bool attachRaises = false;
    bool attachFindsNothing = false;
    bool attachLoses = false;  // as long as the FEMAP that runs is just ending
    bool createRaises = false;
    bool createGivesNothing = false;
    int attached = 0;
    int created = 0;
    int handles = 0;  // that are held now

    std::vector<std::string> calls;
    /// Called before each call, with its name; raises to let it fail.
    std::function<void(const std::string& call)> beforeCall = [](const std::string&) {};
    /// Instead of opening a file: what FEMAP answers then.
    std::optional<femap::ReturnCode> openStatus;
    /// The file that was asked for, and whether with a dialog.
    std::string openedFile;
    bool openedWithDialog = false;
    int models = -1;  // how many FEMAP says are open; -1: as many as there are
    int paneResult = 17;

    /// From now on this call fails.
    void failAt(const std::string& failing)
    {
        beforeCall = [failing](const std::string& call) {
            if (call == failing)
                throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, failing + " failed");
        };
    }
    /// From this call on FEMAP is gone.
    void dieAt(const std::string& last)
    {
        beforeCall = [last, isDead = false](const std::string& call) mutable {
            isDead = isDead || call == last;
            if (isDead)
                throw femap::ConnectionLost("The RPC server is unavailable");
        };
    }
    /// The same for calls counted from here on, the first one 1: only this one fails …
    void failAtCall(std::size_t number)
    {
        calls.clear();
        beforeCall = [this, number](const std::string&) {
            if (calls.size() == number)
                throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "refused");
        };
    }
    /// … or FEMAP is gone from this one on.
    void dieAtCall(std::size_t number)
    {
        calls.clear();
        beforeCall = [this, number](const std::string&) {
            if (calls.size() >= number)
                throw femap::ConnectionLost("gone");
        };
    }
    std::ptrdiff_t count(const std::string& call) const { return std::ranges::count(calls, call); }

    std::unique_ptr<femap::Application> attach() override;
    std::unique_ptr<femap::Application> create() override;

private:
    class Handle;

    femap::embedded::Host& host_;
};

class FakeConnector::Handle : public femap::ForwardingApplication
{
public:
    Handle(std::unique_ptr<femap::Application> real, FakeConnector& connector)
        : ForwardingApplication(std::move(real)), connector_(connector)
    {
        ++connector_.handles;
    }
    ~Handle() override { --connector_.handles; }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    void feAppVisible(bool visible) override
    {
        note("feAppVisible");
        ForwardingApplication::feAppVisible(visible);
    }
    femap::ReturnCode feFileOpen(bool useDialog, const std::string& path) override
    {
        note("feFileOpen");
        connector_.openedFile = path;
        connector_.openedWithDialog = useDialog;
        if (connector_.openStatus)
            return *connector_.openStatus;
        return ForwardingApplication::feFileOpen(useDialog, path);
    }
    std::string ModelName() override
    {
        note("ModelName");
        return ForwardingApplication::ModelName();
    }
    int feAppGetAllModels() override
    {
        note("feAppGetAllModels");
        return connector_.models < 0 ? ForwardingApplication::feAppGetAllModels()
                                     : connector_.models;
    }
    void feAppLock() override
    {
        note("feAppLock");
        ForwardingApplication::feAppLock();
    }
    void feAppUnlock() override
    {
        note("feAppUnlock");
        ForwardingApplication::feAppUnlock();
    }
    void feAppMessage(femap::MessageColour colour, const std::string& text) override
    {
        note("feAppMessage");
        ForwardingApplication::feAppMessage(colour, text);
    }
    int feAppRegisterAddInPane(const femap::AddInPane& pane) override
    {
        note("feAppRegisterAddInPane");
        ForwardingApplication::feAppRegisterAddInPane(pane);
        return connector_.paneResult;
    }
    std::unique_ptr<femap::EntitySet> feSet() override
    {
        note("feSet");
        return ForwardingApplication::feSet();
    }
    std::unique_ptr<femap::OutputVector> feOutput() override
    {
        note("feOutput");
        return ForwardingApplication::feOutput();
    }
    std::unique_ptr<femap::Function> feFunction() override
    {
        note("feFunction");
        return ForwardingApplication::feFunction();
    }

private:
    void note(const std::string& call)
    {
        connector_.calls.push_back(call);
        connector_.beforeCall(call);
    }

    FakeConnector& connector_;
};

inline std::unique_ptr<femap::Application> FakeConnector::attach()
{
    ++attached;
    if (attachRaises)
        throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "FEMAP does not run");
    if (attachLoses)
        throw femap::ConnectionLost("The RPC server is unavailable");
    if (attachFindsNothing)
        return nullptr;
    return std::make_unique<Handle>(host_.attach(), *this);
}

inline std::unique_ptr<femap::Application> FakeConnector::create()
{
    ++created;
    if (createRaises)
        throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "FEMAP is not installed");
    if (createGivesNothing)
        return nullptr;
    // From now on it is there to be attached to.
    attachRaises = false;
    attachFindsNothing = false;
    attachLoses = false;
    return std::make_unique<Handle>(host_.attach(), *this);
}

}  // namespace fake
