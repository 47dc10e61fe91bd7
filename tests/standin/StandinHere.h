#pragma once

#include "femap/com/Apartment.h"
#include "femap/com/Dispatch.h"
#include "femap/com/RetryPolicy.h"
#include "standin/ControlledApplication.h"
#include "standin/Server.h"

#include <initializer_list>
#include <memory>

namespace comtest
{

inline standin::Modes withModes(std::initializer_list<standin::Mode> modes)
{
    standin::Modes result;
    for (const standin::Mode mode : modes)
        result.turnOn(mode);
    return result;
}

/// A stand-in in this process, with the panel open.
class StandinHere
{
public:
    explicit StandinHere(std::initializer_list<standin::Mode> modes = {}, bool isClassic = false)
        : server(isClassic, withModes(modes))
    {
        server.host.openNeutralFile(SOURCE_FOLDER "/examples/panel.neu");
        application_.AddRef();  // which femap gives back
    }

    femap::com::Dispatch object(const std::string& name) { return femap.object(name); }
    IDispatch* newReference()
    {
        application_.AddRef();
        return &application_;
    }
    /// An object that has loaded an entity.
    femap::com::Dispatch loaded(const std::string& name, int id)
    {
        femap::com::Dispatch result = femap.object(name);
        result.call("Get", id);
        return result;
    }

    standin::Server server;

private:
    femap::com::Apartment apartment_;
    standin::ControlledApplication application_{server};

public:
    femap::com::Dispatch femap{
        &application_, "application",
        std::make_shared<femap::com::Connection>(std::make_shared<femap::com::RetryPolicy>())};
};

}  // namespace comtest
