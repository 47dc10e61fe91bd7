// A list of lines with boxes to tick, over the items of a list: what is ticked is what is selected
// there. The list view asks for the lines that it shows, so that 100,000 of them cost little.
#pragma once

#include "app/window/Controls.h"
#include "selection/PropertyListDialog.h"

#include <windows.h>

#include <commctrl.h>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace window
{

class TickList
{
public:
    /// The items must outlive the list. onFound gets what was typed to find a line, and whether
    /// there is one.
    TickList(HWND parent, int id, selection::MultiSelectList& list,
             std::function<void(const std::string& text, bool isFound)> onFound);
    ~TickList() { RemoveWindowSubclass(window_, procedure, 1); }
    TickList(const TickList&) = delete;
    TickList& operator=(const TickList&) = delete;

    HWND window() const { return window_; }

    /// Shows what is ticked now.
    void update();
    /// Makes the lines as wide as the longest text, or the list.
    void fitWidth();
    /// Handles a notification of the list view.
    void notify(const NMHDR& header);

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR self);
    bool pressKey(WPARAM key);
    bool type(wchar_t letter);
    void giveLine(LVITEMW& item);
    void click(int item, bool isShift);
    void toggle(int item);
    void stretchTo(int item);
    void endStretch() { before_.reset(); }
    int count() const { return static_cast<int>(list_.items.size()); }
    int focused() const { return ListView_GetNextItem(window_, -1, LVNI_FOCUSED); }
    int findText(const std::wstring& folded, int from);
    void goTo(int item);

    HWND window_;
    selection::MultiSelectList& list_;
    std::function<void(const std::string&, bool)> onFound_;
    std::wstring line_;  // lives until the list view has drawn it

    // Where a stretch begins, what its lines become, and what was ticked before it.
    int anchor_ = 0;
    bool stretchValue_ = true;
    std::optional<std::vector<bool>> before_;

    // All texts in small letters, one after the other, and where each begins; made when first
    // needed.
    std::wstring texts_;
    std::vector<std::size_t> starts_;
    std::wstring typed_;
    DWORD typedAt_ = 0;  // milliseconds
};

}  // namespace window
