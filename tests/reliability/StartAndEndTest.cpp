#include "RowsAndFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace reliability
{

namespace
{

// The calls of a start that goes well.
std::size_t callsOfStart()
{
    World world;
    EXPECT_EQ(world.start(), app::Started::Normally);
    return world.connector.calls.size();
}

// Starts a fresh world for each call of the start, which fails or is FEMAP's last.
void startWithFailures(void (fake::CallWatch::*fail)(std::size_t number),
                       const std::function<void(World&)>& check)
{
    const std::size_t all = callsOfStart();
    for (std::size_t n = 1; n <= all; ++n) {
        SCOPED_TRACE("call " + std::to_string(n));
        World world;
        (world.connector.*fail)(n);
        world.start();
        check(world);
    }
}

void expectEverythingGivenBack(const World& world)
{
    EXPECT_TRUE(world.program.isClosed());
    EXPECT_EQ(world.connector.objects, 0);
    EXPECT_FALSE(world.host.hooked);
    EXPECT_EQ(world.femap.lockCount, 0);
}

// The rows and what else the control file keeps, as in a world in which nothing failed.
void expectStoredSelection(World& world, World& whole)
{
    EXPECT_TRUE(world.host.hooked);
    EXPECT_EQ(world.inputs(), whole.inputs());
    EXPECT_EQ(world.outputs(), whole.outputs());
    EXPECT_EQ(world.form.InputSelection.Text, whole.form.InputSelection.Text);
    EXPECT_EQ(world.form.Optimizer.Text, whole.form.Optimizer.Text);
    EXPECT_EQ(world.form.InputsList.ColWidth, whole.form.InputsList.ColWidth);

    EXPECT_EQ(world.program.raise(form::click("GenerateButton")), app::Ended::Normally);

    EXPECT_EQ(world.controlFile(), whole.controlFile());
}

}  // namespace

TEST(StartingBesideFemap, GivesAFormWhicheverCallIsRefusedAndTouchesNoFile)
{
    const auto files = World().generatedFiles();

    startWithFailures(&fake::CallWatch::failAtCall, [&](World& world) {
        EXPECT_EQ(world.generatedFiles(), files);
        EXPECT_FALSE(world.program.isBusy());
        world.program.close();
        expectEverythingGivenBack(world);
    });
}

TEST(StartingBesideFemap, HearsFemapsEventsAndHasTheStoredRowsWhicheverCallIsRefused)
{
    World whole;
    whole.start();

    startWithFailures(&fake::CallWatch::failAtCall,
                      [&](World& world) { expectStoredSelection(world, whole); });
}

TEST(StartingBesideFemap, HasTheStoredRowsWhenOneThatDiedMeanwhileIsBack)
{
    World whole;
    whole.start();

    startWithFailures(&fake::CallWatch::dieAtCall, [&](World& world) {
        world.connector.behave();
        if (world.program.isClosed())
            return;  // it could not be reached at all

        world.program.lookForFemap();

        EXPECT_TRUE(world.program.isConnected());
        EXPECT_EQ(world.form.CommandLine.Text, whole.form.CommandLine.Text);
        expectStoredSelection(world, whole);
    });
}

TEST(StartingBesideFemap, AsksNothingMoreOfOneThatDiesMeanwhileAndTouchesNoFile)
{
    const auto files = World().generatedFiles();

    startWithFailures(&fake::CallWatch::dieAtCall, [&](World& world) {
        const std::size_t before = world.connector.calls.size();
        EXPECT_EQ(world.generatedFiles(), files);
        world.program.raise(form::click("GenerateButton"));
        EXPECT_EQ(world.generatedFiles(), files);
        world.program.close();
        EXPECT_EQ(world.connector.calls.size(), before);
        expectEverythingGivenBack(world);
    });
}

TEST(Unloading, WorksWhenFemapWasNeverReached)
{
    World world;
    world.connector.beforeCall = [](const std::string& call) {
        throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, call + " was refused");
    };
    EXPECT_EQ(world.start(), app::Started::FemapNotFound);

    world.program.close();

    expectEverythingGivenBack(world);
}

TEST(Unloading, WorksBeforeTheStart)
{
    World world;

    world.program.close();

    expectEverythingGivenBack(world);
    EXPECT_EQ(world.host.unloads, 1);
}

TEST(Unloading, WorksWithoutAPane)
{
    World world;
    world.connector.failAt("feAppRegisterAddInPane");
    world.start();
    EXPECT_TRUE(world.host.hooked);

    world.program.close();

    expectEverythingGivenBack(world);
}

TEST(Unloading, WorksTwiceAndUnloadsOnce)
{
    World world;
    world.start();

    world.program.close();
    world.program.close();

    expectEverythingGivenBack(world);
    EXPECT_EQ(world.host.unloads, 1);
}

TEST(AMessageOfAStranger, DoesNothing)
{
    World world;
    world.start();
    world.fillGrids();
    const Kept before = keptBy(world);
    world.connector.calls.clear();

    for (const std::intptr_t code :
         {std::intptr_t{-1}, std::intptr_t{0}, std::intptr_t{1}, std::intptr_t{5},
          std::intptr_t{46}, (std::intptr_t{1} << 32) + 4,
          std::numeric_limits<std::intptr_t>::min(), std::numeric_limits<std::intptr_t>::max()})
        EXPECT_EQ(world.program.raiseFemapEvent(code), app::Ended::NotStarted) << code;

    EXPECT_THAT(world.connector.calls, testing::IsEmpty());
    EXPECT_FALSE(world.program.isClosed());
    EXPECT_EQ(keptBy(world).inputs, before.inputs);
    EXPECT_EQ(keptBy(world).files, before.files);
}

}  // namespace reliability
