#include "app/ModelLine.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace app
{

namespace
{

std::string nameOf(const std::optional<std::string>& modelFile)
{
    if (!modelFile)
        return "No model is open";
    if (modelFile->empty())
        return "A model that was never saved";
    return modelFile->substr(modelFile->find_last_of("\\/") + 1);
}

std::string number(std::size_t count)
{
    return count == 0 ? "no" : std::to_string(count);
}

}  // namespace

std::string ModelLine::text(const form::MainForm& form, int selected)
{
    const std::string model = form.openModel.value_or("");
    const form::ParameterGrid& inputs = form.InputsList;
    const form::ParameterGrid& outputs = form.OutputsList;
    if (!isCounted_ || inputs_ != inputs.changes() || outputs_ != outputs.changes() ||
        applied_ != form.stored.applied.changes() || model_ != model) {
        counts_ = form.stored.applied.compare(model, inputs, outputs);
        inputs_ = inputs.changes();
        outputs_ = outputs.changes();
        applied_ = form.stored.applied.changes();
        model_ = model;
        isCounted_ = true;
    }
    std::string text = nameOf(form.openModel) + ": " + number(counts_.rows) +
                       (counts_.rows == 1 ? " row" : " rows");
    if (selected > 0)
        text += ", " + std::to_string(selected) + " selected";
    if (counts_.withoutValue > 0)
        text += ", " + std::to_string(counts_.withoutValue) + " without a value";
    if (counts_.notApplied > 0)
        text += ", " + std::to_string(counts_.notApplied) + " not applied";
    else if (counts_.rows > 0)
        text += ", all applied";
    return text;
}

bool ModelLine::isNotApplied(const form::MainForm& form, const form::ParameterGrid& grid,
                             int row) const
{
    const bool isInput = &grid == &form.InputsList;
    const std::string_view text = grid.rows()[static_cast<std::size_t>(row - 1)];
    return !form.stored.applied.hold(form.openModel.value_or(""), text, isInput) ||
           std::ranges::binary_search(isInput ? counts_.surplusInputs : counts_.surplusOutputs,
                                      row);
}

}  // namespace app
