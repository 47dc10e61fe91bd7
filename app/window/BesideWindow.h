// A window beside the form, which stays usable: it opens at the form's right and is there until it
// is closed, by Esc too.
#pragma once

#include "app/window/DialogWindow.h"

#include <windows.h>

#include <string>
#include <utility>

namespace window
{

class BesideWindow : public DialogWindow
{
public:
    /// Opens it beside its owner, if it is not open, and gives it the keyboard.
    void open(HWND owner);
    bool isOpen() const { return window_ != nullptr; }
    void close();
    /// Whether the message was for a key of this window, and is done with. Keys of the form's
    /// commands are left to the form.
    bool translate(MSG& message);

protected:
    // In twips.
    struct Shape
    {
        const wchar_t* title;
        SIZE size;
        SIZE least;
        std::string refusal;  // when Windows refuses it
        int first;            // the control that gets the keyboard
    };

    /// Who derives from this closes the window when it ends.
    explicit BesideWindow(Shape shape) : shape_(std::move(shape)) {}

    virtual void createControls() = 0;
    /// Ctrl and this letter in a control; false: as the control does.
    virtual bool pressed(HWND control, WPARAM letter) = 0;
    virtual void command(int /*id*/) {}
    virtual LRESULT notify(const NMHDR& header) = 0;
    /// The window is gone.
    virtual void forget() = 0;

    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    SIZE leastSize() const override { return shape_.least; }

private:
    Shape shape_;
};

}  // namespace window
