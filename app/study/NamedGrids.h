#pragma once

#include "app/form/MainForm.h"

#include <string_view>

namespace study
{

/// A grid of the form by the name that scripts call it.
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
