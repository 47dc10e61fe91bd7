#include "generate/FunctionDataFile.h"

#include "femap/NumberText.h"
#include "form/FemapLock.h"
#include "generate/LinePieces.h"
#include "generate/ModelPath.h"
#include "generate/Targets.h"
#include "logging/Module1.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace generate
{

using femap::signBlankText;
using form::Context;
using logging::logDebug;
using logging::logPositionAndClearErrorIfAny;

namespace
{

constexpr std::string_view blockStart = "Function Definition";
constexpr char betweenCoordinates = '_';

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
    file.line(blockStart);
    file.line(signBlankText(std::int64_t{id}) + " ");
    file.line(title);
    file.line(signBlankText(static_cast<std::int64_t>(points.x.size())));
    for (std::size_t i = 0; i < points.x.size(); ++i)
        file.line(signBlankText(points.x[i]) + betweenCoordinates + signBlankText(points.y[i]));
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

/// Reads one block after the other.
class BlockReader
{
public:
    BlockReader(std::span<const std::string> lines, const LineProblem& tell)
        : lines_(lines), tell_(tell)
    {}

    std::vector<ReadFunction> blocks()
    {
        std::vector<ReadFunction> result;
        for (;;) {
            while (at_ < lines_.size() && lines_[at_].empty())
                ++at_;
            if (at_ >= lines_.size())
                return result;
            ReadFunction block;
            block.line = at_ + 1;
            if (read(block))
                result.push_back(std::move(block));
            else
                passBlock();
        }
    }

private:
    bool read(ReadFunction& block)
    {
        if (lines_[at_++] != blockStart)
            return refuse("a block begins with \"" + std::string(blockStart) + '"');
        const std::optional<int> id = femap::wholeNumber(next());
        if (!id || *id < 1)
            return refuse("the ID of the function is missing");
        block.id = *id;
        block.title = next();
        const std::optional<int> points = femap::wholeNumber(next());
        if (!points || *points < 0)
            return refuse("the number of points is missing");
        for (int i = 0; i < *points; ++i)
            if (!readPoint(block.points))
                return refuse("a point is an X and a Y with \"_\" between them, and there are " +
                              std::to_string(*points) + " of them");
        return true;
    }

    bool readPoint(femap::FunctionPoints& points)
    {
        const std::string_view line = next();
        const std::size_t middle = std::min(line.find(betweenCoordinates), line.size());
        const auto x = femap::realNumberOfOthers(line.substr(0, middle));
        const auto y = femap::realNumberOfOthers(line.substr(std::min(middle + 1, line.size())));
        if (!x || !y)
            return false;
        points.x.push_back(*x);
        points.y.push_back(*y);
        return true;
    }

    // Empty beyond the last line.
    std::string_view next()
    {
        ++at_;
        return at_ <= lines_.size() ? std::string_view(lines_[at_ - 1]) : std::string_view();
    }

    // Of the line that was read last.
    bool refuse(const std::string& problem)
    {
        tell_(at_, problem);
        return false;
    }

    void passBlock()
    {
        at_ -= at_ <= lines_.size() && lines_[at_ - 1] == blockStart ? 1 : 0;
        while (at_ < lines_.size() && lines_[at_] != blockStart)
            ++at_;
    }

    std::span<const std::string> lines_;
    const LineProblem& tell_;
    std::size_t at_ = 0;
};

}  // namespace

std::vector<ReadFunction> readFunctionBlocks(std::span<const std::string> lines,
                                             const LineProblem& tell)
{
    return BlockReader(lines, tell).blocks();
}

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
