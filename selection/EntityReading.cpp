#include "selection/EntityReading.h"

#include "femap/NumberText.h"
#include "logging/Module1.h"

namespace selection
{

namespace
{

bool isLoaded(form::Context& context, femap::ReturnCode code, std::string_view what, int id)
{
    if (code == femap::ReturnCode::Ok)
        return true;
    logging::FemapLogger& log = context.log;
    if (log.lets(log.LogLevel_error))
        log.writeLogWithLevel(log.LogLevel_error, "FEMAP has no " + std::string(what) +
                                                      " with the ID " + std::to_string(id));
    return false;
}

}  // namespace

bool load(form::Context& context, femap::Entity& entity, std::string_view word, int id)
{
    return isLoaded(context, entity.Get(id), word, id);
}

bool load(form::Context& context, femap::OutputVector& vector, int id)
{
    return isLoaded(context, vector.Get(id), "output vector", id);
}

void reportPendingError(form::Context& context, std::string_view where)
{
    if (context.error.isPending())
        logging::logPositionAndClearErrorIfAny(context.log, context.error, where);
}

int wholeNumberIn(const std::string& text)
{
    const std::optional<int> number = femap::wholeNumber(text);
    if (!number)
        throw sys::RuntimeError(sys::ErrorNumber::InvalidCall,
                                "\"" + text + "\" is no whole number");
    return *number;
}

}  // namespace selection
