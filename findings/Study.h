// The study as it stands: the rows and texts of the form, the model that they belong to, and what
// "Apply" would make of them.
#pragma once

#include "findings/Finding.h"
#include "findings/ModelNow.h"
#include "findings/NameOrder.h"
#include "form/Context.h"
#include "generate/ModelPath.h"
#include "generate/SolverFormat.h"
#include "generate/Targets.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace findings
{

class Study
{
public:
    /// modelFile: of the model that FEMAP has open; empty when that has no file or is not known.
    Study(form::Context& context, std::string modelFile);

    const form::MainForm& form() const { return context_.form; }
    /// The parameter rows of a grid.
    std::span<const std::string> rows(Grid grid) const;
    const std::string& command() const { return context_.form.CommandLine.Text; }

    /// None when the model has no file or its name cannot be split.
    const std::optional<generate::ModelPath>& model() const { return model_; }
    const std::string& modelFile() const { return modelFile_; }
    /// Null when the solver box names none.
    const generate::SolverFormat* solver() const;
    /// Whether "Apply" writes the file for the tool that is chosen.
    bool writes(generate::Target target) const;

    /// The names of all rows in order, made on first use.
    const NameOrder& names() const;

    // For rules on demand only. Where files lie, and FEMAP …
    form::Context& context() const { return context_; }
    /// … and what it has of the rows, read on first use.
    const ModelNow& modelNow() const;

private:
    form::Context& context_;
    std::string modelFile_;
    std::optional<generate::ModelPath> model_;
    mutable std::optional<NameOrder> names_;
    mutable std::optional<ModelNow> modelNow_;
};

/// Visits the rows that have a name with their places; the others are in no generated file.
template <class Visit>
void forEachNamedRow(const Study& study, Grid grid, Visit&& visit)
{
    int row = 0;
    for (const std::string& text : study.rows(grid)) {
        ++row;
        if (const form::ParameterRow cells(text); !cells.name().empty())
            visit(cells, Place{grid, row});
    }
}

template <class Visit>
void forEachNamedRow(const Study& study, Visit&& visit)
{
    for (const Grid grid : {Grid::Inputs, Grid::Outputs})
        forEachNamedRow(study, grid, visit);
}

}  // namespace findings
