#include "app/Bindings.h"

#include "app/FemapEvents.h"
#include "app/Version.h"
#include "findings/Findings.h"
#include "form/FormProcedures.h"
#include "generate/GenerationDriver.h"
#include "provenance/StudySheetFile.h"
#include "selection/InputSelection.h"
#include "selection/OutputSelection.h"
#include "selection/ValueRefresh.h"

#include <algorithm>
#include <string>
#include <vector>

namespace app
{

namespace
{

using form::Context;
using selection::frmPropertyList;
using enum form::What;
using enum WithRows;

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

// What is found in the study stands in the sheet as it was before.
void apply(Session& session, int)
{
    Context& context = session.context;
    if (!session.keepsProvenance) {
        generate::GenerateButton_Click(context);
        return;
    }
    const std::vector<findings::Finding> found = findings::allFindings(context);
    generate::GenerateButton_Click(context, [&](const std::vector<std::string>& files) {
        provenance::writeStudySheet(context, {version(), found, files});
    });
}

// clang-format off
constexpr Binding table[] = {
    // event                          procedure                                   needsFemap, withRows
    {{"InputsButton", Click},         withDialog<selection::InputsButton_Click>,  true,  TakesAwayAndAdds},
    {{"RefreshInputs", Click},        plain<selection::RefreshInputs_Click>,      true,  ReadsAgain},
    {{"RefreshInputs", SelectedRows}, plain<selection::refreshSelectedInputs>,    true,  ReadsAgain},
    {{"ClearInputSelection", Click},  plain<form::ClearInputSelection_Click>,     false, TakesAway},
    {{"InputsList", KeyDown},         withKey<form::InputsList_KeyDown>,          false, TakesAway},
    {{"OutputsButton", Click},        withDialog<selection::OutputsButton_Click>, true,  TakesAwayAndAdds},
    {{"RefreshOutputs", Click},       plain<selection::RefreshOutputs_Click>,     true,  ReadsAgain},
    {{"RefreshOutputs", SelectedRows}, plain<selection::refreshSelectedOutputs>,  true,  ReadsAgain},
    {{"ClearOutputSelection", Click}, plain<form::ClearOutputSelection_Click>,    false, TakesAway},
    {{"OutputsList", KeyDown},        withKey<form::OutputsList_KeyDown>,         false, TakesAway},
    {{"Solver", Click},               plain<generate::Solver_Click>,              true},
    {{"Optimizer", Click},            plain<generate::Optimizer_Click>,           true},
    {{"ClearAll", Click},             plain<form::ClearAll_Click>,                false, TakesAway},
    {{"GenerateButton", Click},       apply,                                      true},
    {{"HScroll1", Change},            plain<form::HScroll1_Change>,               false},
    {{"VScroll1", Change},            plain<form::VScroll1_Change>,               false},
    {{"Form", Resize},                plain<form::Form_Resize>,                   false},
    {femapEvent,                      FormWindowProc,                             false},
};
// clang-format on

}  // namespace

std::span<const Binding> bindings()
{
    return table;
}

const Binding* findBinding(const form::Event& event)
{
    const auto* const found = std::ranges::find(table, event, &Binding::event);
    return found == std::end(table) ? nullptr : found;
}

void bindComboBoxes(Session& session)
{
    for (const form::NamedControl& each : session.form.controls()) {
        auto* const box = each.as<form::ComboBox>();
        const Binding* const binding = findBinding(form::click(each.name));
        if (box != nullptr && binding != nullptr)
            box->Click = [&session, binding] { binding->procedure(session, 0); };
    }
}

}  // namespace app
