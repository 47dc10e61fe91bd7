#include "study/Recorder.h"

#include "form/FormProcedures.h"
#include "form/ListControls.h"
#include "study/StudyScript.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <string_view>

namespace study
{

using form::MainForm;
using form::ParameterGrid;
using form::What;

namespace
{

// The script lines that select the rows that are selected now.
std::string selections(const MainForm& form)
{
    std::string lines;
    for (const form::NamedControl& each : form.controls()) {
        const auto* const grid = each.as<ParameterGrid>();
        if (grid == nullptr)
            continue;
        const auto [first, last] = std::minmax(grid->Row, grid->RowSel);
        if (first >= 1 && last < grid->Rows() && (grid->Rows() > 2 || !grid->text(1, 0).empty()))
            lines.append("select ").append(each.name).append(' ' + std::to_string(grid->Row) + ' ' +
                                                             std::to_string(grid->RowSel) + '\n');
    }
    return lines;
}

bool usesSelection(const form::Event& event)
{
    return event.what == What::KeyDown || event.what == What::SelectedRows ||
           event == form::click("ClearInputSelection") ||
           event == form::click("ClearOutputSelection");
}

// The name of the grid whose values this button reads again.
std::string gridRefreshedBy(const std::string& button, const MainForm& form)
{
    const auto* const list = std::ranges::find(
        form::listControls, button,
        [&](const form::ListControls& each) { return form.named(form.*each.refresh).name; });
    return std::string(form.named(form.*list->grid).name);
}

// The script line that repeats an action; empty for what scripts do not do, such as scrolling.
std::string lineOf(const app::Action& action, const MainForm& form)
{
    const std::string control(action.event.control);
    if (action.box != nullptr)
        return "set " + control + ' ' + action.box->Text;
    switch (action.event.what) {
    case What::Click:
        return "click " + control;
    case What::SelectedRows:
        return "refresh " + gridRefreshedBy(control, form);
    case What::KeyDown:  // other keys only move the selection
        return action.argument == form::deleteKey
                   ? "key " + control + ' ' + std::to_string(form::deleteKey)
                   : "";
    case What::FemapMessage:
        return "event " + std::to_string(action.argument);
    default:
        return "";
    }
}

// What a pick line says for the way in which a dialog of FEMAP ended.
std::string pickText(femap::ReturnCode code, const std::vector<int>& ids)
{
    switch (code) {
    case femap::ReturnCode::Ok:
        return ids.empty() ? "cancel" : femap::rangesText(ids);
    case femap::ReturnCode::Cancel:
        return "cancel";
    case femap::ReturnCode::NotExist:
        return "missing";
    default:
        return "fail";
    }
}

// Names an output vector by its ID, for its title may look like more than one item.
std::string itemText(const std::string& text)
{
    const std::size_t digits = text.find_first_not_of("0123456789");
    const bool isVector = digits != 0 && digits != std::string::npos &&
                          std::string_view(text).substr(digits).starts_with(" - ");
    return isVector ? text.substr(0, digits) : text;
}

}  // namespace

Recorder::Recorder(sys::Files& files, const std::string& path, const std::string& arguments)
    : file_(files.create(path))
{
    write("start " + arguments + '\n');
    if (!failure_.empty())
        throw sys::RuntimeError(sys::ErrorNumber::FileError, failure_);
}

void Recorder::begins(const app::Action& action)
{
    before_.clear();
    if (usesSelection(action.event))
        before_ = selections(*form_);
    // No other action uses the command line.
    if (action.event == form::click("GenerateButton"))
        before_ += "set CommandLine " + form_->CommandLine.Text + '\n';
}

void Recorder::answered(const selection::frmPropertyList& dialog)
{
    std::string items;
    // Left with "Cancel" the dialog has items that are selected and none that is chosen.
    if (!dialog.selectedFields.empty() || !dialog.chosenEntries().empty())
        for (const auto& item : dialog.lstProperties.items)
            if (item.selected)
                items += (items.empty() ? "" : " | ") + itemText(item.text);
    before_ += "choose " + (items.empty() ? "cancel" : items) + '\n';
}

void Recorder::ended(const app::Action& action)
{
    const std::string line = lineOf(action, *form_);
    if (!line.empty())
        write(before_ + line + '\n');
}

void Recorder::steppedBack()
{
    write("stepback\n");
}

void Recorder::broughtBack()
{
    write("# Here the rows of an earlier run came back, which a script cannot repeat.\n");
}

void Recorder::picked(femap::ReturnCode code, const std::vector<int>& ids)
{
    before_ += "pick " + pickText(code, ids) + '\n';
}

// Flushes every line, so that nothing is lost whatever happens next.
void Recorder::write(const std::string& lines)
{
    if (!failure_.empty())
        return;
    try {
        file_->write(lines);
        file_->flush();
    }
    catch (const sys::RuntimeError& error) {
        failure_ = error.what();
    }
}

}  // namespace study
