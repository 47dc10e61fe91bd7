#include "selection/EntityReading.h"

#include "femap/NumberText.h"
#include "logging/Module1.h"

namespace selection
{

namespace
{

sys::RuntimeError refusal(std::string_view what, int id)
{
    return {sys::ErrorNumber::ObjectFailed,
            "FEMAP has no " + std::string(what) + " with the ID " + std::to_string(id)};
}

bool isLoaded(form::Context& context, femap::ReturnCode code, std::string_view what, int id)
{
    if (code != femap::ReturnCode::Ok)
        reportRefusal(context, what, id);
    return code == femap::ReturnCode::Ok;
}

void demandOk(femap::ReturnCode code, std::string_view what, int id)
{
    if (code != femap::ReturnCode::Ok)
        throw refusal(what, id);
}

constexpr std::string_view vectorWord = "output vector";

}  // namespace

bool load(form::Context& context, femap::Entity& entity, std::string_view word, int id)
{
    return isLoaded(context, entity.Get(id), word, id);
}

bool load(form::Context& context, femap::OutputVector& vector, int id)
{
    return isLoaded(context, vector.Get(id), vectorWord, id);
}

void demand(femap::Entity& entity, std::string_view word, int id)
{
    demandOk(entity.Get(id), word, id);
}

void demand(femap::OutputVector& vector, int id)
{
    demandOk(vector.Get(id), vectorWord, id);
}

void reportRefusal(form::Context& context, std::string_view what, int id)
{
    sys::PendingError error;  // of its own: that of the procedure is not touched
    error.note(refusal(what, id));
    logging::logPositionAndClearErrorIfAny(context.log, error, "Reading " + std::string(what));
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
