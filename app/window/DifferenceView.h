// The lines of a text with their signs: a list view that asks for those it shows, so that half a
// million of them are there at once.
#pragma once

#include "app/window/Controls.h"
#include "preview/LinesWithChanges.h"
#include "system/CodePage.h"

#include <windows.h>

#include <commctrl.h>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace window
{

/// Where Windows' colours are the usual ones, what is removed and added lies on a pale ground;
/// else, as in contrast themes, each has a text colour of Windows' own.
struct LineColours
{
    COLORREF text = 0;
    COLORREF ground = 0;
};
LineColours coloursOf(preview::Sign sign);

class DifferenceView
{
public:
    /// The code page, that of the texts, must outlive this.
    DifferenceView(HWND parent, int id, const sys::CodePage& codePage);
    DifferenceView(const DifferenceView&) = delete;
    DifferenceView& operator=(const DifferenceView&) = delete;

    HWND window() const { return window_; }
    /// Begins at the first change.
    void show(preview::Texts texts);
    std::size_t count(preview::Sign sign) const;
    void setResolution(Pixels pixels);
    /// The last column gets what the others leave, or as much as the longest line needs.
    void fitWidths() const;
    /// The answer to a notification of the list view.
    LRESULT notify(const NMHDR& header);
    void selectAll() const;
    /// With their signs, where these differ.
    void copySelected() const;

private:
    std::wstring cellOf(const preview::SignedLine& line, int column) const;
    void giveCell(LVITEMW& item);
    LRESULT draw(const NMLVCUSTOMDRAW& info) const;
    void drawLine(HDC device, int item) const;
    void goToFirstChange() const;

    const sys::CodePage& codePage_;
    HWND window_;
    preview::Texts texts_;
    std::vector<preview::SignedLine> lines_;  // they point into the texts
    std::size_t longest_ = 0;                 // of the lines, in letters
    std::size_t highest_ = 0;                 // of their numbers
    std::unique_ptr<Font> font_;
    Pixels pixels_{USER_DEFAULT_SCREEN_DPI};
    std::wstring cell_;  // lives until the list view has taken it
};

}  // namespace window
