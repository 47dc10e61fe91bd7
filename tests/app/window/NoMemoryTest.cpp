#include "FormHere.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

using driver::FormHere;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

struct NoMemory : FormHere
{
    std::string status() const { return driver::textOf(control("StatusLine")); }
    // The form's look for a FEMAP that has gone, which no procedure makes.
    void look() const { SendMessageW(form, WM_TIMER, 1, 0); }
};

TEST_F(NoMemory, IsToldByTheFormItselfWhichStays)
{
    femap.dieAt("feAppLock");
    press("RefreshInputs");
    femap.beforeCall = [](const std::string&) { throw std::bad_alloc(); };

    look();
    const std::string told = status();
    const int rows = rowCount("InputsList");
    femap.beforeCall = [](const std::string&) {};
    look();

    EXPECT_THAT(told, StartsWith("No memory is left. Close other programs"));
    EXPECT_EQ(rows, 2);
    EXPECT_NE(IsWindow(form), FALSE);
    EXPECT_NE(IsWindowEnabled(control("GenerateButton")), FALSE);
}

// FEMAP's message window cannot be reached either.
TEST_F(NoMemory, IsNoMistakeOfTheProgramWhichIsToldAndEndsIt)
{
    femap.beforeCall = [](const std::string&) { throw std::logic_error("no such control"); };

    press("RefreshInputs");

    EXPECT_THROW(window.run(), std::logic_error);
    EXPECT_THAT(files.log(), HasSubstr("The program has a mistake and ends: no such control"));
}

}  // namespace
