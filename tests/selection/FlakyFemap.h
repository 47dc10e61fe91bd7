#pragma once

#include "fake/FormFixture.h"
#include "fake/ForwardingObjects.h"
#include "femap/ForwardingApplication.h"
#include "system/RuntimeError.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace selection
{

/// Told of a call ("Get 12", "Type 12", "lock" …) before it is made; raises to let it fail.
using BeforeCall = std::function<void(const std::string& call)>;

/// For BeforeCall: the call of that name fails.
inline BeforeCall failsAt(std::string failing)
{
    return [failing = std::move(failing)](const std::string& call) {
        if (call == failing)
            throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, failing + " failed");
    };
}

/// The same, but FEMAP is gone then.
inline BeforeCall goneAt(std::string last)
{
    return [last = std::move(last)](const std::string& call) {
        if (call == last)
            throw femap::ConnectionLost("gone");
    };
}

/// As failsAt, but only the first time.
inline BeforeCall failsAtFirst(std::string failing)
{
    return [failing = std::move(failing), isDone = false](const std::string& call) mutable {
        if (call == failing && !std::exchange(isDone, true))
            failsAt(failing)(call);
    };
}

class FlakyEntity : public fake::ForwardingEntity
{
public:
    FlakyEntity(std::unique_ptr<femap::Entity> real, const BeforeCall& before)
        : ForwardingEntity(std::move(real)), before_(before)
    {}

    femap::ReturnCode Get(int id) override
    {
        before_("Get " + std::to_string(id));
        id_ = id;
        return ForwardingEntity::Get(id);
    }
    int Type() override
    {
        before_("Type " + std::to_string(id_));
        return ForwardingEntity::Type();
    }
    femap::Value member(const std::string& name) override
    {
        before_(name + " " + std::to_string(id_));
        return ForwardingEntity::member(name);
    }
    using ForwardingEntity::member;  // with an index

private:
    const BeforeCall& before_;
    int id_ = 0;
};

class FreshVectorRefuses : public fake::ForwardingVector
{
public:
    using ForwardingVector::ForwardingVector;

    femap::ReturnCode Get(int vectorID) override
    {
        loaded_ = true;
        return ForwardingVector::Get(vectorID);
    }
    std::string Title() override
    {
        if (!loaded_)
            throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "nothing loaded");
        return ForwardingVector::Title();
    }

private:
    bool loaded_ = false;
};

/// A FEMAP some of whose calls fail.
class FlakyFemap : public femap::ForwardingApplication
{
public:
    FlakyFemap(std::unique_ptr<femap::Application> real, BeforeCall before)
        : ForwardingApplication(std::move(real)), before_(std::move(before))
    {}

    bool freshVectorRefuses = false;

    void feAppLock() override
    {
        before_("lock");
        ForwardingApplication::feAppLock();
    }
    void feAppUnlock() override
    {
        before_("unlock");
        ForwardingApplication::feAppUnlock();
    }
    std::unique_ptr<femap::Entity> entity(const std::string& word) override
    {
        before_("entity " + word);
        return std::make_unique<FlakyEntity>(ForwardingApplication::entity(word), before_);
    }
    std::unique_ptr<femap::OutputVector> feOutput() override
    {
        before_("feOutput");
        auto real = ForwardingApplication::feOutput();
        if (!freshVectorRefuses)
            return real;
        return std::make_unique<FreshVectorRefuses>(std::move(real));
    }

private:
    BeforeCall before_;
};

/// Puts one in the place of the form's FEMAP.
inline FlakyFemap& makeFlaky(fake::FormFixture& f, BeforeCall before)
{
    auto flaky = std::make_unique<FlakyFemap>(f.femap.attach(), std::move(before));
    FlakyFemap& result = *flaky;
    f.context.application = std::move(flaky);
    return result;
}

}  // namespace selection
