#pragma once

#include "fake/WatchedFemap.h"
#include "femap/embedded/Host.h"
#include "system/RuntimeError.h"

#include <memory>

namespace fake
{

/// A way to FEMAP that can be told to find none. The watch is told of every call to what it hands
/// out.
class FakeConnector : public femap::Connector, public CallWatch
{
public:
    explicit FakeConnector(femap::embedded::Host& host) : host_(host) {}

    bool attachRaises = false;
    bool attachFindsNothing = false;
    bool attachLoses = false;  // as long as the FEMAP that runs is just ending
    bool attachIsAbandoned = false;
    bool createRaises = false;
    bool createGivesNothing = false;
    int attached = 0;
    int created = 0;
    femap::RunningFemaps femaps;
    bool waitsBriefly = false;
    bool isBusy = false;
    int askedWhetherItAnswers = 0;

    femap::RunningFemaps running() override { return femaps; }
    void waitBriefly(bool briefly) override { waitsBriefly = briefly; }
    bool isAnswering() override
    {
        ++askedWhetherItAnswers;
        return !isBusy;
    }

    std::unique_ptr<femap::Application> attach() override
    {
        ++attached;
        if (attachRaises)
            throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "FEMAP does not run");
        if (attachLoses)
            throw femap::ConnectionLost("The RPC server is unavailable");
        if (attachIsAbandoned)
            throw femap::WaitEnded("The wait is ended", false);
        if (attachFindsNothing)
            return nullptr;
        return std::make_unique<WatchedFemap>(host_.attach(), *this);
    }
    std::unique_ptr<femap::Application> create() override
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
        return std::make_unique<WatchedFemap>(host_.attach(), *this);
    }

private:
    femap::embedded::Host& host_;
};

}  // namespace fake
