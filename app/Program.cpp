#include "app/Program.h"

#include "app/AfterWait.h"
#include "app/FemapEvents.h"
#include "app/StartUp.h"
#include "app/WhichFemap.h"
#include "form/FormProcedures.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace app
{

namespace
{

using form::What;

// Whether the messages of former actions go from the status line. Other keys only move in a grid.
bool endsMessages(const form::Event& event, int argument)
{
    return event.isByHand() && (event.what != What::KeyDown || argument == form::deleteKey);
}

const Binding& bindingOf(const form::Event& event)
{
    const Binding* const binding = findBinding(event);
    if (binding == nullptr)
        throw std::logic_error("No procedure is bound to " + event.text());
    return *binding;
}

}  // namespace

Program::Program(femap::Connector& connector, form::FormHost& host,
                 selection::PropertyListHost& dialogHost, sys::System& system)
    : observedDialog_(dialogHost), session_(connector, host, observedDialog_, system)
{
    bindComboBoxes(session_);
}

Started Program::start(const std::string& arguments)
{
    StartUp result = StartUp::Done;
    form().status.showProgress(startingWithFemap);
    const Ended ended =
        dispatcher_.run("Form_Load", [&] { result = Form_Load(session_, arguments); });
    form().status.showProgress({});
    if (session_.endedWait.isThere) {
        session_.endedWait.takesOver = true;
        form().setEnabled(false);
    }
    if (result == StartUp::FemapNotFound) {
        closed_ = true;
        return Started::FemapNotFound;
    }
    runWaiting();
    keepRows();
    followStudy(false);
    return ended == Ended::Normally ? Started::Normally : Started::ByError;
}

Ended Program::raise(const form::Event& event, int argument)
{
    return run(bindingOf(event), argument);
}

Ended Program::raiseFurther(const form::Event& event)
{
    return run(bindingOf(event), 0, true);
}

Ended Program::enterText(form::ComboBox& box, const std::string& text)
{
    if (closed_)
        return Ended::NotStarted;
    if (!dispatcher_.isBusy())
        forgetFormerAction();
    const Ended ended =
        perform({form::click(form().named(box).name), 0, &box}, [&] { box.enterText(text); });
    if (ended != Ended::NotStarted)
        runWaiting();
    keepRows();
    followStudy(ended != Ended::NotStarted);
    return ended;
}

Ended Program::raiseFemapEvent(std::intptr_t code)
{
    return isFemapEvent(code) ? raise(femapEvent, static_cast<int>(code)) : Ended::NotStarted;
}

bool Program::lookForFemap()
{
    if (closed_ || dispatcher_.isBusy())
        return false;
    if (isConnected())
        return settle();
    std::unique_ptr<femap::Application> found = livingFemap();
    if (found == nullptr)
        return false;
    dispatcher_.run("LookForFemap", [&] { femapReturned(session_, std::move(found)); });
    runWaiting();
    return true;
}

bool Program::settle()
{
    if (!session_.endedWait.isThere || !session_.connector.isAnswering())
        return false;
    dispatcher_.run("AfterWait", [&] { settleEndedWait(session_); });
    runWaiting();
    return true;
}

void Program::loseFemapAndPane()
{
    if (closed_)
        return;
    if (isConnected())
        dispatcher_.run("LoseFemap", [] {
            throw femap::ConnectionLost("FEMAP's process has ended, and the form's pane with it");
        });
    form().status.tellFailure(paneIsGone);
    runWaiting();
}

void Program::tellMistake(std::string_view what)
{
    try {
        const std::string text = "The program has a mistake and ends: " + std::string(what);
        session_.context.error.attempt([&] {
            form::tellEngineer(session_.context, text);
            session_.context.femap().feAppMessage(femap::MessageColour::Error, whereLogIs());
        });
    }
    catch (const std::exception&) {
        // FEMAP cannot show it, for it is gone or that fails as well; the log has it.
    }
    session_.context.log.flush();
}

std::string Program::lastLogPath() const
{
    const std::string open = logPath();
    return open.empty() ? session_.closedLog : open;
}

std::string Program::whereLogIs() const
{
    const std::string path = lastLogPath();
    return path.empty() ? "There is no log of this run. The start argument $$ALWAYS makes one"
                        : "The log of this run: " + path;
}

std::string Program::withLog(const std::string& reason) const
{
    if (lastLogPath().empty())
        return reason;
    return reason + (reason.ends_with('.') ? " " : ". ") + whereLogIs();
}

// Null when there is none. A FEMAP that is just ending may be found, so it must answer a call.
std::unique_ptr<femap::Application> Program::livingFemap()
{
    try {
        std::unique_ptr<femap::Application> found = session_.connector.attach();
        if (found != nullptr)
            found->feAppGetAllModels();
        return found;
    }
    catch (const sys::RuntimeError&) {
        return nullptr;
    }
    catch (const femap::ConnectionLost&) {
        return nullptr;
    }
    catch (const femap::WaitEnded&) {
        return nullptr;
    }
}

bool Program::tellUnsavedChanges(std::string_view text)
{
    bool isTold = false;
    if (!closed_ && session_.femapWasStarted) {
        session_.connector.waitBriefly(true);
        dispatcher_.run("Form_QueryUnload",
                        [&] { isTold = app::tellUnsavedChanges(session_, text); });
        session_.connector.waitBriefly(false);
    }
    return isTold;
}

void Program::closeByHand()
{
    const bool isAsked = dispatcher_.isBusy() || unsavedIsTold_ || session_.closeWanted;
    if (!isAsked && isKeptByLock()) {
        session_.closeWanted = true;
        tellEndedWait(session_);
        return;
    }
    if (isAsked || !tellUnsavedChanges(unsavedInForm)) {
        close();
        return;
    }
    unsavedIsTold_ = true;
    runWaiting();
}

preview::Preview Program::preview(std::string_view wantedName)
{
    preview::Preview made;
    if (closed_)
        return made;
    const Ended ended = dispatcher_.run(
        "Preview", [&] { made = preview::previewOfApply(session_.context, wantedName); });
    if (ended == Ended::ByError)
        made.problem = lastFailure();
    return made;
}

void Program::close()
{
    if (dispatcher_.isBusy()) {
        session_.closeWanted = true;
        return;
    }
    if (closed_)
        return;
    finishKeeping();
    closed_ = true;
    session_.connector.waitBriefly(true);
    dispatcher_.run("Form_Unload", [this] { releaseLocks(session_.context); });
    dispatcher_.run("Form_Unload", [this] { Form_Unload(session_); });
    session_.context.host.unload();
}

Ended Program::run(const Binding& binding, int argument, bool isFurther)
{
    if (closed_)
        return Ended::NotStarted;
    if (dispatcher_.isBusy()) {
        const auto isThis = [&](const Waiting& other) {
            return other.binding == &binding && other.argument == argument;
        };
        // What the engineer does meanwhile is dropped.
        if (!binding.event.isByHand() && std::ranges::none_of(waiting_, isThis))
            waiting_.push_back({&binding, argument});
        return Ended::NotStarted;
    }
    if (!isFurther && endsMessages(binding.event, argument))
        forgetFormerAction();
    const Ended ended = performOnRows(binding, argument);
    runWaiting();
    forgetStepOfAnotherModel();
    keepRows();
    followStudy(endsMessages(binding.event, argument));
    return ended;
}

// An action begins: what was told and shown of the former one goes.
void Program::forgetFormerAction()
{
    form().status.clear();
    for (form::NewRows& each : newRows_)
        each.forget();
    unsavedIsTold_ = false;
}

void Program::ObservedDialog::showModal(selection::frmPropertyList& dialog)
{
    real.showModal(dialog);
    if (observer != nullptr)
        observer->answered(dialog);
}

Ended Program::perform(const Action& action, const std::function<void()>& procedure)
{
    ActionObserver* const observer = dispatcher_.isBusy() ? nullptr : observedDialog_.observer;
    if (observer != nullptr)
        observer->begins(action);
    const Ended ended = dispatcher_.run(action.event.text(), procedure);
    const bool isFemaps = action.event.text() == femapEvent.text();
    if (isFemaps && ended == Ended::ByError && session_.endedWait.isThere)
        session_.endedWait.takesOver = true;
    if (observer != nullptr)
        observer->ended(action);
    return ended;
}

// Runs the events that waited while a procedure ran.
void Program::runWaiting()
{
    while (!waiting_.empty() && !session_.closeWanted) {
        const Waiting next = waiting_.front();
        waiting_.erase(waiting_.begin());
        perform({next.binding->event, next.argument},
                [&] { next.binding->procedure(session_, next.argument); });
    }
    if (session_.closeWanted && !isKeptByLock())
        close();
}

}  // namespace app
