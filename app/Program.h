#pragma once

#include "app/Bindings.h"
#include "app/Dispatch.h"
#include "app/Session.h"
#include "app/Watcher.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
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

/// The whole tool without a window. A shell (the window, a script) tells it what the engineer and
/// FEMAP do and shows the form that results.
class Program
{
public:
    /// Everything given here must outlive the program.
    Program(femap::Connector& connector, form::FormHost& host,
            selection::PropertyListHost& dialogHost, logging::System& system);

    form::MainForm& form() { return session_.form; }
    selection::frmPropertyList& propertyList() { return session_.propertyList; }
    /// Whether FEMAP was reached and has not been lost since.
    bool isConnected() const { return session_.context.application != nullptr; }
    /// The watcher must outlive the program.
    void watch(Watcher& watcher) { watched_.watcher = &watcher; }

    Started start(const std::string& arguments);
    /// Why the model of the command line could not be opened; empty when it was.
    const std::string& openFailure() const { return session_.openFailure; }
    /// Why there is no log; empty when there is one or none was wanted.
    const std::string& logFailure() const { return session_.logFailure; }

    /// An event of a control, such as "InputsButton_Click". Anything that is not bound is a mistake
    /// of the shell and raises std::logic_error.
    Ended raise(std::string_view event, int argument = 0);
    /// A choice in the drop-down list of a combo box, or a text typed into it. When it is not
    /// started the box stays as it was.
    Ended chooseItem(form::ComboBox& box, int index);
    Ended enterText(form::ComboBox& box, const std::string& text);
    /// FEMAP's event message. Other codes do nothing.
    Ended raiseFemapEvent(std::intptr_t code);

    /// After FEMAP was lost: goes on with one that runs again. Returns whether there is one. Asks
    /// quietly and may be called often.
    bool lookForFemap();

    /// Unloads both forms; while a procedure runs, as soon as it has ended.
    void close();
    bool isClosed() const { return closed_; }

    bool isBusy() const { return dispatch_.isBusy(); }
    /// Why the latest procedure that ended by an error did so; empty while none has.
    const std::string& lastFailure() const { return dispatch_.lastFailure(); }

private:
    struct Waiting
    {
        const Binding* binding;
        int argument;
    };

    // Shows the property list dialog and tells the watcher how it was answered.
    struct WatchedDialog : selection::PropertyListHost
    {
        explicit WatchedDialog(selection::PropertyListHost& host) : real(host) {}
        void showModal(selection::frmPropertyList& dialog) override;

        selection::PropertyListHost& real;
        Watcher* watcher = nullptr;
    };

    Ended run(const Binding& binding, int argument);
    Ended runChoice(const form::ComboBox& box, const std::function<void()>& choice);
    std::unique_ptr<femap::Application> livingFemap();
    Ended perform(const Action& action, const std::function<void()>& procedure);
    void catchUp();

    WatchedDialog watched_;
    Session session_;
    Dispatch dispatch_{session_};
    std::vector<Waiting> waiting_;
    bool closed_ = false;
};

}  // namespace app
