#include "form/Context.h"

#include "logging/Module1.h"

namespace form
{

femap::Application& Context::femap() const
{
    if (application == nullptr)
        throw sys::RuntimeError(sys::ErrorNumber::ObjectNotSet,
                                "FEMAP is not connected. Start FEMAP and then this tool again");
    return *application;
}

void tellEngineer(Context& context, const std::string& text)
{
    logging::logDebug(context.log, text);  // first, so that it is not lost with FEMAP
    showMessage(context, text);
}

void showMessage(Context& context, const std::string& text, femap::MessageColour colour)
{
    if (colour == femap::MessageColour::Normal)
        context.form.status.tellResult(text);
    else
        context.form.status.tellProblem(text);
    context.femap().feAppMessage(colour, text);
}

}  // namespace form
