#pragma once

#include "app/form/MainForm.h"
#include "femap/Application.h"
#include "logging/FemapLogger.h"
#include "logging/PendingError.h"
#include "logging/System.h"

#include <cstdint>
#include <memory>
#include <string>

namespace form
{

class Progress;

/// What only a window can do.
class FormHost
{
public:
    virtual ~FormHost() = default;

    /// Handle of the form's window, 0 where there is none.
    virtual std::intptr_t windowHandle() = 0;
    /// Lets FEMAP's event message reach the program, and takes that back again.
    virtual void hookEvents() = 0;
    virtual void unhookEvents() = 0;
    /// Shows what changed in the form while a handler is still at work.
    virtual void showProgress() = 0;
    /// Closes the main form and the property list dialog.
    virtual void unload() = 0;
};

/// The world of a form procedure.
struct Context
{
    Context(MainForm& mainForm, FormHost& formHost, logging::System& runSystem)
        : form(mainForm), host(formHost), system(runSystem), log(runSystem)
    {}

    MainForm& form;
    FormHost& host;
    logging::System& system;
    logging::FemapLogger log;
    logging::PendingError error;

    std::unique_ptr<femap::Application> application;  // none before FEMAP was reached
    int lockDepth = 0;                                // FEMAP locks that are held
    Progress* progress = nullptr;  // of work that takes several procedures, while it goes on

    /// Raises RuntimeError (ObjectNotSet) when FEMAP was not reached.
    femap::Application& femap() const;
};

/// FEMAP's user interface locked and released; the number of locks held is kept.
void lockFemap(Context& context);
void unlockFemap(Context& context);

/// A message for the engineer: in FEMAP's message window in the error colour, on the status line,
/// and in the log at debug level.
void tellEngineer(Context& context, const std::string& text);
/// The same without the line in the log.
void showMessage(Context& context, const std::string& text,
                 femap::MessageColour colour = femap::MessageColour::Error);

}  // namespace form
