// Program: what becomes of the rows. An action can be taken back, new rows are known until the next
// action, and rows that are not applied are kept for the next run.
#include "app/Program.h"
#include "form/FormProcedures.h"
#include "logging/Module1.h"
#include "system/RuntimeError.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace app
{

using form::What;

// Watches what becomes of the rows, so that it can be taken back.
Ended Program::performOnRows(const Binding& binding, int argument)
{
    const auto procedure = [&] {
        return perform({binding.event, argument}, [&] { binding.procedure(session_, argument); });
    };
    const bool isOtherKey = binding.event.what == What::KeyDown && argument != form::deleteKey;
    if (binding.withRows == WithRows::Nothing || isOtherKey)
        return procedure();
    if (binding.withRows == WithRows::ReadsAgain) {
        isReadAgainSince_ = true;
        return procedure();
    }
    const bool mayAdd = binding.withRows == WithRows::TakesAwayAndAdds;
    stepBack_.begin(mayAdd);
    if (mayAdd)
        for (form::NewRows& each : newRows_)
            each.begin();
    const Ended ended = procedure();
    if (mayAdd)
        for (form::NewRows& each : newRows_)
            each.end();
    if (stepBack_.end()) {
        modelOfStep_ = form().openModel.value_or("");
        isReadAgainSince_ = false;
    }
    return ended;
}

// A model that got its first name is the same one.
void Program::forgetStepOfAnotherModel()
{
    const std::optional<std::string>& model = form().openModel;
    if (!model || *model == modelOfStep_)
        return;
    if (!modelOfStep_.empty())
        stepBack_.forget();
    modelOfStep_ = *model;
}

void Program::stepBack()
{
    if (closed_ || dispatcher_.isBusy())
        return;
    forgetFormerAction();
    form::Status& status = form().status;
    if (!stepBack_.isThere()) {
        status.tellResult("There is nothing to bring back");
        return;
    }
    const form::StepBack::Result result = stepBack_.goBack();
    const auto rows = [](std::size_t count, std::string_view one, std::string_view several) {
        return std::to_string(count).append(count == 1 ? one : several);
    };
    status.tellResult(rows(result.back, " row is back", " rows are back"));
    if (result.takenOut > 0)
        status.tellHint(rows(result.takenOut, " row that came with the action is taken out",
                             " rows that came with the action are taken out"));
    if (result.alreadyThere > 0)
        status.tellHint(rows(result.alreadyThere, " name was there again and stays as it is",
                             " names were there again and stay as they are"));
    if (isReadAgainSince_)
        status.tellHint("Their values were read before the latest \"Refresh Values\"");
    if (observedDialog_.observer != nullptr)
        observedDialog_.observer->steppedBack();
    keepRows();
    followStudy(true);
}

void Program::keepRowsIn(const std::string& folder)
{
    kept_.emplace(session_.context.system, folder);
}

void Program::keepRows()
{
    if (!kept_ || closed_ || dispatcher_.isBusy())
        return;
    form::Status& status = form().status;
    try {
        if (!kept_->follow(form()))
            return;
        const std::size_t count = kept_->leftCount();
        status.tellHint(count == 1 ? "1 row was not applied: Ctrl+Shift+Z brings it back"
                                   : std::to_string(count) +
                                         " rows were not applied: Ctrl+Shift+Z brings them back");
    }
    catch (const sys::RuntimeError& error) {
        status.tellAsWell("Rows that are not applied are not kept for the next start: " +
                          error.description());
    }
}

void Program::bringBackKept()
{
    if (closed_ || dispatcher_.isBusy())
        return;
    forgetFormerAction();
    form::Status& status = form().status;
    if (!kept_ || kept_->leftCount() == 0) {
        status.tellResult("No earlier run left rows that were not applied");
        return;
    }
    try {
        RowTexts rows = kept_->left();
        stepBack_.begin(true);
        form().InputsList.replaceRows(std::move(rows.inputs));
        form().OutputsList.replaceRows(std::move(rows.outputs));
        stepBack_.end(true);
    }
    catch (const sys::RuntimeError& error) {
        status.tellProblem("The rows cannot be brought back: " + error.description());
        return;
    }
    modelOfStep_ = form().openModel.value_or("");
    isReadAgainSince_ = false;
    status.tellResult("The rows of the earlier run are back; Ctrl+Z takes that back");
    if (observedDialog_.observer != nullptr)
        observedDialog_.observer->broughtBack();
    keepRows();
    followStudy(true);
}

const form::NewRows& Program::newRows(const form::ParameterGrid& grid) const
{
    return newRows_[&grid == &session_.form.InputsList ? 0 : 1];
}

// The form goes; only the log can tell.
void Program::finishKeeping()
{
    if (!kept_)
        return;
    try {
        kept_->finish(form());
    }
    catch (const sys::RuntimeError& error) {
        logging::logDebug(session_.context.log,
                          "Rows that are not applied are not kept: ", error.description());
    }
}

}  // namespace app
