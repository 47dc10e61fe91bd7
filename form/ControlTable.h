// Every control of the main form: its member, and its row in the one table of what there is to know
// of it. The form, its layout, the window, the scripts and the guide all go by this table.
#pragma once

#include "form/Controls.h"
#include "form/ParameterGrid.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <variant>

namespace form
{

struct FormControls
{
    PictureBox pbOuter;
    PictureBox pbInner;

    Frame Inputs;
    ComboBox InputSelection;
    Button InputsButton;
    Button RefreshInputs;
    Button ClearInputSelection;
    ParameterGrid InputsList{inputColumn::count};

    Frame Outputs;
    ComboBox OutputSelection;
    Button OutputsButton;
    Button RefreshOutputs;
    Button ClearOutputSelection;
    ParameterGrid OutputsList{outputColumn::count};

    Frame Execution;
    Label Label1;
    TextBox CommandLine;
    Label Label2;
    ComboBox Solver;
    Label Label3;
    ComboBox Optimizer;
    Button ClearAll;
    Button GenerateButton;

    StatusText StatusLine;
    HScrollBar HScroll1;
    VScrollBar VScroll1;
};

/// A control by its member. Which alternative it is tells the control's kind.
using Member =
    std::variant<PictureBox FormControls::*, HScrollBar FormControls::*, VScrollBar FormControls::*,
                 Frame FormControls::*, Label FormControls::*, StatusText FormControls::*,
                 Button FormControls::*, TextBox FormControls::*, ComboBox FormControls::*,
                 ParameterGrid FormControls::*>;

using Kind = std::size_t;

/// The kind of the controls that have this type.
template <class Type>
constexpr Kind kindOf = Member(static_cast<Type FormControls::*>(nullptr)).index();

struct ControlRow
{
    std::string_view name;
    Member member;
    int id = 0;  // of the control's window, the same in every version
    std::string_view caption = {};
    int line = 0;   // in the frame that stands before it in the table; 0: in none
    int width = 0;  // in twips; 0: what the line has to spare
    // With Alt, presses the button or goes to the field: a letter of the button's caption, or of
    // the frame or label before the field.
    char accessKey = 0;
    std::string_view tip = {};
    std::span<const std::string_view> items = {};  // what a box offers

    Kind kind() const { return member.index(); }
};

inline constexpr std::string_view inputKinds[] = {"Nodes",     "Elements",  "Properties",
                                                  "Materials", "Functions", "LoadDefinition"};
inline constexpr std::string_view outputKinds[] = {"Nodes", "Nodes Min/Max", "Elements",
                                                   "Elements Min/Max", "Mass Properties"};
inline constexpr std::string_view solvers[] = {"NENastran", "NXNastran"};
inline constexpr std::string_view optimizers[] = {"Velmar", "KORVA"};

/// In tab order. A new row takes a new ID.
// clang-format off
inline constexpr ControlRow controlTable[] = {
    // name, member, ID, caption, line and width,
    // access key, tip, items
    {"pbOuter",              &FormControls::pbOuter,              1000},
    {"pbInner",              &FormControls::pbInner,              1001},
    {"Inputs",               &FormControls::Inputs,               1002, "Input"},
    {"InputSelection",       &FormControls::InputSelection,       1003, "", 1, 2400,
     'N', "Kind of input", inputKinds},
    {"InputsButton",         &FormControls::InputsButton,         1004, "Select...", 1, 1275,
     'E', "Pick inputs in FEMAP"},
    {"RefreshInputs",        &FormControls::RefreshInputs,        1005, "Refresh Values", 1, 1725,
     'R', "Read the inputs' values from the model again"},
    {"ClearInputSelection",  &FormControls::ClearInputSelection,  1006, "Remove Selected", 1, 1875,
     'M', "Remove the selected inputs"},
    {"InputsList",           &FormControls::InputsList,           1007, "", 2},
    {"Outputs",              &FormControls::Outputs,              1008, "Output"},
    {"OutputSelection",      &FormControls::OutputSelection,      1009, "", 1, 2400,
     'U', "Kind of output", outputKinds},
    {"OutputsButton",        &FormControls::OutputsButton,        1010, "Select...", 1, 1275,
     'T', "Pick outputs in FEMAP"},
    {"RefreshOutputs",       &FormControls::RefreshOutputs,       1011, "Refresh Values", 1, 1725,
     'F', "Read the outputs' values from the model again"},
    {"ClearOutputSelection", &FormControls::ClearOutputSelection, 1012, "Remove Selected", 1, 1875,
     'V', "Remove the selected outputs"},
    {"OutputsList",          &FormControls::OutputsList,          1013, "", 2},
    {"Execution",            &FormControls::Execution,            1014, "Execution"},
    {"Label1",               &FormControls::Label1,               1015, "Command Line", 1, 1350},
    {"CommandLine",          &FormControls::CommandLine,          1016, "", 1, 0,
     'D', "Command that runs the solver"},
    {"Label2",               &FormControls::Label2,               1017, "CAE Solver", 2, 1350},
    {"Solver",               &FormControls::Solver,               1018, "", 2, 0,
     'S', "Solver that the command line is for", solvers},
    {"Label3",               &FormControls::Label3,               1019, "PIDO Tool", 2, 975},
    {"Optimizer",            &FormControls::Optimizer,            1020, "", 2, 0,
     'P', "Tool that the files are written for", optimizers},
    {"ClearAll",             &FormControls::ClearAll,             1021, "Clear All", 2, 1500,
     'L', "Remove all inputs and outputs"},
    {"GenerateButton",       &FormControls::GenerateButton,       1022, "Apply", 2, 1500,
     'A', "Write the files of the study"},
    {"StatusLine",           &FormControls::StatusLine,           1023},
    {"HScroll1",             &FormControls::HScroll1,             1024},
    {"VScroll1",             &FormControls::VScroll1,             1025},
};
// clang-format on

/// A control of one form, and its row.
struct NamedControl : ControlRow
{
    Control* control = nullptr;

    /// Null when it is of another kind.
    template <class Type>
    Type* as() const
    {
        return kind() == kindOf<Type> ? static_cast<Type*>(control) : nullptr;
    }
};

}  // namespace form
