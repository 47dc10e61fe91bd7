// Reads the value of a row again from the open model, as "Refresh Values" does.
#pragma once

#include "femap/Objects.h"
#include "form/Context.h"
#include "selection/RefreshPlan.h"

#include <map>
#include <memory>
#include <string>

namespace selection
{

/// One entity object for each kind of input, made on first use and then told what to prefetch.
class FreshEntities
{
public:
    /// For these rows of the grid.
    FreshEntities(form::Context& context, const form::ParameterGrid& grid,
                  const form::RowRange& rows)
        : context_(context), plan_(inputsToRead(grid, rows))
    {}

    femap::Entity& operator[](const std::string& kind);

private:
    form::Context& context_;
    std::map<std::string, KindReading> plan_;
    std::map<std::string, std::unique_ptr<femap::Entity>> made_;
};

/// The value of an input row, whose entity is loaded.
std::string freshValue(femap::Entity& loaded, const form::ParameterRow& row);
/// The value of an output row that is read from a vector, which is loaded.
std::string freshValue(femap::OutputVector& loaded, const form::ParameterRow& row);
/// The value of a row of the mass. Raises RuntimeError when there is no such quantity.
std::string freshValue(const femap::MassProperties& measured, const form::ParameterRow& row);

}  // namespace selection
