#include "app/window/BoxHabits.h"

#include <algorithm>
#include <commctrl.h>
#include <string>
#include <windowsx.h>

namespace window
{

namespace
{

// With these Windows would change the choice of a closed box.
constexpr WPARAM keysThatMove[] = {VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT};

bool isOpen(HWND box)
{
    return ComboBox_GetDroppedState(box) != FALSE;
}

// Backspace and Ctrl+Backspace come as characters, too, as do Ctrl+V and the like.
bool isText(WPARAM character)
{
    constexpr WPARAM deletedWord = 0x7F;
    return character >= L' ' && character != deletedWord;
}

// What the item has beyond the typed letters is selected, so that the next letter replaces it. In
// the middle of a text nothing is completed.
void complete(HWND box, HWND field)
{
    std::wstring typed(static_cast<std::size_t>(GetWindowTextLengthW(field)) + 1, L'\0');
    typed.resize(static_cast<std::size_t>(
        GetWindowTextW(field, typed.data(), static_cast<int>(typed.size()))));
    DWORD caret = 0;
    SendMessageW(field, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    if (typed.empty() || caret != typed.size())
        return;
    const int item = ComboBox_FindString(box, -1, typed.c_str());
    if (item == CB_ERR)
        return;
    ComboBox_SetCurSel(box, item);
    SendMessageW(field, EM_SETSEL, typed.size(), -1);
}

// Of the box and of the field in it.
LRESULT CALLBACK boxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                              DWORD_PTR reference)
{
    const auto box = reinterpret_cast<HWND>(reference);
    const bool isField = window != box;
    switch (message) {
    case WM_KEYDOWN:
        if (isField && !isOpen(box) && std::ranges::count(keysThatMove, wParam) > 0) {
            ComboBox_ShowDropdown(box, TRUE);
            return 0;
        }
        break;
    case WM_CHAR:
        if (isField && isText(wParam)) {
            const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
            complete(box, window);
            return result;
        }
        break;
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
        if (!isOpen(box))
            return SendMessageW(GetParent(box), message, wParam, lParam);
        break;
    case WM_NCDESTROY:
        RemoveWindowSubclass(window, boxProcedure, id);
        break;
    default:
        break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace

void giveHabits(HWND box)
{
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    GetComboBoxInfo(box, &parts);
    for (const HWND window : {box, parts.hwndItem})
        SetWindowSubclass(window, boxProcedure, 1, reinterpret_cast<DWORD_PTR>(box));
}

}  // namespace window
