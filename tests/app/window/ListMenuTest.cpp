#include "Hand.h"
#include "WindowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using driver::waitUntil;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

namespace
{

// The menu of a list: Copy, Copy with headings, Select all, Remove, Refresh these rows, Find, and
// then those of the window.
struct ListMenu : driver::Window
{
    driver::Hand hand;

    void SetUp() override
    {
        addMaterials({"Ex"});
        hand.awaitKeyboardAt(form.window());
    }
    bool isOpen() { return driver::visibleWindow(process.id(), L"#32768") != nullptr; }
    void openByKey()
    {
        EXPECT_TRUE(waitUntil([&] { return form.hasFocus("InputsList"); }));
        hand.key({"shift+F10"});
        EXPECT_TRUE(waitUntil([&] { return isOpen(); }));
    }
    void choose(int place)
    {
        hand.key(std::vector<std::string>(static_cast<std::size_t>(place), "Down"));
        hand.key({"Return"});
        EXPECT_TRUE(waitUntil([&] { return !isOpen(); }));
        form.settle();
    }
    std::string addedToLog(std::size_t before) const { return files.log().substr(before); }
};

TEST_F(ListMenu, SelectsAllAndRemovesAsTheButtonDoes)
{
    form.click("InputsList", 1);
    openByKey();
    choose(3);
    EXPECT_THAT(form.selectedRows("InputsList"), SizeIs(3));

    form.click("InputsList", 1);
    const std::size_t before = files.log().size();
    openByKey();
    choose(4);
    EXPECT_THAT(inputs(), ElementsAre("ExAtMatl1", "ExAtMatl3"));
    EXPECT_THAT(addedToLog(before), HasSubstr("At start of ClearInputSelection_Click"));
}

TEST_F(ListMenu, RefreshesTheSelectedRowsAlone)
{
    form.click("InputsList", 1);
    form.settle();
    const std::size_t before = files.log().size();
    openByKey();
    choose(5);

    const std::string added = addedToLog(before);
    EXPECT_THAT(added, HasSubstr("At the start of RefreshInputs_Click"));
    EXPECT_THAT(added, HasSubstr("Acquired Femap lock"));
    EXPECT_THAT(added, HasSubstr("Name=ExAtMatl2"));
    EXPECT_THAT(added, Not(HasSubstr("Name=ExAtMatl1")));
    EXPECT_THAT(added, HasSubstr("At the end of RefreshInputs_Click"));
}

TEST_F(ListMenu, DoesNothingWithRowsWhereNoneIsSelected)
{
    form.click("InputsList", 5);  // below the rows
    for (const int place : {4, 5}) {
        openByKey();
        hand.key(std::vector<std::string>(static_cast<std::size_t>(place), "Down"));
        hand.key({"Return"});
        hand.key({"Escape", "Escape"});
        EXPECT_TRUE(waitUntil([&] { return !isOpen(); }));
    }
    form.settle();

    EXPECT_THAT(inputs(), SizeIs(3));
    EXPECT_THAT(files.log(), Not(HasSubstr("Refresh")));
}

TEST_F(ListMenu, OpensTheFieldThatFindsNames)
{
    form.click("InputsList", 1);
    openByKey();
    choose(6);

    hand.type("matl3");
    hand.key({"Return"});
    EXPECT_TRUE(waitUntil([&] { return form.selectedRows("InputsList") == std::vector<int>{2}; }));
}

TEST_F(ListMenu, OpensByTheRightMouseButtonOnTheRowThatIsThere)
{
    hand.rightClickAt(driver::placeIn(form.control("InputsList"), form.rowPlace("InputsList", 2)));
    EXPECT_TRUE(waitUntil([&] { return isOpen(); }));
    EXPECT_THAT(form.selectedRows("InputsList"), ElementsAre(2));
    choose(4);

    EXPECT_THAT(inputs(), ElementsAre("ExAtMatl1", "ExAtMatl2"));
}

}  // namespace
