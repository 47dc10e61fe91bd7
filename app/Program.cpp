#include "app/Program.h"

#include "app/FemapEvents.h"
#include "app/StartUp.h"
#include "logging/RuntimeError.h"

#include <algorithm>
#include <stdexcept>

namespace app
{

Program::Program(femap::Connector& connector, form::FormHost& host,
                 selection::PropertyListHost& dialogHost, logging::System& system)
    : watched_(dialogHost), session_(connector, host, watched_, system)
{
    bindComboBoxes(session_);
}

Started Program::start(const std::string& arguments)
{
    StartUp result = StartUp::Done;
    const Ended ended =
        dispatch_.run("Form_Load", [&] { result = Form_Load(session_, arguments); });
    if (result == StartUp::FemapNotFound) {
        closed_ = true;
        return Started::FemapNotFound;
    }
    catchUp();
    return ended == Ended::Normally ? Started::Normally : Started::ByError;
}

Ended Program::raise(std::string_view event, int argument)
{
    const Binding* const binding = findBinding(event);
    if (binding == nullptr)
        throw std::logic_error("No procedure is bound to " + std::string(event));
    return run(*binding, argument);
}

Ended Program::chooseItem(form::ComboBox& box, int index)
{
    return runChoice(box, [&] { box.setListIndex(index); });
}

Ended Program::enterText(form::ComboBox& box, const std::string& text)
{
    return runChoice(box, [&] { box.enterText(text); });
}

Ended Program::raiseFemapEvent(std::intptr_t code)
{
    return isFemapEvent(code) ? raise(femapEvent, static_cast<int>(code)) : Ended::NotStarted;
}

bool Program::lookForFemap()
{
    if (isConnected() || closed_ || dispatch_.isBusy())
        return false;
    std::unique_ptr<femap::Application> found = livingFemap();
    if (found == nullptr)
        return false;
    dispatch_.run("LookForFemap", [&] { femapReturned(session_, std::move(found)); });
    catchUp();
    return true;
}

// One that is just ending may be found, too; therefore it is asked something.
std::unique_ptr<femap::Application> Program::livingFemap()
{
    try {
        std::unique_ptr<femap::Application> found = session_.connector.attach();
        if (found != nullptr)
            found->feAppGetAllModels();
        return found;
    }
    catch (const logging::RuntimeError&) {
        return nullptr;
    }
    catch (const femap::ConnectionLost&) {
        return nullptr;
    }
}

void Program::close()
{
    if (dispatch_.isBusy()) {
        session_.closeWanted = true;
        return;
    }
    if (closed_)
        return;
    closed_ = true;
    dispatch_.run("Form_Unload", [this] { releaseLocks(session_.context); });
    // What an error kept the first run from releasing is released by the second one.
    const auto unload = [this] { Form_Unload(session_); };
    if (dispatch_.run("Form_Unload", unload) != Ended::Normally)
        dispatch_.run("Form_Unload", unload);
    session_.context.host.unload();
}

Ended Program::run(const Binding& binding, int argument)
{
    if (closed_)
        return Ended::NotStarted;
    if (dispatch_.isBusy()) {
        const auto isThis = [&](const Waiting& other) {
            return other.binding == &binding && other.argument == argument;
        };
        if (binding.waits && std::ranges::none_of(waiting_, isThis))
            waiting_.push_back({&binding, argument});
        return Ended::NotStarted;
    }
    const Ended ended =
        perform({binding.event, argument}, [&] { binding.procedure(session_, argument); });
    catchUp();
    return ended;
}

Ended Program::runChoice(const form::ComboBox& box, const std::function<void()>& choice)
{
    if (closed_)
        return Ended::NotStarted;
    const auto isBox = [&box](const form::MainForm::NamedControl& each) {
        return each.control == &box;
    };
    const std::string name(std::ranges::find_if(session_.form.controls(), isBox)->name);
    const std::string event = name + "_Click";
    const Ended ended = perform({event, 0, &box}, choice);
    if (ended != Ended::NotStarted)
        catchUp();
    return ended;
}

void Program::WatchedDialog::showModal(selection::frmPropertyList& dialog)
{
    real.showModal(dialog);
    if (watcher != nullptr)
        watcher->answered(dialog);
}

Ended Program::perform(const Action& action, const std::function<void()>& procedure)
{
    Watcher* const watcher = dispatch_.isBusy() ? nullptr : watched_.watcher;
    if (watcher != nullptr)
        watcher->begins(action);
    const Ended ended = dispatch_.run(action.event, procedure);
    if (watcher != nullptr)
        watcher->ended(action);
    return ended;
}

// Does what came while a procedure ran.
void Program::catchUp()
{
    while (!waiting_.empty() && !session_.closeWanted) {
        const Waiting next = waiting_.front();
        waiting_.erase(waiting_.begin());
        perform({next.binding->event, next.argument},
                [&] { next.binding->procedure(session_, next.argument); });
    }
    if (session_.closeWanted)
        close();
}

}  // namespace app
