#include "AppFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::Contains;
using testing::IsEmpty;

TEST(StartUpShows, TheFormBeforeItAsksFemapAnything)
{
    ProgramFixture f;
    std::vector<std::string> hiddenDuring;
    f.connector.beforeCall = [&](const std::string& call) {
        if (f.host.shown == 0)
            hiddenDuring.push_back(call);
    };

    f.start();

    EXPECT_THAT(f.connector.calls, Contains("feAppVisible"));
    EXPECT_THAT(hiddenDuring, IsEmpty());
    EXPECT_EQ(f.host.shown, 1);
}

TEST(StartUpShows, WhatIsWaitedForAndNoLongerThanItIs)
{
    ProgramFixture f;
    std::string whenShown;
    f.host.whenShown = [&] { whenShown = f.form.StatusLine.Caption; };

    f.start();

    EXPECT_EQ(whenShown, startingWithFemap);
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST(StartUpShows, AFemapThatIsStartedForIt)
{
    ProgramFixture f;
    f.connector.attachRaises = true;

    f.start();

    EXPECT_EQ(f.host.shown, 1);
}

TEST(StartUpShows, NothingWithoutFemap)
{
    ProgramFixture f;
    f.connector.attachRaises = true;
    f.connector.createRaises = true;

    EXPECT_EQ(f.program.start(allArguments), Started::FemapNotFound);

    EXPECT_EQ(f.host.shown, 0);
}

TEST(StartUpShows, WhyItEndedByAnErrorInPlaceOfTheWaiting)
{
    ProgramFixture f;
    f.connector.dieAt("feAppVisible");

    f.start();

    EXPECT_EQ(f.host.shown, 1);
    EXPECT_EQ(f.form.StatusLine.Caption, femapIsGone);
}

}  // namespace
}  // namespace app
