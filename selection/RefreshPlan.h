#pragma once

#include "app/form/MainForm.h"
#include "femap/Objects.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace selection
{

/// Whether input rows of that kind are read again. The others keep their values.
bool isRefreshed(std::string_view kind);

/// The entities of one kind that a refresh reads, and what it reads of them; IDs ascend.
struct KindReading
{
    std::vector<int> ids;
    std::vector<femap::MemberName> members;
};

/// What refreshing the rows will read, as far as their cells make sense. The inputs by kind.
std::map<std::string, KindReading> inputsToRead(const form::ParameterGrid& grid);
std::vector<femap::VectorReading> outputsToRead(const form::ParameterGrid& grid);

}  // namespace selection
