#pragma once

#include "fake/CallWatch.h"
#include "fake/GridRows.h"
#include "fake/MemoryMachine.h"
#include "femap/SelectionDialogs.h"
#include "femap/embedded/Host.h"
#include "form/Context.h"
#include "form/Progress.h"

#include <cstddef>
#include <deque>
#include <string>
#include <utility>
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

    /// The answer to the next dialog: these entities.
    void pick(std::vector<int> ids) { answers.push_back({femap::ReturnCode::Ok, std::move(ids)}); }

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
    int shown = 0;
    std::function<void()> whenShown = [] {};

    std::intptr_t windowHandle() override { return 4711; }
    void hookEvents() override { hooked = true; }
    void unhookEvents() override { hooked = false; }
    void show() override
    {
        ++shown;
        whenShown();
    }
    void showProgress() override { ++progressShown; }
    void unload() override { ++unloads; }
};

/// Whether no control shows the hourglass.
bool pointersAreDefault(const form::MainForm& form);

/// What the form finds around it: a machine in memory, and the model host as its FEMAP, in which
/// "/models/beam.neu" is open.
class Environment : public MemoryMachine
{
public:
    Environment() { femap.modelName = "/models/beam.neu"; }

    QueuedDialogs dialogs;
    femap::embedded::Host femap{dialogs};
    FakeFormHost host;

    femap::neutral::Model& model() { return femap.openModel(); }
    /// The answer to FEMAP's next selection dialog.
    void pick(std::vector<int> ids) { dialogs.pick(std::move(ids)); }
    /// The texts in FEMAP's message window.
    std::vector<std::string> messages() const;
};

/// The real form and logger on a machine in memory. FEMAP is attached and the log is at level
/// "ALWAYS".
class FormFixture : public Environment
{
    CallWatch watch_;  // outlives what it watches

public:
    FormFixture();

    form::MainForm form;
    form::Context context{form, host, system};
    form::Progress progress{context, "Writing files"};  // for writers that are called alone

    /// Puts the form's FEMAP under a watch, once.
    CallWatch& watchFemap();
    /// The lines of the log so far, without their line ends.
    std::vector<std::string> log();
    /// Those that an action writes.
    template <class Action>
    std::vector<std::string> logOf(const Action& action)
    {
        const auto before = static_cast<std::ptrdiff_t>(log().size());
        action();
        const std::vector<std::string> all = log();
        return {all.begin() + before, all.end()};
    }

    std::vector<std::string> names(const form::ParameterGrid& grid) const { return namesOf(grid); }
    std::vector<std::string> rows(const form::ParameterGrid& grid) const { return rowsOf(grid); }
};

}  // namespace fake
