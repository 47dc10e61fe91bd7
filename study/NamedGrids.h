// The grids of the form under the names that scripts use.
#pragma once

#include "form/MainForm.h"

#include <string_view>

namespace study
{

struct NamedGrid
{
    std::string_view name;
    form::ParameterGrid form::MainForm::*grid;
};

inline constexpr NamedGrid namedGrids[] = {
    {"InputsList", &form::MainForm::InputsList},
    {"OutputsList", &form::MainForm::OutputsList},
};

}  // namespace study
