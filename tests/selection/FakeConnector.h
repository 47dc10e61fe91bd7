#pragma once

#include "femap/Application.h"

#include <functional>
#include <memory>

namespace selection
{

/// FEMAP as the test wants it to be found.
class FakeConnector : public femap::Connector
{
public:
    std::function<std::unique_ptr<femap::Application>()> attached;

    std::unique_ptr<femap::Application> attach() override { return attached(); }
    std::unique_ptr<femap::Application> create() override { return attached(); }
};

}  // namespace selection
