// Whose window holds the form as a pane, and whether that program has ended.
#pragma once

#include <windows.h>

namespace window
{

class PaneOwner
{
public:
    PaneOwner() = default;
    ~PaneOwner() { forget(); }
    PaneOwner(const PaneOwner&) = delete;
    PaneOwner& operator=(const PaneOwner&) = delete;

    /// Whether the form's window is in another one.
    static bool isPane(HWND form);

    /// Looks in which program's window the form's window is now.
    void look(HWND form);
    /// Whether the form was a pane and the program has ended; waits a moment for that, for a
    /// program's windows go a little earlier than the program.
    bool hasEnded() const;

private:
    void forget();

    DWORD id_ = 0;  // 0: the form is a window of its own
    HANDLE process_ = nullptr;
};

}  // namespace window
