#include "app/window/AccessKeys.h"

#include <vector>

namespace window
{

namespace
{

// clang-format off
constexpr AccessKey table[] = {
    {"InputSelection",       L'N', "Kind of input"},
    {"InputsButton",         L'I', "Pick inputs in FEMAP"},
    {"RefreshInputs",        L'R', "Read the inputs' values from the model again"},
    {"ClearInputSelection",  L'M', "Remove the selected inputs"},
    {"OutputSelection",      L'U', "Kind of output"},
    {"OutputsButton",        L'O', "Pick outputs in FEMAP"},
    {"RefreshOutputs",       L'F', "Read the outputs' values from the model again"},
    {"ClearOutputSelection", L'V', "Remove the selected outputs"},
    {"CommandLine",          L'L', "Command that runs the solver"},
    {"Solver",               L'S', "Solver that the command line is for"},
    {"Optimizer",            L'P', "Tool that the files are written for"},
    {"ClearAll",             L'C', "Remove all inputs and outputs"},
    {"GenerateButton",       L'A', "Write the files of the study"},
};
// clang-format on

}  // namespace

std::span<const AccessKey> accessKeyTable()
{
    return table;
}

AccessKeys::AccessKeys(const std::function<int(std::string_view)>& idOf)
{
    std::vector<ACCEL> entries;
    for (const AccessKey& each : table)
        entries.push_back(
            {FALT | FVIRTKEY, static_cast<WORD>(each.key), static_cast<WORD>(idOf(each.control))});
    table_ = CreateAcceleratorTableW(entries.data(), static_cast<int>(entries.size()));
}

bool AccessKeys::translate(HWND window, MSG& message) const
{
    return TranslateAcceleratorW(window, table_, &message) != 0;
}

}  // namespace window
