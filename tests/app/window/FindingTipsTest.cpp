// What a row's tip tells of its findings. Wine's list view asks for no tips, so the test does.
#include "GridWindowFixture.h"
#include "windows/Text.h"

#include <gtest/gtest.h>

#include <string>

using driver::GridWindow;

namespace
{

std::string tipOf(window::GridView& view, int item, int room = 100)
{
    std::wstring text(100, L'\0');
    const std::wstring own = L"the list's own";
    own.copy(text.data(), own.size());
    NMLVGETINFOTIPW info{};
    info.hdr = {view.window(), 0, static_cast<UINT>(LVN_GETINFOTIPW)};
    info.pszText = text.data();
    info.cchTextMax = room;
    info.iItem = item;
    view.notify(info.hdr);
    return windows::fromWide(text.c_str());
}

TEST_F(GridWindow, ATipTellsWhatIsFoundOfARowOrElseWhatTheListTells)
{
    fill({"Alpha", "Bravo"});
    view->setTips([](int row) { return std::string(row == 2 ? "Bravo is no number" : ""); });

    EXPECT_EQ(tipOf(*view, 0), "the list's own");
    EXPECT_EQ(tipOf(*view, 1), "Bravo is no number");
    EXPECT_EQ(tipOf(*view, 1, 6), "Bravo") << "as far as there is room";
}

}  // namespace
