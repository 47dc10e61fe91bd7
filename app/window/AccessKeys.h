// The access keys of the main window: with Alt, a key presses a button or goes to a field.
#pragma once

#include <windows.h>

#include <functional>
#include <span>
#include <string_view>

namespace window
{

struct AccessKey
{
    std::string_view control;
    wchar_t key;
    std::string_view tip;
};

std::span<const AccessKey> accessKeyTable();

/// The table of access keys that Windows keeps.
class AccessKeys
{
public:
    /// idOf gives a control's number.
    explicit AccessKeys(const std::function<int(std::string_view)>& idOf);
    ~AccessKeys() { DestroyAcceleratorTable(table_); }
    AccessKeys(const AccessKeys&) = delete;
    AccessKeys& operator=(const AccessKeys&) = delete;

    /// Whether the message was an access key; then its command was sent to the window.
    bool translate(HWND window, MSG& message) const;

private:
    HACCEL table_;
};

}  // namespace window
