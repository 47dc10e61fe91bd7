#include "selection/OutputSets.h"

#include "logging/Module1.h"
#include "selection/EntityReading.h"

#include <memory>
#include <string>
#include <vector>

namespace selection
{

namespace
{

void lookAndTell(form::Context& context)
{
    const std::unique_ptr<femap::EntitySet> sets = context.femap().feSet();
    sets->AddAll(femap::EntityType::OutputSet);
    const std::vector<int> ids = sets->ids();
    if (ids.size() < 2)
        return;
    const int active = context.femap().Info_ActiveID(femap::EntityType::OutputSet);
    if (active != 0) {
        context.form.status.tellHint("The results are those of the active output set, " +
                                     std::to_string(active));
        return;
    }
    const std::string message = "No output set is active. The results are those of the lowest, " +
                                std::to_string(ids.front());
    logging::logDebug(context.log, message);
    context.form.status.tellHint(message);
}

}  // namespace

void tellOutputSet(form::Context& context)
{
    // The results are read already; a refusal here costs only the hint.
    context.error.attempt([&] { lookAndTell(context); });
    reportPendingError(context, "After looking which output set is active");
}

}  // namespace selection
