// MainWindow: creates the controls of the main window, their captions and tips.
#include "app/window/AccessKeys.h"
#include "app/window/MainWindow.h"
#include "windows/Text.h"

namespace window
{

using windows::toWide;

// In tab order, from top to bottom.
void MainWindow::createControls()
{
    constexpr const wchar_t* button = L"BUTTON";
    constexpr const wchar_t* label = L"STATIC";
    form::MainForm& form = program_.form();
    const HWND outer = panel(form.pbOuter, window_);
    panel(form.pbInner, outer);

    const auto createFrame = [&](form::Frame& frame) {
        create(frame, button, frame.Caption, BS_GROUPBOX, WS_EX_TRANSPARENT);
    };
    const auto createButton = [&](form::Button& each) {
        create(each, button, each.Caption, WS_TABSTOP | BS_PUSHBUTTON);
    };
    const auto createLabel = [&](form::Label& each) {
        create(each, label, each.Caption, SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS);
    };
    const auto createBox = [&](form::ComboBox& box) {
        const HWND window =
            create(box, L"COMBOBOX", "", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL);
        for (const std::string& item : box.List)
            SendMessageW(window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(item).c_str()));
    };

    createFrame(form.Inputs);
    createBox(form.InputSelection);
    createButton(form.InputsButton);
    createButton(form.RefreshInputs);
    createButton(form.ClearInputSelection);
    inputs_ = createGrid(form.InputsList);

    createFrame(form.Outputs);
    createBox(form.OutputSelection);
    createButton(form.OutputsButton);
    createButton(form.RefreshOutputs);
    createButton(form.ClearOutputSelection);
    outputs_ = createGrid(form.OutputsList);

    createFrame(form.Execution);
    createLabel(form.Label1);
    const HWND commandLine =
        create(form.CommandLine, L"EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE);
    SendMessageW(commandLine, EM_SETLIMITTEXT, 0, 0);  // as long as Windows can
    createLabel(form.Label2);
    createBox(form.Solver);
    createLabel(form.Label3);
    createBox(form.Optimizer);
    createButton(form.ClearAll);
    createButton(form.GenerateButton);
    status_ = std::make_unique<StatusView>(windows_.at(&form.pbInner), idOf(form.StatusLine));
    windows_[&form.StatusLine] = status_->window();

    createScrollBars();
    form.pointersChanged = [this] { showPointer(); };
    createTips();
}

std::unique_ptr<GridView> MainWindow::createGrid(form::ParameterGrid& grid)
{
    const auto onKey = [this, &grid](int key) {
        if (grid.Enabled)
            pressInGrid(grid, key);
    };
    auto view =
        std::make_unique<GridView>(windows_.at(&program_.form().pbInner), idOf(grid), grid, onKey);
    windows_[&grid] = view->window();
    return view;
}

void MainWindow::createScrollBars()
{
    form::MainForm& form = program_.form();
    for (form::ScrollBar* const bar : {&form.HScroll1, &form.VScroll1})
        windows_[bar] = createControl(window_, L"SCROLLBAR", "",
                                      bar == &form.VScroll1 ? SBS_VERT : SBS_HORZ, 0, idOf(*bar));
}

// The tips name the access keys, for the captions have no room for them.
void MainWindow::createTips()
{
    tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX,
                            CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, window_,
                            nullptr, GetModuleHandleW(nullptr), nullptr);
    for (const AccessKey& each : accessKeyTable())
        for (const form::MainForm::NamedControl& control : program_.form().controls()) {
            if (control.name != each.control)
                continue;
            std::wstring text = toWide(each.tip) + L"  (Alt+" + each.key + L")";
            TTTOOLINFOW info{};
            info.cbSize = sizeof info;
            info.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
            info.hwnd = window_;
            info.uId = reinterpret_cast<UINT_PTR>(windows_.at(control.control));
            info.lpszText = text.data();
            SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info));
        }
    status_->addTip(tips_, window_);
    constexpr int timeToRead = 30000;  // milliseconds; messages are longer than usual tips
    SendMessageW(tips_, TTM_SETDELAYTIME, TTDT_AUTOPOP, timeToRead);
}

HWND MainWindow::create(form::Control& control, const wchar_t* windowClass, std::string_view text,
                        DWORD style, DWORD extendedStyle)
{
    const HWND parent = windows_.at(&program_.form().pbInner);
    return windows_[&control] =
               createControl(parent, windowClass, text, style, extendedStyle, idOf(control));
}

HWND MainWindow::panel(form::Control& control, HWND parent)
{
    const HWND window =
        CreateWindowExW(WS_EX_CONTROLPARENT, panelClass, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
                        parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(idOf(control))),
                        GetModuleHandleW(nullptr), this);
    return windows_[&control] = window;
}

}  // namespace window
