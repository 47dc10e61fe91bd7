// The access keys of the main window: with Alt, a key presses a button or goes to a field. Keys
// without Alt are commands of the form.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace window
{

/// A caption as Windows wants it, with the first such letter underlined, in capitals or not.
std::string withAccessKey(std::string_view caption, char key);

/// The table of access keys that Windows keeps.
class AccessKeys
{
public:
    /// Of the form's controls, and others.
    explicit AccessKeys(const std::vector<ACCEL>& others);
    ~AccessKeys() { DestroyAcceleratorTable(table_); }
    AccessKeys(const AccessKeys&) = delete;
    AccessKeys& operator=(const AccessKeys&) = delete;

    /// Whether the message was an access key; then its command was sent to the window.
    bool translate(HWND window, MSG& message) const;

private:
    HACCEL table_;
};

}  // namespace window
