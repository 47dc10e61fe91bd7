// A grid in a window of the test's own.
#pragma once

#include "app/window/GridView.h"
#include "form/ListControls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace driver
{

struct GridWindow : testing::Test
{
    static inline GridWindow* running = nullptr;
    form::ParameterGrid grid{6};
    std::unique_ptr<window::GridView> view;
    HWND parent = nullptr;
    std::vector<UINT> toList;  // messages that were sent to the list
    int ofAllItems = 0;        // what the list did with, or was told of, all its items at once
    int changes = 0;           // of items, that the list told of

    static LRESULT CALLBACK hearNotes(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_NOTIFY && running->view != nullptr) {
            const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
            running->countChange(header);
            return running->view->notify(header);
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }
    static LRESULT CALLBACK listen(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                   DWORD_PTR)
    {
        running->toList.push_back(message);
        if (message == LVM_SETITEMSTATE && static_cast<int>(wParam) == -1)
            ++running->ofAllItems;
        return DefSubclassProc(list, message, wParam, lParam);
    }

    void countChange(const NMHDR& header)
    {
        if (header.code != LVN_ITEMCHANGED && header.code != LVN_ODSTATECHANGED)
            return;
        ++changes;
        if (header.code == LVN_ITEMCHANGED &&
            reinterpret_cast<const NMLISTVIEW&>(header).iItem == -1)
            ++ofAllItems;
    }

    void SetUp() override
    {
        running = this;
        WNDCLASSW kind{};
        kind.lpfnWndProc = hearNotes;
        kind.lpszClassName = L"GridWindow";
        RegisterClassW(&kind);
        parent = CreateWindowExW(0, L"GridWindow", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 500,
                                 400, nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(parent, nullptr);
        view = std::make_unique<window::GridView>(
            parent, 1, grid, form::inputHeadings, [](int) {}, [] {});
        view->setResolution(window::Pixels(USER_DEFAULT_SCREEN_DPI));
        SetWindowSubclass(list(), listen, 2, 0);
        MoveWindow(list(), 0, 0, 480, 350, TRUE);
    }
    void TearDown() override
    {
        RemoveWindowSubclass(list(), listen, 2);
        view.reset();
        DestroyWindow(parent);
        UnregisterClassW(L"GridWindow", nullptr);
    }

    HWND list() const { return view->window(); }
    void fill(const std::vector<std::string>& names)
    {
        for (const std::string& name : names)
            grid.AddItem(name + "\t1");
        grid.RemoveItem(1);
        view->update();
    }
    void fillWith(int rows)
    {
        for (int row = 0; row < rows; ++row)
            grid.AddItem("Ex" + std::to_string(row) + "\t1");
        grid.RemoveItem(1);
        view->update();
    }

    // What the list view asks for when letters are typed.
    LRESULT find(const std::wstring& text, UINT flags, int start = 0) const
    {
        NMLVFINDITEMW question{};
        question.hdr = {list(), 1, LVN_ODFINDITEMW};
        question.iStart = start;
        question.lvfi.flags = flags;
        question.lvfi.psz = text.c_str();
        return view->notify(question.hdr);
    }

    // A key, or several one after the other, with Shift held down or not.
    void press(WPARAM key, bool shift = false) const { pressWith(shift ? VK_SHIFT : 0, key); }
    void pressWith(std::size_t held, WPARAM key) const
    {
        std::array<BYTE, 256> keys{};
        GetKeyboardState(keys.data());
        keys[VK_SHIFT] = keys[VK_CONTROL] = 0;
        if (held != 0)
            keys[held] = 0x80;
        SetKeyboardState(keys.data());
        SendMessageW(list(), WM_KEYDOWN, key, 0);
        keys[VK_SHIFT] = keys[VK_CONTROL] = 0;
        SetKeyboardState(keys.data());
        pump();
    }
    void click(int item) const
    {
        RECT place{LVIR_BOUNDS, 0, 0, 0};
        SendMessageW(list(), LVM_GETITEMRECT, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&place));
        const LPARAM there = MAKELPARAM(20, (place.top + place.bottom) / 2);
        PostMessageW(list(), WM_LBUTTONDOWN, MK_LBUTTON, there);
        PostMessageW(list(), WM_LBUTTONUP, 0, there);
        pump();
    }
    static void pump()
    {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
            DispatchMessageW(&message);
    }
    void mark(int item, bool marked) const
    {
        LVITEMW info{};
        info.state = marked ? LVIS_SELECTED : 0;
        info.stateMask = LVIS_SELECTED;
        SendMessageW(list(), LVM_SETITEMSTATE, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&info));
    }
    std::vector<int> marked() const
    {
        std::vector<int> result;
        for (int item = -1; (item = ListView_GetNextItem(list(), item, LVNI_SELECTED)) >= 0;)
            result.push_back(item);
        return result;
    }
    std::ptrdiff_t searches() const { return std::ranges::count(toList, UINT{LVM_GETNEXTITEM}); }
};

}  // namespace driver
