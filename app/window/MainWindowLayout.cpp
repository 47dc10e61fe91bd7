// MainWindow: position and size of everything in it, resolution and scrolling.
#include "app/window/MainWindow.h"
#include "app/window/Tips.h"
#include "form/Layout.h"

#include <algorithm>

namespace window
{

void MainWindow::applyResolution(UINT dotsPerInch)
{
    dotsPerInch_ = dotsPerInch;
    pixels_ = Pixels(dotsPerInch);
    sizeSeen_ = {};  // the same size in pixels is another one in twips
    auto font = std::make_unique<Font>(dotsPerInch);
    for (const auto& [control, window] : windows_)
        setFont(window, *font);
    setFont(modelLineView_->window(), *font);
    font_ = std::move(font);  // the old one goes when nothing uses it any more
    setTipWidth(tips_, pixels_.fromTwips(widestTip));
    for (const auto& [grid, view] : grids_)
        view->setResolution(pixels_);
}

// On a screen of another resolution Windows suggests bounds.
void MainWindow::resolutionChanged(UINT dotsPerInch, const RECT& bounds)
{
    applyResolution(dotsPerInch);
    resolutionIsTold_ = true;
    SetWindowPos(window_, nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
                 bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE);
    resized();
    resolutionIsTold_ = false;
}

void MainWindow::resized()
{
    if (!ready_ || window_ == nullptr)
        return;
    // That of a pane can change without a message.
    const UINT dotsPerInch = GetDpiForWindow(window_);
    if (!resolutionIsTold_ && dotsPerInch != dotsPerInch_)
        applyResolution(dotsPerInch);
    RECT inside{};
    GetClientRect(window_, &inside);
    const SIZE size{inside.right, inside.bottom};
    if (size.cx == sizeSeen_.cx && size.cy == sizeSeen_.cy)
        return;  // Windows reports the size again when it shows the window
    sizeSeen_ = size;
    form::MainForm& form = program_.form();
    form.ScaleWidth = pixels_.toTwips(inside.right);
    form.ScaleHeight = pixels_.toTwips(inside.bottom);
    form.VScroll1.Width = form::scrollBarThickness;
    form.HScroll1.Height = form::scrollBarThickness;
    form::layOutContent(form, inputShare_);
    program_.raise({"Form", form::What::Resize});
    layOut();
}

// Gives every control's window the bounds that the form says; those that have them are left alone.
void MainWindow::layOut()
{
    constexpr int dropDownHeight = 3000;  // twips, of the list that a combo box opens
    const form::MainForm& form = program_.form();
    bool hasMoved = false;
    for (const form::NamedControl& each : form.controls()) {
        const HWND window = windows_.at(each.control);
        Bounds bounds = pixelsOf(*each.control);
        if (each.as<form::ComboBox>() != nullptr) {
            hasMoved |= placeBox(*each.control, window, bounds, pixels_.fromTwips(dropDownHeight));
            continue;
        }
        if (each.as<form::TextBox>() != nullptr)
            bounds = centred(bounds, boxHeight_);
        if (findField_.list() == each.control)
            bounds.height -= pixels_.fromTwips(FindField::height);
        hasMoved |= place(*each.control, window, bounds);
    }
    findField_.layOut();
    for (const auto* const each : {&findField_.labelPlace(), &findField_.textPlace()})
        hasMoved |= place(*each, windows_.at(each), pixelsOf(*each));
    hasMoved |= place(form.modelLine, modelLineView_->window(), pixelsOf(form.modelLine));
    layOutScrollBar(form.VScroll1, form.pbOuter.Height);
    layOutScrollBar(form.HScroll1, form.pbOuter.Width);
    // Windows does not repaint what shows through a frame when the frame or a neighbour moves.
    if (hasMoved)
        RedrawWindow(windows_.at(&form.pbInner), nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// Edges that meet in twips meet in pixels, at every resolution.
MainWindow::Bounds MainWindow::pixelsOf(const form::Control& control) const
{
    const int left = pixels_.fromTwips(control.Left);
    const int top = pixels_.fromTwips(control.Top);
    return {left, top, pixels_.fromTwips(control.Left + control.Width) - left,
            pixels_.fromTwips(control.Top + control.Height) - top};
}

// Windows gives a combo box the height of its font.
bool MainWindow::placeBox(const form::Control& control, HWND window, const Bounds& bounds,
                          int dropDown)
{
    if (bounds_[&control] == bounds)
        return false;
    const int opened = bounds.height + dropDown;
    place(control, window, {bounds.left, bounds.top, bounds.width, opened});
    for (int tries = 0; tries < 2; ++tries) {  // its height may follow a new font late
        RECT closed{};
        GetWindowRect(window, &closed);
        boxHeight_ = closed.bottom - closed.top;
        const Bounds amid = centred(bounds, boxHeight_);
        place(control, window, {amid.left, amid.top, amid.width, opened});
    }
    bounds_[&control] = bounds;
    return true;
}

// As high as a box, amid the line.
MainWindow::Bounds MainWindow::centred(const Bounds& bounds, int height)
{
    return {bounds.left, bounds.top + (bounds.height - height + 1) / 2, bounds.width, height};
}

// Whether it was elsewhere.
bool MainWindow::place(const form::Control& control, HWND window, const Bounds& wanted)
{
    Bounds& present = bounds_[&control];
    if (present == wanted)
        return false;
    present = wanted;
    SetWindowPos(window, nullptr, wanted.left, wanted.top, wanted.width, wanted.height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
    return true;
}

void MainWindow::layOutScrollBar(const form::ScrollBar& bar, int viewport)
{
    const HWND window = windows_.at(&bar);
    // The style tells whether it is shown, even before the form itself is.
    const bool isShown = (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
    if (isShown != bar.Visible)
        ShowWindow(window, bar.Visible ? SW_SHOWNA : SW_HIDE);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = bar.Max + viewport - 1;
    info.nPage = static_cast<UINT>(viewport);
    info.nPos = bar.Value;
    SetScrollInfo(window, SB_CTL, &info, bar.Visible ? TRUE : FALSE);
}

void MainWindow::scroll(form::ScrollBar& bar, int request)
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    GetScrollInfo(windows_.at(&bar), SB_CTL, &info);
    int value = bar.Value;
    switch (request) {
    case SB_LINEUP:
        value -= bar.SmallChange;
        break;
    case SB_LINEDOWN:
        value += bar.SmallChange;
        break;
    case SB_PAGEUP:
        value -= bar.LargeChange;
        break;
    case SB_PAGEDOWN:
        value += bar.LargeChange;
        break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
        value = info.nTrackPos;
        break;
    case SB_TOP:
        value = 0;
        break;
    case SB_BOTTOM:
        value = bar.Max;
        break;
    default:
        break;
    }
    scrollTo(bar, value);
}

void MainWindow::scrollTo(form::ScrollBar& bar, int value)
{
    value = std::clamp(value, 0, bar.Max);
    if (!bar.Visible || value == bar.Value)
        return;
    bar.Value = value;
    program_.raise(eventOf(bar, form::What::Change));
    layOut();
}

// Wheels are set to a number of lines or characters for each notch, or to pages, which is a number
// that no page holds. One notch of an ordinary wheel is WHEEL_DELTA; fine wheels give less at a
// time; away from the engineer is up.
void MainWindow::turnWheel(UINT message, int delta)
{
    const bool isSideways = message == WM_MOUSEHWHEEL;
    form::MainForm& form = program_.form();
    form::ScrollBar& bar =
        isSideways ? static_cast<form::ScrollBar&>(form.HScroll1) : form.VScroll1;
    if (!bar.Visible)
        return;
    UINT steps = 3;
    SystemParametersInfoW(isSideways ? SPI_GETWHEELSCROLLCHARS : SPI_GETWHEELSCROLLLINES, 0, &steps,
                          0);
    const int page = bar.LargeChange / bar.SmallChange;
    const int notch = static_cast<int>(std::min(steps, static_cast<UINT>(page))) * bar.SmallChange;
    scrollTo(bar, bar.Value + MulDiv(isSideways ? delta : -delta, notch, WHEEL_DELTA));
}

// Brings the control that has the focus into view, however it got it.
void MainWindow::followFocus()
{
    const HWND focus = GetFocus();
    if (!ready_ || focus == focusSeen_)
        return;
    focusSeen_ = focus;
    form::MainForm& form = program_.form();
    for (const auto& [control, window] : windows_) {
        const bool isContent = GetParent(window) == windows_.at(&form.pbInner);
        if (!isContent || (window != focus && IsChild(window, focus) == FALSE))
            continue;
        const auto reveal = [](const form::ScrollBar& bar, int start, int length, int viewport) {
            const int atLeast = start + length - viewport;
            return bar.Value < atLeast ? std::min(atLeast, start) : std::min(bar.Value, start);
        };
        scrollTo(form.VScroll1,
                 reveal(form.VScroll1, control->Top, control->Height, form.pbOuter.Height));
        scrollTo(form.HScroll1,
                 reveal(form.HScroll1, control->Left, control->Width, form.pbOuter.Width));
        return;
    }
}

}  // namespace window
