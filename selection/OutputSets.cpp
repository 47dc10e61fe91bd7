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
    const OutputSets sets = outputSets(context);
    if (sets.ids.size() < 2)
        return;
    if (!sets.severalAndNoneActive()) {
        context.form.status.tellHint("The results are those of the active output set, " +
                                     std::to_string(sets.active));
        return;
    }
    const std::string message = "No output set is active. The results are those of the lowest, " +
                                std::to_string(sets.ids.front());
    logging::logDebug(context.log, message);
    context.form.status.tellHint(message);
}

}  // namespace

OutputSets outputSets(form::Context& context)
{
    const std::unique_ptr<femap::EntitySet> all = context.femap().feSet();
    all->AddAll(femap::EntityType::OutputSet);
    OutputSets sets = {all->ids()};
    if (sets.ids.size() > 1)
        sets.active = context.femap().Info_ActiveID(femap::EntityType::OutputSet);
    return sets;
}

void tellOutputSet(form::Context& context)
{
    // The results are read already; a refusal here costs only the hint.
    context.error.attempt([&] { lookAndTell(context); });
    reportPendingError(context, "After looking which output set is active");
}

}  // namespace selection
