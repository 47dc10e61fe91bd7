// Connects to FEMAP for a program without a window: what appears in FEMAP's message window is
// written to a stream as well, and nothing is registered as a pane of FEMAP.
#pragma once

#include "femap/Application.h"

#include <memory>
#include <ostream>
#include <string>

namespace study
{

/// Writes what appears in FEMAP's message window.
void writeMessage(std::ostream& messages, const std::string& text);

class StudyConnector : public femap::Connector
{
public:
    /// Both must outlive the connector and what it hands out.
    StudyConnector(femap::Connector& real, std::ostream& messages)
        : real_(real), messages_(messages)
    {}

    std::unique_ptr<femap::Application> attach() override;
    std::unique_ptr<femap::Application> create() override;
    femap::RunningFemaps running() override { return real_.running(); }
    void waitBriefly(bool briefly) override { real_.waitBriefly(briefly); }
    bool isAnswering() override { return real_.isAnswering(); }

private:
    femap::Connector& real_;
    std::ostream& messages_;
};

}  // namespace study
