// What every form procedure works with: form, log, pending error, FEMAP; FEMAP's lock; messages.
#pragma once

#include "femap/Application.h"
#include "form/MainForm.h"
#include "logging/FemapLogger.h"
#include "system/PendingError.h"
#include "system/System.h"

#include <cstdint>
#include <memory>
#include <string>

namespace form
{

/// What only the form's window can do.
class FormHost
{
public:
    virtual ~FormHost() = default;

    /// Handle of the form's window, 0 where there is none.
    virtual std::intptr_t windowHandle() = 0;
    /// Lets FEMAP's event message reach the program, and takes that back again.
    virtual void hookEvents() = 0;
    virtual void unhookEvents() = 0;
    /// Shows the form, off until its procedure of start-up has ended. Also called when it is shown.
    virtual void show() = 0;
    /// Shows what changed in the form while a handler is still at work.
    virtual void showProgress() = 0;
    /// Closes the main form and the property list dialog.
    virtual void unload() = 0;
};

struct Context
{
    Context(MainForm& mainForm, FormHost& formHost, sys::System& runSystem)
        : form(mainForm), host(formHost), system(runSystem), log(runSystem)
    {}

    MainForm& form;
    /// Whose rows go into the files: those of the form, but in a preview of another one.
    const FormControls* grids = &form;
    FormHost& host;
    sys::System& system;
    logging::FemapLogger log;
    sys::PendingError error;

    std::unique_ptr<femap::Application> application;  // none before FEMAP was reached
    int lockDepth = 0;                                // FEMAP locks that are held
    bool femapShowsProgress = false;                  // its progress bar is on

    /// Raises RuntimeError (ObjectNotSet) when FEMAP was not reached.
    femap::Application& femap() const;
};

/// A problem that the engineer must know: in FEMAP's message window in the error colour, on the
/// status line, and in the log at debug level.
void tellEngineer(Context& context, const std::string& text);
/// The same without the line in the log. In the normal colour it is no problem but a result.
void showMessage(Context& context, const std::string& text,
                 femap::MessageColour colour = femap::MessageColour::Error);

}  // namespace form
