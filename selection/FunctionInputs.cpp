#include "selection/FunctionInputs.h"

#include "femap/NumberText.h"
#include "logging/Module1.h"
#include "selection/ParameterRows.h"

#include <cstdint>
#include <string>

namespace selection
{

using femap::ReturnCode;
using form::Context;
using form::tellEngineer;
using logging::logDebug;
using logging::logPositionAndClearErrorIfAny;

namespace
{

constexpr std::string_view pointsAsValue = "X-Y Values";

void addPickedFunction(Context& context)
{
    const std::string id = femap::signBlankText(std::int64_t{context.form.function->ID()});
    const std::string title = context.form.function->title();
    logDebug(context.log, "Selected function ID=", id, " Title=", title);

    std::string row;
    form::InputCells{title, pointsAsValue, form::functionKind, id, {}, {}}.joinIn(row);
    context.form.InputsList.AddItem(row);
    logDebug(context.log, "Added function to Input list Variable Name=", title,
             " value=", pointsAsValue);

    logDebug(context.log, "Check for blank variable in Input List");
    if (removeBlankFirstRow(context.form.InputsList))
        logDebug(context.log, "Blank row found in Input List and hence deleted");
}

}  // namespace

void FetchFunctionData(Context& context)
{
    logPositionAndClearErrorIfAny(context.log, context.error, "Start of fetching function data");
    if (context.form.function == nullptr) {
        context.form.function = context.femap().feFunction();
        logDebug(context.log, "initialize function");
    }

    context.form.returnCode = static_cast<int>(ReturnCode::Ok);
    const ReturnCode picked =
        context.form.function->SelectID("Select Function for Velmar Parameter");
    context.form.returnCode = static_cast<int>(picked);
    if (picked == ReturnCode::Ok)
        addPickedFunction(context);
    else if (picked == ReturnCode::Cancel)
        tellEngineer(context, "Function selection cancelled...");
    else if (picked == ReturnCode::NotExist)
        tellEngineer(context, "No Function defined in model...");
    else
        tellEngineer(context, "Function selection failed...");
    logDebug(context.log, "End of fetching function data");
}

}  // namespace selection
