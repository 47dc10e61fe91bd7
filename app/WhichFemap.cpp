#include "app/WhichFemap.h"

#include "logging/Module1.h"

namespace app
{

using form::Context;

namespace
{

std::string describe(const femap::RunningFemaps& running, const std::string& model)
{
    std::string message = std::to_string(running.count) + " FEMAPs are running: ";
    message += running.process ? "process " + std::to_string(*running.process) : "one";
    if (!model.empty())
        message += " with \"" + model + '"';
    return message + " is used";
}

}  // namespace

void tellWhichFemap(Session& session)
{
    Context& context = session.context;
    const femap::RunningFemaps running = session.connector.running();
    session.femapInUse.clear();
    if (running.count > 1) {
        std::string model;
        sys::PendingError noModel;
        noModel.attempt([&] { model = context.femap().ModelName(); });
        session.femapInUse = describe(running, model);
        context.form.status.tellHint(session.femapInUse);
        logging::logDebug(context.log, session.femapInUse);
    }
    if (running.isOneHidden) {
        context.form.status.tellProblem(femapIsHidden);
        logging::logDebug(context.log, std::string(femapIsHidden));
    }
}

bool tellUnsavedChanges(Session& session, std::string_view text)
{
    Context& context = session.context;
    if (context.application == nullptr)
        return false;
    bool isModified = false;
    sys::PendingError notTold;
    notTold.attempt([&] { isModified = context.femap().feFileIsModified(); });
    if (isModified)
        notTold.attempt([&] { form::tellEngineer(context, std::string(text)); });
    return isModified;
}

}  // namespace app
