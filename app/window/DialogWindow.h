// What the form's own windows have in common: their font and least size at each resolution, and
// which messages end in them.
#pragma once

#include "app/window/Controls.h"

#include <windows.h>

#include <memory>

namespace window
{

class DialogWindow
{
public:
    virtual ~DialogWindow() = default;
    DialogWindow(const DialogWindow&) = delete;
    DialogWindow& operator=(const DialogWindow&) = delete;

protected:
    DialogWindow() = default;

    /// Returns what it was ended with.
    INT_PTR showModalTo(HWND owner);
    /// The same beside its owner: it is there, but not shown yet. False: Windows refuses it.
    bool createBeside(HWND owner);

    virtual INT_PTR answer(UINT message, WPARAM wParam, LPARAM lParam);

    /// The window is there, without controls.
    virtual void initialise() {}
    /// What this window does besides; FALSE: as Windows does.
    virtual INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    virtual void layOut() = 0;
    /// All controls have their font.
    virtual void resolutionChanged() {}
    /// Of its inside, in twips; none: Windows' own.
    virtual SIZE leastSize() const { return {}; }

    void applyResolution(UINT dotsPerInch);
    HWND control(int id) const { return GetDlgItem(window_, id); }

    HWND window_ = nullptr;
    Pixels pixels_{USER_DEFAULT_SCREEN_DPI};

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    std::unique_ptr<Font> font_;
};

}  // namespace window
