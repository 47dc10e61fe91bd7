// What "Refresh Values" will read from FEMAP, taken from the rows before the first is read.
#pragma once

#include "femap/Objects.h"
#include "form/MainForm.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace selection
{

/// Whether input rows of that kind are read again. The others keep their values.
bool isRefreshed(std::string_view kind);

/// How the value of an output row of that kind is read.
form::Refreshed outputReading(std::string_view kind);

/// The entities of one kind that a refresh reads, and what it reads of them; IDs ascend.
struct KindReading
{
    std::vector<int> ids;
    std::vector<femap::MemberName> members;
};

/// Of these rows; those whose cells make no sense are left out. The inputs are sorted by kind.
std::map<std::string, KindReading> inputsToRead(const form::ParameterGrid& grid,
                                                const form::RowRange& rows);
std::vector<femap::VectorReading> outputsToRead(const form::ParameterGrid& grid,
                                                const form::RowRange& rows);

}  // namespace selection
