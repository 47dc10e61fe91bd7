#include "app/window/AccessKeys.h"

#include "femap/Names.h"
#include "form/ControlTable.h"

#include <algorithm>

namespace window
{

namespace
{

HACCEL createTable(std::vector<ACCEL> entries)
{
    for (const form::ControlRow& each : form::controlTable)
        if (each.accessKey != 0)
            entries.push_back(
                {FALT | FVIRTKEY, static_cast<WORD>(each.accessKey), static_cast<WORD>(each.id)});
    return CreateAcceleratorTableW(entries.data(), static_cast<int>(entries.size()));
}

}  // namespace

std::string withAccessKey(std::string_view caption, char key)
{
    std::string result(caption);
    if (key == 0)
        return result;
    const auto place = std::ranges::find_if(
        result, [key](char letter) { return femap::isSameLetter(letter, key); });
    if (place != result.end())
        result.insert(place, '&');
    return result;
}

AccessKeys::AccessKeys(const std::vector<ACCEL>& others) : table_(createTable(others)) {}

bool AccessKeys::translate(HWND window, MSG& message) const
{
    // Alt that is let go would open the window's menu, which takes the keys that follow, unless
    // Windows heard of another key.
    if (message.message == WM_SYSKEYDOWN && message.wParam >= 'A' && message.wParam <= 'Z')
        DefWindowProcW(window, message.message, message.wParam, message.lParam);
    return TranslateAcceleratorW(window, table_, &message) != 0;
}

}  // namespace window
