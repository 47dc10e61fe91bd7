#include "app/SecondForm.h"

#include "logging/Module1.h"

#include <string>

namespace app
{

void lookForSecondForm(Session& session)
{
    form::Context& context = session.context;
    const std::string model = context.form.openModel.value_or("");
    const bool isForm = context.host.windowHandle() != 0;
    if (model == session.markedModel || !isForm)
        return;
    session.markedModel = model;
    session.modelMark.reset();
    context.form.status.withdraw(secondForm);
    if (model.empty())
        return;
    session.modelMark = session.markModel(model);
    if (session.modelMark == nullptr || !session.modelMark->isSecond())
        return;
    context.form.status.tellFirst(secondForm);
    logging::logDebug(context.log, std::string(secondForm));
}

}  // namespace app
