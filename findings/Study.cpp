#include "findings/Study.h"

#include "generate/GenerationDriver.h"

#include <algorithm>
#include <utility>

namespace findings
{

Study::Study(form::Context& context, std::string modelFile)
    : context_(context), modelFile_(std::move(modelFile))
{
    sys::PendingError noName;  // "Apply" tells it
    if (!modelFile_.empty())
        noName.attempt([&] { model_ = generate::splitModelPath(modelFile_); });
}

std::span<const std::string> Study::rows(Grid grid) const
{
    return grid == Grid::Inputs ? form().InputsList.rows() : form().OutputsList.rows();
}

const generate::SolverFormat* Study::solver() const
{
    return generate::findSolverFormat(form().Solver.Text);
}

bool Study::writes(generate::Target target) const
{
    const auto files = generate::filesOfTool(form().Optimizer.Text);
    return std::ranges::find(files, target) != files.end();
}

const NameOrder& Study::names() const
{
    if (!names_)
        names_.emplace(rows(Grid::Inputs), rows(Grid::Outputs));
    return *names_;
}

const ModelNow& Study::modelNow() const
{
    if (!modelNow_)
        modelNow_ = readModelNow(context_);
    return *modelNow_;
}

}  // namespace findings
