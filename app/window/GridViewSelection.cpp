// The selection of a parameter grid's list view, which follows the grid's and is followed by it.
#include "app/window/GridView.h"
#include "app/window/NameSearch.h"

#include <algorithm>

namespace window
{

namespace
{

constexpr int allItems = -1;   // also in what the list view tells
constexpr int fewItems = 500;  // are selected one by one

}  // namespace

// What the list view tells of a change, in items from first to last. It may be of the focus only,
// which leaves one item before the list view has told of the selection of another.
void GridView::followSelection(int first, int last, UINT before, UINT now)
{
    if (((before ^ now) & LVIS_SELECTED) == 0)
        return;
    if (first == allItems) {
        first = 0;
        last = ListView_GetItemCount(window_) - 1;
    }
    selected_.set(first, last + 1, (now & LVIS_SELECTED) != 0);
    if (!updating_)
        takeSelection();
}

// Nearly always there is nothing to do. Where the list view selected something without a word, it
// is asked for all that it has.
void GridView::agreeOnSelection()
{
    if (selected_.count() == static_cast<int>(ListView_GetSelectedCount(window_)))
        return;
    selected_.clear();
    for (int item = -1; (item = ListView_GetNextItem(window_, item, LVNI_SELECTED)) >= 0;)
        selected_.set(item, item + 1, true);
}

void GridView::takeSelection()
{
    agreeOnSelection();
    if (selected_.count() == 0) {
        // The list view drops its old selection before it makes a new one, so the grid's is shown
        // again later, if no new one has come by then.
        PostMessageW(window_, showSelectionMessage, 0, 0);
        return;
    }
    isChosen_ = true;
    if (selected_.haveHoles()) {
        grid_.Row = rowOf(std::max(0, ListView_GetNextItem(window_, -1, LVNI_FOCUSED)));
        grid_.RowSel = grid_.Row;
        showSelection();
        onSelect_();
        return;
    }
    const int first = selected_.first();
    const int last = first + selected_.count() - 1;
    const bool upwards = ListView_GetSelectionMark(window_) == last;
    grid_.Row = rowOf(upwards ? last : first);
    grid_.RowSel = rowOf(upwards ? first : last);
    onSelect_();
}

bool GridView::isEmpty() const
{
    return grid_.Rows() == 2 && grid_.text(1, form::nameColumn).empty();
}

// An empty grid shows no selection: there is nothing to remove or to copy. Nor does one in which
// the engineer selected nothing yet, so that no row is removed that nobody meant.
form::RowRange GridView::shownSelection() const
{
    return isEmpty() || !isChosen_ ? form::RowRange{1, 0} : grid_.selectedRows();
}

void GridView::showSelection()
{
    const form::RowRange rows = shownSelection();
    agreeOnSelection();
    const bool isShown = !selected_.haveHoles() && selected_.count() == rows.count &&
                         (rows.count == 0 || selected_.first() == itemOf(rows.first));
    if (isShown)
        return;

    select(rows);
    if (rows.count > 0) {
        updating_ = true;
        setItemState(itemOf(grid_.Row), LVIS_FOCUSED, LVIS_FOCUSED);
        ListView_SetSelectionMark(window_, itemOf(grid_.Row));
        updating_ = false;
    }
}

// Only what is selected otherwise changes. To change all items at once takes some list views as
// long for one that changes as for all.
void GridView::select(const form::RowRange& rows)
{
    const int first = itemOf(rows.first);
    SelectedRuns wanted;
    wanted.set(first, first + rows.count, true);
    const bool anew = selected_.without(wanted).count() > fewItems;
    const bool all = rows.count == grid_.Rows() - 1;
    const bool atOnce = all && wanted.without(selected_).count() > fewItems;
    updating_ = true;
    if (anew || atOnce)
        SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    if (anew)
        setItemState(allItems, 0, LVIS_SELECTED);
    else
        setItems(selected_.without(wanted), 0);
    if (atOnce)
        setItemState(allItems, LVIS_SELECTED, LVIS_SELECTED);
    else
        setItems(wanted.without(selected_), LVIS_SELECTED);
    if (anew || atOnce) {
        SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(window_, nullptr, FALSE);
    }
    updating_ = false;
}

void GridView::setItems(const SelectedRuns& items, UINT state)
{
    for (const auto& [first, end] : items.runs())
        for (int item = first; item < end; ++item)
            setItemState(item, state, LVIS_SELECTED);
}

void GridView::setItemState(int item, UINT state, UINT mask)
{
    LVITEMW info{};
    info.state = state;
    info.stateMask = mask;
    SendMessageW(window_, LVM_SETITEMSTATE, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&info));
}

// Whether the list view is about to drop its selection for another one.
bool GridView::isAboutToSelect(UINT message, WPARAM wParam, LPARAM lParam) const
{
    const int count = selected_.count();
    if (count > fewItems && count != grid_.Rows() - 1)
        return false;
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_LBUTTONUP: {
        LVHITTESTINFO place{};
        place.pt = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
        const int item = ListView_HitTest(window_, &place);
        const bool isSelected =
            item >= 0 && ListView_GetItemState(window_, item, LVIS_SELECTED) != 0;
        // Of several selected rows the one under the mouse becomes the only one with the release.
        return isSelected == (message == WM_LBUTTONUP);
    }
    case WM_KEYDOWN:
        return wParam >= VK_SPACE && wParam <= VK_DOWN;
    case WM_CHAR:
        return wParam > L' ';
    default:
        return false;
    }
}

// Some list views go through all items to drop a selection, but not when they have none. So the
// selection goes before the list view hears of a key or a click, and comes back where the list view
// made no other one.
LRESULT GridView::passOn(UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND window = window_;
    if (!isAboutToSelect(message, wParam, lParam))
        return DefSubclassProc(window, message, wParam, lParam);
    if (message != WM_KEYDOWN)  // of a key the list view tells first
        select({});
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    // Windows handles other messages while a mouse button is down; this may be gone by now.
    if (IsWindow(window) != FALSE && selected_.count() == 0)
        select(shownSelection());
    return result;
}

void GridView::bringIntoSight(const std::vector<int>& rows)
{
    if (rows.empty())
        return;
    for (const int row : {rows.back(), rows.front()})
        ListView_EnsureVisible(window_, itemOf(row), FALSE);
    // Keys go on from there; the selection stays where it is.
    if (!isChosen_) {
        updating_ = true;
        setItemState(itemOf(rows.front()), LVIS_FOCUSED, LVIS_FOCUSED);
        updating_ = false;
    }
}

bool GridView::find(std::string_view text, bool further)
{
    const int from = itemOf(grid_.Row) + (further && selectedCount() > 0 ? 1 : 0);
    const int item = findAnywhere(grid_, text, from);
    if (item < 0)
        return false;
    goTo(rowOf(item));
    return true;
}

void GridView::goTo(int row)
{
    grid_.Row = grid_.RowSel = row;
    isChosen_ = true;
    showSelection();
    ListView_EnsureVisible(window_, itemOf(row), FALSE);
    onSelect_();
}

POINT GridView::menuPlace() const
{
    RECT place{};
    const int item = ListView_GetNextItem(window_, -1, LVNI_FOCUSED);
    RECT inside{};
    GetClientRect(window_, &inside);
    if (item < 0 || ListView_GetItemRect(window_, item, &place, LVIR_LABEL) == FALSE ||
        place.top < 0 || place.bottom > inside.bottom)
        place = {};
    POINT result{std::max(place.left, 0L), place.bottom};
    ClientToScreen(window_, &result);
    return result;
}

}  // namespace window
