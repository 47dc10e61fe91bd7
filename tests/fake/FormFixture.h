#pragma once

#include "app/form/Context.h"
#include "fake/MemoryFiles.h"
#include "femap/SelectionDialogs.h"
#include "femap/embedded/Host.h"

#include <deque>
#include <string>
#include <vector>

namespace fake
{

/// Answers FEMAP's selection dialogs from a queue and keeps what was asked.
class QueuedDialogs : public femap::SelectionDialogs
{
public:
    struct Asked
    {
        femap::EntityType type;
        std::string title;
        bool onlyOne;
        std::vector<int> available;
    };

    std::deque<femap::Selection> answers;
    std::vector<Asked> asked;

    /// A dialog without a queued answer is cancelled.
    femap::Selection answer(femap::EntityType type, const std::string& title, bool onlyOne,
                            const std::vector<int>& available) override;
};

/// A form without a window.
class FakeFormHost : public form::FormHost
{
public:
    bool hooked = false;
    int unloads = 0;
    int progressShown = 0;

    std::intptr_t windowHandle() override { return 4711; }
    void hookEvents() override { hooked = true; }
    void unhookEvents() override { hooked = false; }
    void showProgress() override { ++progressShown; }
    void unload() override { ++unloads; }
};

/// The real form, logger and model host, with a disk in memory and a clock that stands still.
/// FEMAP is attached, a model named "/models/beam.neu" is open and the log is at level "ALWAYS".
class FormFixture
{
public:
    FormFixture();

    MemoryFiles files;
    std::map<std::string, std::string> environment = {{"TEMP", "/temp"}};
    logging::LocalTime time = {2024, 3, 7, 9, 5, 2, 45};
    double seconds = 0;
    logging::System system;
    QueuedDialogs dialogs;
    femap::embedded::Host femap;
    FakeFormHost host;
    form::MainForm form;
    form::Context context;

    femap::embedded::Model& model() { return femap.openModel(); }

    /// The lines of the log so far, without their line ends.
    std::vector<std::string> log();
    /// A file's lines without their CR LF; fails the test when one ends otherwise.
    std::vector<std::string> lines(const std::string& path) const;

    std::vector<std::string> names(const form::ParameterGrid& grid) const;
    std::vector<std::string> rows(const form::ParameterGrid& grid) const;
    /// The texts in FEMAP's message window.
    std::vector<std::string> messages() const;
};

}  // namespace fake
