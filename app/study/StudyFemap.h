#pragma once

#include "femap/Application.h"

#include <memory>
#include <ostream>

namespace study
{

/// A way to FEMAP that writes what appears in FEMAP's message window to a stream as well. There is
/// no window, so nothing is registered as a pane of FEMAP.
class StudyConnector : public femap::Connector
{
public:
    /// Both must outlive the connector and what it hands out.
    StudyConnector(femap::Connector& real, std::ostream& messages)
        : real_(real), messages_(messages)
    {}

    std::unique_ptr<femap::Application> attach() override;
    std::unique_ptr<femap::Application> create() override;

private:
    femap::Connector& real_;
    std::ostream& messages_;
};

}  // namespace study
