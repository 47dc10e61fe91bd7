// Carries out the lines of a study script in a form without a window.
#pragma once

#include "app/Program.h"
#include "femap/embedded/Host.h"
#include "findings/Finding.h"
#include "study/ModelChange.h"
#include "study/StudyDialogs.h"
#include "study/StudyScript.h"

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace study
{

/// How findings are written.
enum class FindingsForm
{
    Text,  // a line for each, then their count
    Json,  // one line
};

/// What a study runs on; everything must outlive the runner.
struct StudyWorld
{
    sys::System& system;
    femap::Connector& connector;
    StudyDialogs& dialogs;
    femap::embedded::Host* host;  // null with a running FEMAP, whose model is not changed
    std::ostream& output;
    std::ostream& problems;
    std::ostream& progress;
    FindingsForm findingsForm = FindingsForm::Text;
    bool keepsProvenance = false;  // each "Apply" leaves a sheet
};

/// Stands in for the form's window and writes the progress to a stream.
class StudyFormHost : public form::FormHost
{
public:
    explicit StudyFormHost(std::ostream& progress) : progress_(progress) {}

    /// Its text is the progress.
    void follow(const form::Label& statusLine) { statusLine_ = &statusLine; }

    std::intptr_t windowHandle() override { return 0; }
    void hookEvents() override {}
    void unhookEvents() override {}
    void show() override {}
    void showProgress() override { progress_ << statusLine_->Caption << '\n'; }
    void unload() override {}

private:
    const form::Label* statusLine_ = nullptr;
    std::ostream& progress_;
};

/// As "check" writes them; the line of their count begins with where they were found.
std::string findingsText(const std::vector<findings::Finding>& found, FindingsForm form,
                         const std::string& where = {});

class StudyRunner
{
public:
    explicit StudyRunner(const StudyWorld& world);

    /// Runs the whole script. Raises ScriptError at the line that cannot be done.
    void run(StudyScript& script);

    /// Does one line. Raises ScriptError when it cannot be done.
    void perform(const ScriptLine& line);
    /// Whether a line started the form, well or not.
    bool isStarted() const { return isStarted_; }
    /// Whether the form is there.
    bool isOpen() const { return isStarted_ && !program_.isClosed(); }

    /// What is found in the study as it stands.
    std::vector<findings::Finding> findings();
    /// Whether an action "check" met an error.
    bool foundErrors() const { return foundErrors_; }

    /// Unloads the form, if it is loaded.
    void unload();

private:
    struct Action
    {
        std::string_view name;
        void (StudyRunner::*procedure)(const ScriptLine& line);
    };
    static const Action actions[];

    void start(const ScriptLine& line);
    void set(const ScriptLine& line);
    void pick(const ScriptLine& line);
    void choose(const ScriptLine& line);
    void click(const ScriptLine& line);
    void select(const ScriptLine& line);
    void key(const ScriptLine& line);
    void refresh(const ScriptLine& line);
    void stepback(const ScriptLine& line);
    void event(const ScriptLine& line);
    void open(const ScriptLine& line);
    void closemodel(const ScriptLine& line);
    void put(const ScriptLine& line);
    void activate(const ScriptLine& line);
    void print(const ScriptLine& line);
    void check(const ScriptLine& line);
    void preview(const ScriptLine& line);
    void close(const ScriptLine& line);

    femap::embedded::Host& requireHost(const ScriptLine& line) const;
    femap::embedded::Host& requireModel(const ScriptLine& line) const;
    void requireEnabled(const form::NamedControl& which, const ScriptLine& line);
    void tellProblem();
    void checkEnd(app::Ended ended, const ScriptLine& line) const;
    void tellLogFailure();

    StudyWorld world_;
    StudyFormHost host_;
    app::Program program_;
    bool isStarted_ = false;
    std::string told_;   // the latest problem of the status line that was told
    OpenModels behind_;  // open as well, behind the current one; the last becomes current next
    bool logFailureIsTold_ = false;
    bool foundErrors_ = false;
};

}  // namespace study
