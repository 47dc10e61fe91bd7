// What happens when the tool starts, when a lost FEMAP comes back, and when the tool ends.
#pragma once

#include "app/Session.h"

#include <memory>
#include <string>

namespace app
{

enum class StartUp
{
    Done,
    FemapNotFound,  // the program ends at once
};

/// Starts the log, reaches FEMAP, opens the model, fills the form and registers it with FEMAP.
StartUp Form_Load(Session& session, const std::string& arguments);

/// Goes on with a FEMAP that runs again after it was lost: takes over the model that is open there
/// and registers the form with FEMAP. Rows stay as they are.
void femapReturned(Session& session, std::unique_ptr<femap::Application> application);

/// Makes the form a pane of the FEMAP that it has, unless it is one, and takes over the model that
/// is open there.
void takeOverFemap(Session& session);

/// Releases FEMAP and the log. Works in every state, also twice.
void Form_Unload(Session& session);

/// Start and end the delivery of FEMAP's event messages to the program.
void InitFormEvents(Session& session);
void RestoreFormEvents(Session& session);

/// What the form tells FEMAP about itself when it becomes one of FEMAP's panes.
femap::AddInPane addInPane(form::Context& context);

}  // namespace app
