// The kinds of inputs, each looked up in the model in its own way.
#pragma once

#include "loop/Inputs.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace loop
{

/// What the look-ups share: the study, the model and what was found so far.
struct InputSearch
{
    form::Context& context;
    const Description& described;
    const std::vector<GivenValue>& values;
    Problems& problems;
    Inputs found = {};

    form::ParameterRow row(std::size_t i) const
    {
        return form::ParameterRow(described.rows[i].text);
    }
    /// A problem of the row's line.
    void refuse(std::size_t i, const std::string& what);
    /// The same where what the row points at has another name than the row, or none.
    void refuseName(std::size_t i, const std::string& present);
    bool hasName(std::size_t i, const std::string& present) const;
    /// The number that is given for the row as a value of the type that the model has there;
    /// nothing where none is given. A number that does not fit is a problem.
    std::optional<femap::Value> valueFor(std::size_t i, const femap::Value& present);
};

/// Nodes, elements, properties and materials, …
void findEntities(InputSearch& search, const std::vector<std::size_t>& rows);
/// … the loads of definitions of the active load set …
void findLoads(InputSearch& search, const std::vector<std::size_t>& rows);
/// … and functions, whose points stand in a file of their own.
void findFunctions(InputSearch& search, const std::vector<std::size_t>& rows,
                   const GivenFunctions& given);

}  // namespace loop
