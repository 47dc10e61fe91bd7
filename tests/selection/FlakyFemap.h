#pragma once

#include "fake/ForwardingFemap.h"
#include "logging/RuntimeError.h"

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
            throw logging::RuntimeError(logging::ErrorNumber::ObjectFailed, failing + " failed");
    };
}

class FlakyEntity : public femap::Entity
{
public:
    FlakyEntity(std::unique_ptr<femap::Entity> real, const BeforeCall& before)
        : real_(std::move(real)), before_(before)
    {}

    femap::ReturnCode Get(int id) override
    {
        before_("Get " + std::to_string(id));
        id_ = id;
        return real_->Get(id);
    }
    int Type() override
    {
        before_("Type " + std::to_string(id_));
        return real_->Type();
    }
    femap::Value member(const std::string& name) override
    {
        before_(name + " " + std::to_string(id_));
        return real_->member(name);
    }
    femap::Value member(const std::string& name, int index) override
    {
        return real_->member(name, index);
    }

private:
    std::unique_ptr<femap::Entity> real_;
    const BeforeCall& before_;
    int id_ = 0;
};

class FreshVectorRefuses : public femap::OutputVector
{
public:
    explicit FreshVectorRefuses(std::unique_ptr<femap::OutputVector> real) : real_(std::move(real))
    {}

    femap::ReturnCode Get(int vectorID) override
    {
        loaded_ = true;
        return real_->Get(vectorID);
    }
    int ID() override { return real_->ID(); }
    std::string Title() override
    {
        if (!loaded_)
            throw logging::RuntimeError(logging::ErrorNumber::ObjectFailed, "nothing loaded");
        return real_->Title();
    }
    int classicID() override { return real_->classicID(); }
    double Value(int entityID) override { return real_->Value(entityID); }
    double maxval() override { return real_->maxval(); }
    double minval() override { return real_->minval(); }
    femap::Value member(const std::string& name) override { return real_->member(name); }
    femap::Value member(const std::string& name, int index) override
    {
        return real_->member(name, index);
    }

private:
    std::unique_ptr<femap::OutputVector> real_;
    bool loaded_ = false;
};

/// A FEMAP some of whose calls fail.
class FlakyFemap : public fake::ForwardingFemap
{
public:
    FlakyFemap(std::unique_ptr<femap::Application> real, BeforeCall before)
        : ForwardingFemap(std::move(real)), before_(std::move(before))
    {}

    bool freshVectorRefuses = false;

    void feAppLock() override
    {
        before_("lock");
        ForwardingFemap::feAppLock();
    }
    void feAppUnlock() override
    {
        before_("unlock");
        ForwardingFemap::feAppUnlock();
    }
    std::unique_ptr<femap::Entity> entity(const std::string& word) override
    {
        before_("entity " + word);
        return std::make_unique<FlakyEntity>(ForwardingFemap::entity(word), before_);
    }
    std::unique_ptr<femap::OutputVector> feOutput() override
    {
        before_("feOutput");
        auto real = ForwardingFemap::feOutput();
        if (!freshVectorRefuses)
            return real;
        return std::make_unique<FreshVectorRefuses>(std::move(real));
    }

private:
    BeforeCall before_;
};

/// FEMAP as the property list dialog reaches it; the first attempts fail.
class FlakyConnector : public femap::Connector
{
public:
    FlakyConnector(femap::Connector& real, int failures) : real_(real), failures_(failures) {}

    std::unique_ptr<femap::Application> attach() override
    {
        if (failures_-- > 0)
            throw logging::RuntimeError(logging::ErrorNumber::ObjectFailed, "attach failed");
        return real_.attach();
    }
    std::unique_ptr<femap::Application> create() override { return real_.create(); }

private:
    femap::Connector& real_;
    int failures_;
};

}  // namespace selection
