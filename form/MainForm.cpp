#include "form/MainForm.h"

#include <iterator>

namespace form
{

namespace
{

constexpr std::string_view inputKinds[] = {"Nodes",     "Elements",  "Properties",
                                           "Materials", "Functions", "LoadDefinition"};
constexpr std::string_view outputKinds[] = {"Nodes", "Nodes Min/Max", "Elements",
                                            "Elements Min/Max", "Mass Properties"};
constexpr std::string_view solvers[] = {"NENastran", "NXNastran"};
constexpr std::string_view optimizers[] = {"Velmar", "KORVA"};

template <class Table>
std::vector<std::string> itemsOf(const Table& table)
{
    return {std::begin(table), std::end(table)};
}

}  // namespace

MainForm::MainForm()
{
    Inputs.Caption = "Input";
    InputSelection.List = itemsOf(inputKinds);
    InputsButton.Caption = "Select...";
    RefreshInputs.Caption = "Refresh Values";
    ClearInputSelection.Caption = "Remove Selected";

    Outputs.Caption = "Output";
    OutputSelection.List = itemsOf(outputKinds);
    OutputsButton.Caption = "Select...";
    RefreshOutputs.Caption = "Refresh Values";
    ClearOutputSelection.Caption = "Remove Selected";

    Execution.Caption = "Execution";
    Label1.Caption = "Command Line";
    Label2.Caption = "CAE Solver";
    Solver.List = itemsOf(solvers);
    Label3.Caption = "PIDO Tool";
    Optimizer.List = itemsOf(optimizers);
    ClearAll.Caption = "Clear All";
    GenerateButton.Caption = "Apply";

    // clang-format off
    controls_ = {
        {"pbOuter",              &pbOuter},
        {"pbInner",              &pbInner},
        {"Inputs",               &Inputs},
        {"InputSelection",       &InputSelection},
        {"InputsButton",         &InputsButton},
        {"RefreshInputs",        &RefreshInputs},
        {"ClearInputSelection",  &ClearInputSelection},
        {"InputsList",           &InputsList},
        {"Outputs",              &Outputs},
        {"OutputSelection",      &OutputSelection},
        {"OutputsButton",        &OutputsButton},
        {"RefreshOutputs",       &RefreshOutputs},
        {"ClearOutputSelection", &ClearOutputSelection},
        {"OutputsList",          &OutputsList},
        {"Execution",            &Execution},
        {"Label1",               &Label1},
        {"CommandLine",          &CommandLine},
        {"Label2",               &Label2},
        {"Solver",               &Solver},
        {"Label3",               &Label3},
        {"Optimizer",            &Optimizer},
        {"ClearAll",             &ClearAll},
        {"GenerateButton",       &GenerateButton},
        {"StatusLine",           &StatusLine},
        {"HScroll1",             &HScroll1},
        {"VScroll1",             &VScroll1},
    };
    // clang-format on
}

void MainForm::setMousePointers(int pointer)
{
    for (const NamedControl& each : controls_)
        each.control->MousePointer = pointer;
    if (pointersChanged)
        pointersChanged();
}

void MainForm::setEnabled(bool enabled)
{
    for (const NamedControl& each : controls_)
        each.control->Enabled = enabled;
}

}  // namespace form
