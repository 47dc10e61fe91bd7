#pragma once

#include "fake/FormFixture.h"
#include "femap/embedded/Host.h"
#include "system/RuntimeError.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// A model host with scripted dialogs and a handle on it.
struct HostFixture
{
    fake::QueuedDialogs dialogs;
    femap::embedded::Host host{dialogs};
    std::unique_ptr<femap::Application> application = host.attach();

    femap::neutral::Model& model() { return host.openModel(); }

    std::unique_ptr<femap::EntitySet> setOf(femap::EntityType type)
    {
        auto set = application->feSet();
        set->AddAll(type);
        return set;
    }

    /// All IDs that a walk gives from where it is.
    static std::vector<int> walk(femap::EntitySet& set)
    {
        std::vector<int> ids;
        for (int id = set.Next(); id != 0; id = set.Next())
            ids.push_back(id);
        return ids;
    }
};

/// The error that the step raises; none: it does not raise.
template <class Step>
std::optional<sys::RuntimeError> errorOf(const Step& step)
{
    try {
        step();
        return std::nullopt;
    }
    catch (const sys::RuntimeError& error) {
        return error;
    }
}

/// What the error says; empty when the step does not raise.
template <class Step>
std::string complaintOf(const Step& step)
{
    const auto error = errorOf(step);
    return error ? error->description() : std::string();
}
