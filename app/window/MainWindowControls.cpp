// MainWindow: creates the windows of the controls, and their tips.
#include "app/window/AccessKeys.h"
#include "app/window/BoxHabits.h"
#include "app/window/MainWindow.h"
#include "app/window/Tips.h"
#include "form/ListControls.h"
#include "windows/Text.h"

#include <algorithm>
#include <iterator>

namespace window
{

using form::kindOf;
using windows::toWide;

namespace
{

// What Windows has for each kind of control; the others have classes of their own here.
struct WindowOfKind
{
    form::Kind kind;
    const wchar_t* windowClass;
    DWORD style;
    DWORD extendedStyle;
    bool isContent;  // else it lies on the frame
};

// clang-format off
constexpr WindowOfKind windowsOfKinds[] = {
    {kindOf<form::Frame>,      L"BUTTON",    BS_GROUPBOX, WS_EX_TRANSPARENT, true},
    {kindOf<form::Label>,      L"STATIC",    SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS, 0,
     true},
    {kindOf<form::Button>,     L"BUTTON",    WS_TABSTOP | BS_PUSHBUTTON, 0, true},
    {kindOf<form::TextBox>,    L"EDIT",      WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, true},
    {kindOf<form::ComboBox>,   L"COMBOBOX",
     WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, 0, true},
    {kindOf<form::HScrollBar>, L"SCROLLBAR", SBS_HORZ, 0, false},
    {kindOf<form::VScrollBar>, L"SCROLLBAR", SBS_VERT, 0, false},
};
// clang-format on

// The key to underline in a caption: a button's own, else that of the field behind it.
char accessKeyIn(const form::ControlRow& control)
{
    if (control.accessKey != 0 || control.caption.empty())
        return control.accessKey;
    const auto* const row =
        std::ranges::find(form::controlTable, control.id, &form::ControlRow::id);
    const auto* const next = std::next(row);
    return next != std::end(form::controlTable) && next->caption.empty() ? next->accessKey : '\0';
}

}  // namespace

// A panel lies in the one before it, the content in the last one.
void MainWindow::createControls()
{
    HWND parent = window_;
    for (const form::NamedControl& each : program_.form().controls()) {
        const HWND window = create(each, parent);
        windows_[each.control] = window;
        if (each.as<form::PictureBox>() != nullptr)
            parent = window;
    }
    modelLineView_ = std::make_unique<StatusView>(parent, idModelLine);
    findField_.create(parent);
    windows_[&findField_.labelPlace()] = findField_.labelWindow();
    windows_[&findField_.textPlace()] = findField_.textWindow();
    program_.form().pointersChanged = [this] { showPointer(); };
    addTips();
}

HWND MainWindow::create(const form::NamedControl& control, HWND parent)
{
    if (control.as<form::PictureBox>() != nullptr)
        return createPanel(parent, control.id);
    if (auto* const grid = control.as<form::ParameterGrid>())
        return createGrid(*grid, parent, control.id);
    if (control.as<form::StatusText>() != nullptr) {
        status_ = std::make_unique<StatusView>(parent, control.id);
        return status_->window();
    }
    const WindowOfKind& row =
        *std::ranges::find(windowsOfKinds, control.kind(), &WindowOfKind::kind);
    const HWND window = createControl(row.isContent ? parent : window_, row.windowClass,
                                      withAccessKey(control.caption, accessKeyIn(control)),
                                      row.style, row.extendedStyle, control.id);
    for (const std::string_view item : control.items)
        SendMessageW(window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(item).c_str()));
    if (control.as<form::TextBox>() != nullptr)
        SendMessageW(window, EM_SETLIMITTEXT, 0, 0);  // as long as Windows can
    if (control.as<form::ComboBox>() != nullptr)
        giveHabits(window);
    return window;
}

HWND MainWindow::createPanel(HWND parent, int id)
{
    return CreateWindowExW(WS_EX_CONTROLPARENT, panelClass, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
                           parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                           GetModuleHandleW(nullptr), this);
}

HWND MainWindow::createGrid(form::ParameterGrid& grid, HWND parent, int id)
{
    const auto onKey = [this, &grid](int key) {
        if (grid.Enabled)
            pressInGrid(grid, key);
    };
    grids_[&grid] = std::make_unique<GridView>(parent, id, grid,
                                               form::listOf(program_.form(), grid).furtherHeadings,
                                               onKey, [this] { showModelLine(); });
    grids_.at(&grid)->setMarks(marksOf(grid));
    grids_.at(&grid)->setTips([this, &grid](int row) { return tipOf(grid, row); });
    return grids_.at(&grid)->window();
}

// The tips name the access keys as well, for those of boxes are in captions beside them.
void MainWindow::addTips()
{
    tips_ = createTips(window_);
    for (const form::NamedControl& each : program_.form().controls()) {
        if (each.tip.empty())
            continue;
        std::string text(each.tip);
        if (each.accessKey != 0)
            text.append("  (Alt+").append(1, each.accessKey).append(")");
        addTip(tips_, window_, windows_.at(each.control), text);
    }
    status_->addTip(tips_, window_);
    modelLineView_->addTip(tips_, window_);
}

}  // namespace window
