#include "app/window/PropertyListWindow.h"
#include "fake/FakeConnector.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <commctrl.h>
#include <functional>
#include <string>
#include <vector>

using selection::frmPropertyList;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Not;
using window::PropertyListWindow;

namespace
{

struct Sent
{
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    bool operator==(const Sent&) const = default;
};

bool operator==(const Sent& sent, UINT message)
{
    return sent.message == message;
}

// The dialog in this process. While it is open, the test acts on it and keeps what is sent to its
// list: what a message does to the list is Windows' own affair.
struct PropertyList : testing::Test
{
    struct NoDialogs : femap::SelectionDialogs
    {
        femap::Selection answer(femap::EntityType, const std::string&, bool,
                                const std::vector<int>&) override
        {
            return {};
        }
    };
    NoDialogs dialogs;
    femap::embedded::Host femap{dialogs};
    fake::FakeConnector connector{femap};
    PropertyListWindow shown{[] { return HWND{}; }};
    frmPropertyList dialog{connector, shown};
    static inline PropertyList* running = nullptr;
    std::function<void()> engineer;
    HWND window = nullptr;
    std::vector<Sent> toList;

    static LRESULT CALLBACK listen(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                   DWORD_PTR self)
    {
        reinterpret_cast<PropertyList*>(self)->toList.push_back({message, wParam, lParam});
        return DefSubclassProc(list, message, wParam, lParam);
    }
    static void CALLBACK act(HWND, UINT, UINT_PTR timer, DWORD)
    {
        KillTimer(nullptr, timer);
        running->window = FindWindowW(L"#32770", L"Select Properties");
        SetWindowSubclass(running->list(), listen, 1, reinterpret_cast<DWORD_PTR>(running));
        running->engineer();
    }
    HWND list() const { return GetDlgItem(window, PropertyListWindow::idList); }
    void press(int id) const { SendMessageW(GetDlgItem(window, id), BM_CLICK, 0, 0); }

    void show(std::size_t items, const std::function<void()>& what)
    {
        dialog.lstProperties.items.assign(items, {"x", false});
        engineer = what;
        running = this;
        SetTimer(nullptr, 0, 1, act);
        shown.showModal(dialog);
    }
    std::vector<bool> chosen() const
    {
        std::vector<bool> result;
        for (const auto& item : dialog.lstProperties.items)
            result.push_back(item.selected);
        return result;
    }
};

TEST_F(PropertyList, SelectAllOfOneItemNeverAsksForARange)
{
    show(1, [&] {
        press(PropertyListWindow::idSelect);
        press(PropertyListWindow::idAdd);
    });

    EXPECT_THAT(toList, Contains(Sent{LB_SETSEL, TRUE, -1}));
    EXPECT_THAT(toList, Not(Contains(UINT{LB_SELITEMRANGEEX})));
    EXPECT_THAT(toList, Not(Contains(UINT{LB_SELITEMRANGE})));
    EXPECT_THAT(chosen(), ElementsAre(true));
}

TEST_F(PropertyList, SelectAllAndDeselectAllOfManyItemsAreOneMessageEach)
{
    show(500, [&] {
        press(PropertyListWindow::idSelect);
        press(PropertyListWindow::idDeSelect);
        press(PropertyListWindow::idSelect);
        press(PropertyListWindow::idAdd);
    });

    std::erase_if(toList, [](const Sent& sent) { return sent.message != LB_SETSEL; });
    EXPECT_THAT(toList, ElementsAre(Sent{LB_SETSEL, TRUE, -1}, Sent{LB_SETSEL, FALSE, -1},
                                    Sent{LB_SETSEL, TRUE, -1}));
    EXPECT_THAT(chosen(), Each(true));
}

}  // namespace
