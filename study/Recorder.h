// Writes what an engineer does in the form as a study script, line by line while it is done.
#pragma once

#include "app/ActionObserver.h"
#include "femap/Application.h"
#include "form/MainForm.h"
#include "system/Files.h"

#include <memory>
#include <string>
#include <vector>

namespace study
{

class Recorder : public app::ActionObserver
{
public:
    /// Creates the script; its first line starts the form with these arguments. Raises RuntimeError
    /// when the file cannot be created.
    Recorder(sys::Files& files, const std::string& path, const std::string& arguments);

    /// The form that is recorded; it must outlive the recording.
    void follow(const form::MainForm& form) { form_ = &form; }

    void begins(const app::Action& action) override;
    void answered(const selection::frmPropertyList& dialog) override;
    void ended(const app::Action& action) override;
    void steppedBack() override;
    void broughtBack() override;

    /// A selection dialog of FEMAP was answered with these IDs.
    void picked(femap::ReturnCode code, const std::vector<int>& ids);

    /// Why the script ends too early; empty while it is whole.
    const std::string& failure() const { return failure_; }

private:
    void write(const std::string& lines);

    std::unique_ptr<sys::OutputFile> file_;
    const form::MainForm* form_ = nullptr;
    std::string before_;  // lines to write before that of the running action
    std::string failure_;
};

/// Connects to a FEMAP whose selection dialogs are recorded.
class RecordedConnector : public femap::Connector
{
public:
    /// Both must outlive the connector and what it hands out.
    RecordedConnector(femap::Connector& real, Recorder& recorder) : real_(real), recorder_(recorder)
    {}

    std::unique_ptr<femap::Application> attach() override;
    std::unique_ptr<femap::Application> create() override;
    femap::RunningFemaps running() override { return real_.running(); }
    void waitBriefly(bool briefly) override { real_.waitBriefly(briefly); }
    bool isAnswering() override { return real_.isAnswering(); }

private:
    femap::Connector& real_;
    Recorder& recorder_;
};

}  // namespace study
