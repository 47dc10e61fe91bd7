#include "app/Bindings.h"

#include "app/FemapEvents.h"
#include "form/FormProcedures.h"
#include "generate/GenerationDriver.h"
#include "selection/InputSelection.h"
#include "selection/OutputSelection.h"
#include "selection/ValueRefresh.h"

#include <algorithm>

namespace app
{

namespace
{

using form::Context;
using selection::frmPropertyList;
using enum Binding::Messages;

// The three shapes of procedures.
template <void (*procedure)(Context&)>
void plain(Session& session, int)
{
    procedure(session.context);
}

template <void (*procedure)(Context&, frmPropertyList&)>
void withDialog(Session& session, int)
{
    procedure(session.context, session.propertyList);
}

template <void (*procedure)(Context&, int)>
void withKey(Session& session, int keyCode)
{
    procedure(session.context, keyCode);
}

// clang-format off
constexpr Binding table[] = {
    // event                      procedure                                  needsFemap waits  messages
    {"InputsButton_Click",         withDialog<selection::InputsButton_Click>,  true,  false, Go},
    {"RefreshInputs_Click",        plain<selection::RefreshInputs_Click>,      true,  false, Go},
    {"ClearInputSelection_Click",  plain<form::ClearInputSelection_Click>,     false, false, Go},
    {"InputsList_KeyDown",         withKey<form::InputsList_KeyDown>,          false, false, GoOnDelete},
    {"OutputsButton_Click",        withDialog<selection::OutputsButton_Click>, true,  false, Go},
    {"RefreshOutputs_Click",       plain<selection::RefreshOutputs_Click>,     true,  false, Go},
    {"ClearOutputSelection_Click", plain<form::ClearOutputSelection_Click>,    false, false, Go},
    {"OutputsList_KeyDown",        withKey<form::OutputsList_KeyDown>,         false, false, GoOnDelete},
    {"Solver_Click",               plain<generate::Solver_Click>,              true,  false, Go},
    {"Optimizer_Click",            plain<generate::Optimizer_Click>,           true,  false, Go},
    {"ClearAll_Click",             plain<form::ClearAll_Click>,                false, false, Go},
    {"GenerateButton_Click",       plain<generate::GenerateButton_Click>,      true,  false, Go},
    {"HScroll1_Change",            plain<form::HScroll1_Change>,               false, true,  Stay},
    {"VScroll1_Change",            plain<form::VScroll1_Change>,               false, true,  Stay},
    {"Form_Resize",                plain<form::Form_Resize>,                   false, true,  Stay},
    {femapEvent,                   FormWindowProc,                             false, true,  Stay},
};
// clang-format on

}  // namespace

std::span<const Binding> bindings()
{
    return table;
}

const Binding* findBinding(std::string_view event)
{
    const auto* const found = std::ranges::find(table, event, &Binding::event);
    return found == std::end(table) ? nullptr : found;
}

void bindComboBoxes(Session& session)
{
    const auto bind = [&session](form::ComboBox& box, std::string_view event) {
        const Binding* const binding = findBinding(event);
        box.Click = [&session, binding] { binding->procedure(session, 0); };
    };
    bind(session.form.Solver, "Solver_Click");
    bind(session.form.Optimizer, "Optimizer_Click");
}

}  // namespace app
