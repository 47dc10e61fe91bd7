#pragma once

#include "Hand.h"
#include "WindowFixture.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace driver
{

// Real keys and a real mouse, for what no message can show.
struct Keys : driver::Window
{
    Hand hand;

    void SetUp() override { hand.awaitKeyboardAt(form.window()); }
    void addMass(const std::vector<std::string>& quantities)
    {
        form.choose("OutputSelection", "Mass Properties");
        form.press("OutputsButton");
        form.add(quantities);
    }
    void clickRow(std::string_view grid, int item)
    {
        hand.clickAt(driver::placeIn(form.control(grid), form.rowPlace(grid, item)));
        EXPECT_TRUE(waitUntil([&] { return form.hasFocus(grid); }));
    }
    bool selectionBecomes(std::string_view grid, std::size_t count)
    {
        return waitUntil([&] { return form.selectedRows(grid).size() == count; });
    }
    bool focusComesTo(std::string_view control)
    {
        return waitUntil([&] { return form.hasFocus(control); });
    }
    void close()
    {
        hand.key({"alt+F4"});
        EXPECT_EQ(process.exitCode(), 0U);
    }
};

}  // namespace driver
