#include "generate/FunctionDataFile.h"

#include "femap/NumberText.h"
#include "form/FemapLock.h"
#include "generate/LinePieces.h"
#include "generate/ModelPath.h"
#include "generate/Targets.h"
#include "logging/Module1.h"

#include <cstdint>
#include <optional>
#include <string>

namespace generate
{

using femap::signBlankText;
using form::Context;
using logging::logDebug;
using logging::logPositionAndClearErrorIfAny;

namespace
{

femap::Function& functionObject(Context& context)
{
    if (!context.form.function)
        context.form.function = context.femap().feFunction();
    return *context.form.function;
}

// FEMAP's IDs begin at 1; asked for 0 it would give the function that it loaded last.
bool loadFunction(Context& context, std::optional<int> id)
{
    if (!id || *id < 1)
        return false;
    const femap::ReturnCode code = functionObject(context).Get(*id);
    context.form.returnCode = static_cast<int>(code);
    return code == femap::ReturnCode::Ok;
}

void writeBlock(TextFile& file, int id, const std::string& title,
                const femap::FunctionPoints& points)
{
    file.line("Function Definition");
    file.line(signBlankText(std::int64_t{id}) + " ");
    file.line(title);
    file.line(signBlankText(static_cast<std::int64_t>(points.x.size())));
    for (std::size_t i = 0; i < points.x.size(); ++i)
        file.line(signBlankText(points.x[i]) + "_" + signBlankText(points.y[i]));
}

void writeFunctionOf(Context& context, const ParameterRow& row, TextFile& file)
{
    logDebug(context.log, "At the Start of data fetching for ", row.name());
    const std::string_view idText = row.cell(form::inputColumn::id);
    const std::optional<int> id = femap::wholeNumber(idText);
    femap::FunctionPoints points;
    std::string title;
    bool isGiven = false;
    const bool isAnswered = context.error.attempt([&] {
        if (!loadFunction(context, id))
            return;
        points = functionObject(context).GetFunctionList();
        title = functionObject(context).title();
        isGiven = true;
    });
    if (!isAnswered)
        logPositionAndClearErrorIfAny(context.log, context.error, "Reading the points");
    if (!isGiven) {
        form::tellEngineer(context,
                           concatenated({"Unable to fetch the value for function id = ", idText}));
        return;
    }

    logDebug(context.log, "Start iterating to fetch X-Y values for ", title);
    form::showMessage(context, title + " is selected", femap::MessageColour::Normal);
    writeBlock(file, *id, title, points);
    logDebug(context.log, "X-Y values iteration complete");
    logDebug(context.log, "After X-Y value iteration");
    logDebug(context.log, "At the End of data fetching for ", row.name());
}

}  // namespace

void WriteFunctionInputs(Context& context, form::Progress& progress)
{
    logDebug(context.log, "Before writing function data");
    const ModelPath model = {modelFolder(context.femap().ModelName()), ""};
    TextFile file = openTarget(context, model, functionDataFile);
    logDebug(context.log, "Opened file ", targetPath(model, functionDataFile),
             " to write the function values");
    logDebug(context.log, "Execution of WriteFunctionInputs started");

    form::FemapLock lock(context, "Acquired Femap lock before functions data",
                         form::FemapLock::AnyPointer);
    logDebug(context.log, "Start iteration over InputsList");
    forEachRow(progress, context.grids->InputsList, [&](const ParameterRow& row) {
        if (row.cell(form::inputColumn::kind) == form::functionKind)
            writeFunctionOf(context, row, file);
    });
    logDebug(context.log, "End iteration over InputsList");
    lock.release("Released Femap lock before functions data");  // sic
    logDebug(context.log, "After writing function data");
    finish(progress, file);
}

}  // namespace generate
