// The whole tool without a window. A shell (the window, a script) tells it what the engineer and
// FEMAP do and shows the form that results.
#pragma once

#include "app/ActionObserver.h"
#include "app/Bindings.h"
#include "app/EventDispatcher.h"
#include "app/KeptRows.h"
#include "app/Session.h"
#include "findings/LatestFindings.h"
#include "form/NewRows.h"
#include "form/StepBack.h"
#include "preview/Preview.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app
{

/// How start-up ended.
enum class Started
{
    Normally,
    ByError,        // the form is there all the same; see lastFailure
    FemapNotFound,  // nothing more can be done: the shell ends
};

class Program
{
public:
    /// Everything given here must outlive the program.
    Program(femap::Connector& connector, form::FormHost& host,
            selection::PropertyListHost& dialogHost, sys::System& system);

    form::MainForm& form() { return session_.form; }
    selection::frmPropertyList& propertyList() { return session_.propertyList; }
    /// Whether FEMAP was reached and has not been lost since.
    bool isConnected() const { return session_.context.application != nullptr; }
    /// The observer must outlive the program.
    void observe(ActionObserver& observer) { observedDialog_.observer = &observer; }

    Started start(const std::string& arguments);
    /// Why the model of the command line could not be opened; empty when it was.
    const std::string& openFailure() const { return session_.openFailure; }
    /// Which of several FEMAPs is used; empty where there is one.
    const std::string& femapInUse() const { return session_.femapInUse; }
    /// Why FEMAP was neither found nor started; empty when it was.
    const std::string& femapFailure() const { return session_.femapFailure; }
    /// Why there is no log, or none any more; empty while all is well or none was wanted.
    const std::string& logFailure() const { return session_.context.log.failure(); }
    /// Full path of the log; empty while there is none.
    std::string logPath() const { return session_.context.log.path(); }

    /// The same also when the run has ended and the log is closed.
    std::string lastLogPath() const;
    /// What is told of it when the run ends by an error.
    std::string whereLogIs() const;
    /// The reason, and where the log is that tells more, if there is one.
    std::string withLog(const std::string& reason) const;

    /// An event of the form or of a control. Anything that is not bound is a mistake of the shell
    /// and raises std::logic_error.
    Ended raise(const form::Event& event, int argument = 0);
    /// The same for a further event of one action: what was told so far stays.
    Ended raiseFurther(const form::Event& event);
    /// A text typed into a combo box or chosen from its list. The box stays as it was when the
    /// procedure cannot start.
    Ended enterText(form::ComboBox& box, const std::string& text);
    /// Brings back the rows that the latest removal, "Clear All" or selection took away, and tells
    /// how many. Runs no procedure and logs nothing; does nothing while a procedure runs.
    void stepBack();
    /// From now on rows that are not applied are kept in this folder, which ends in a separator.
    void keepRowsIn(const std::string& folder);
    /// Replaces the rows of both grids by those that an earlier run left, and tells how many. Runs
    /// no procedure and logs nothing; does nothing while a procedure runs.
    void bringBackKept();
    /// Writes rows whose turn has come meanwhile; to be called now and then.
    void keepRows();
    /// The rows of a grid that the latest action brought in.
    const form::NewRows& newRows(const form::ParameterGrid& grid) const;
    /// FEMAP's event message. Other codes do nothing.
    Ended raiseFemapEvent(std::intptr_t code);

    /// After FEMAP was lost: goes on with one that runs again. Returns whether there is one. After
    /// a wait for it was ended: undoes what is left there, and returns true, when it answers. May
    /// be called often: while there is nothing, nothing is logged.
    bool lookForFemap();

    /// FEMAP's process has ended and took the form's window, one of its panes, with it.
    void loseFemapAndPane();

    /// A mistake of the program ends it: says so in the log and, as far as FEMAP can show it,
    /// there. Raises nothing.
    void tellMistake(std::string_view what);

    /// Whether the FEMAP that the tool started has changes that are not saved; then that is told in
    /// these words. A FEMAP that was there before is not asked.
    bool tellUnsavedChanges(std::string_view text);
    /// The engineer closes the form. With such changes it stays open until that is done again while
    /// they are told.
    void closeByHand();

    /// What of the study as it stands would fail or mislead in the loop, files and FEMAP looked at.
    /// Changes nothing. Nothing while a procedure runs, or when FEMAP is lost meanwhile.
    std::vector<findings::Finding> check();

    /// From now on what the form alone tells of the study is looked for after each action, and
    /// errors and warnings are counted on the status line.
    void watchStudy() { watchesStudy_ = true; }
    /// The same now and then, for texts are typed without an action. Whether it looked again.
    bool lookAtStudy() { return followStudy(false); }
    /// What was found last, by check() or after an action; none unless the study is watched.
    const findings::LatestFindings& latestFindings() const { return latestFindings_; }
    /// Grows with each action, and when something else has changed what the form tells of the study
    /// that is watched: what was made of it before may be out of date.
    std::uint64_t studyChanges() const { return studyChanges_; }

    /// Whether each whole "Apply" leaves a provenance sheet beside its files from now on.
    void keepProvenance(bool keeps) { session_.keepsProvenance = keeps; }
    bool keepsProvenance() const { return session_.keepsProvenance; }

    /// What "Apply" would write now but for that sheet, with the texts of the file of that name.
    /// Changes nothing, and shows nothing in FEMAP. Empty while a procedure runs; without files
    /// when FEMAP is lost meanwhile, or the wait for it ended.
    preview::Preview preview(std::string_view wantedName = {});

    /// Unloads both forms; while a procedure runs, as soon as it has ended.
    void close();
    /// Whether that is to be done when the procedure has ended, or FEMAP's lock is released.
    bool isToClose() const { return session_.closeWanted; }
    bool isClosed() const { return closed_; }

    bool isBusy() const { return dispatcher_.isBusy(); }
    /// Why the latest procedure that ended by an error did so; empty while none has.
    const std::string& lastFailure() const { return dispatcher_.lastFailure(); }

private:
    struct Waiting
    {
        const Binding* binding;
        int argument;
    };

    // Shows the property list dialog and tells the observer how it was answered.
    struct ObservedDialog : selection::PropertyListHost
    {
        explicit ObservedDialog(selection::PropertyListHost& host) : real(host) {}
        void showModal(selection::frmPropertyList& dialog) override;

        selection::PropertyListHost& real;
        ActionObserver* observer = nullptr;
    };

    Ended run(const Binding& binding, int argument, bool isFurther = false);
    std::unique_ptr<femap::Application> livingFemap();
    Ended perform(const Action& action, const std::function<void()>& procedure);
    void runWaiting();
    bool settle();
    bool isKeptByLock() const { return session_.endedWait.locks > 0; }
    Ended performOnRows(const Binding& binding, int argument);
    void forgetStepOfAnotherModel();
    void finishKeeping();
    void forgetFormerAction();
    bool followStudy(bool isAction);
    void tellFindings();

    ObservedDialog observedDialog_;
    Session session_;
    EventDispatcher dispatcher_{session_};
    form::StepBack stepBack_{{&session_.form.InputsList, &session_.form.OutputsList}};
    std::array<form::NewRows, 2> newRows_{form::NewRows(session_.form.InputsList),
                                          form::NewRows(session_.form.OutputsList)};
    std::optional<KeptRows> kept_;
    findings::LatestFindings latestFindings_{session_.context};
    bool watchesStudy_ = false;
    std::uint64_t studyChanges_ = 0;
    std::string toldFindings_;       // on the status line
    std::string modelOfStep_;        // its file, empty while never saved
    bool isReadAgainSince_ = false;  // the rows, since the step
    std::vector<Waiting> waiting_;
    bool closed_ = false;
    bool unsavedIsTold_ = false;
};

}  // namespace app
