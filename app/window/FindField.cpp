#include "app/window/FindField.h"

#include <algorithm>
#include <commctrl.h>

namespace window
{

namespace
{

// In twips.
constexpr int gapAbove = 60;
constexpr int fieldHeight = 330;
constexpr int labelWidth = 600;
constexpr int labelHeight = 225;
constexpr int widestField = 6000;

}  // namespace

void FindField::create(HWND parent)
{
    label_ = createControl(parent, L"STATIC", "Find", SS_LEFT | SS_NOPREFIX, 0, idLabel);
    text_ =
        createControl(parent, L"EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, idText);
    SetWindowSubclass(text_, procedure, 1, 0);
    close();
}

void FindField::show(bool isShown) const
{
    for (const HWND each : {label_, text_})
        ShowWindow(each, isShown ? SW_SHOWNA : SW_HIDE);
}

// Behind the list in the order of Tab as well.
void FindField::open(form::ParameterGrid& list, HWND window)
{
    list_ = &list;
    for (const HWND each : {text_, label_})
        SetWindowPos(each, window, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    show(true);
    SetFocus(text_);
    SendMessageW(text_, EM_SETSEL, 0, -1);
}

void FindField::close()
{
    list_ = nullptr;
    show(false);
}

void FindField::layOut()
{
    if (list_ == nullptr)
        return;
    textPlace_.Left = list_->Left + labelWidth;
    textPlace_.Top = list_->Top + list_->Height - height + gapAbove;
    textPlace_.Width = std::min(list_->Width - labelWidth, widestField);
    textPlace_.Height = fieldHeight;
    labelPlace_.Left = list_->Left;
    labelPlace_.Top = textPlace_.Top + (fieldHeight - labelHeight) / 2;
    labelPlace_.Width = labelWidth;
    labelPlace_.Height = labelHeight;
}

LRESULT CALLBACK FindField::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR, DWORD_PTR)
{
    const bool isOwnKey = wParam == VK_RETURN || wParam == VK_ESCAPE;
    switch (message) {
    case WM_GETDLGCODE:  // else the form itself takes these keys
        if (isOwnKey)
            return DLGC_WANTMESSAGE;
        break;
    case WM_KEYDOWN:
        if (isOwnKey) {
            SendMessageW(GetParent(window), WM_COMMAND,
                         MAKEWPARAM(idText, wParam == VK_RETURN ? entered : left),
                         reinterpret_cast<LPARAM>(window));
            return 0;
        }
        break;
    case WM_CHAR:  // Windows would sound a bell
        if (isOwnKey)
            return 0;
        break;
    default:
        break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace window
