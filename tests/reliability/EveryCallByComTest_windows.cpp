#include "fake/NeutralText.h"
#include "fake/TemporaryFolder.h"
#include "femap/com/Apartment.h"
#include "reliability/RowsAndFiles.h"
#include "standin/StartedStandin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <tuple>

namespace reliability
{

using comtest::StartedStandin;

namespace
{

// The whole tool beside a stand-in, all calls between them by COM. Only the disk is in memory.
class EveryCallByCom : public testing::TestWithParam<std::tuple<const char*, Action>>
{
protected:
    EveryCallByCom()
    {
        std::ofstream file(std::filesystem::path(std::u8string(model.begin(), model.end())),
                           std::ios::binary);
        file << neutral::completeFile();
    }

    static const Action& action() { return std::get<1>(GetParam()); }
    std::string standinArguments() const
    {
        return std::string(std::get<0>(GetParam())) + " --model \"" + model + '"';
    }

    // Selection dialogs are answered in this process.
    struct Beside
    {
        explicit Beside(const std::string& modelFile)
            : connector(&dialogs), world(&connector, modelFile)
        {}

        void begin(const Action& action)
        {
            reliability::begin(world, action);
            passAnswersOn();
        }
        void passAnswersOn() { dialogs.answers = world.dialogs.answers; }

        fake::QueuedDialogs dialogs;
        femap::com::ComConnector connector;
        World world;
    };

    WholeRun wholeRun(StartedStandin& standin, int& calls) const
    {
        Beside beside(model);
        beside.begin(action());
        WholeRun run;
        run.before = keptBy(beside.world);
        const int before = standin.control().call("standinCallCount").number();
        EXPECT_EQ(action().run(beside.world), app::Ended::Normally);
        calls = standin.control().call("standinCallCount").number() - before;
        run.after = keptBy(beside.world);
        return run;
    }

    femap::com::Apartment apartment;
    fake::TemporaryFolder folder;
    const std::string model = folder.path("beam.neu");
};

std::string nameOf(const testing::TestParamInfo<std::tuple<const char*, Action>>& info)
{
    return std::string(std::get<1>(info.param).name) + "_" +
           std::string(std::get<0>(info.param)).substr(2);
}

// Both generations by turns, which halves the time.
std::vector<std::tuple<const char*, Action>> actionsByTurns()
{
    std::vector<std::tuple<const char*, Action>> result;
    bool isClassic = false;
    for (const Action& action : actions())
        result.emplace_back((isClassic = !isClassic) ? "--classic" : "--modern", action);
    return result;
}

INSTANTIATE_TEST_SUITE_P(WhileTheForm, EveryCallByCom, testing::ValuesIn(actionsByTurns()), nameOf);

}  // namespace

TEST_P(EveryCallByCom, MayBeRefusedAndRowsAndFilesAreAsTheRulesSay)
{
    StartedStandin standin(standinArguments());
    int calls = 0;
    const WholeRun whole = wholeRun(standin, calls);

    int noticed = 0;
    for (int n = 1; n <= calls; ++n) {
        SCOPED_TRACE("call " + std::to_string(n));
        Beside beside(model);
        beside.begin(action());
        standin.control().call("standinFailAt", n);

        action().run(beside.world);

        standin.control().call("standinFailAt", 0);
        expectRowsOf(whole, keptBy(beside.world));
        expectFilesOf(whole, keptBy(beside.world));
        EXPECT_EQ(standin.control().call("standinLockCount").number(), 0);
        EXPECT_TRUE(beside.world.pointersAreDefault());
        noticed += beside.world.endAndReadLog().find(" failed") == std::string::npos ? 0 : 1;
    }
    EXPECT_GT(noticed, 0);
}

TEST_P(EveryCallByCom, MayBeItsLastAndRowsAndFilesAreKept)
{
    int calls = 0;
    WholeRun whole;
    {
        StartedStandin standin(standinArguments());
        whole = wholeRun(standin, calls);
    }

    for (int n = 1; n <= calls; ++n) {
        SCOPED_TRACE("call " + std::to_string(n));
        StartedStandin standin(standinArguments());
        Beside beside(model);
        beside.begin(action());
        standin.control().call("standinDieAt", n);

        const app::Ended ended = action().run(beside.world);

        EXPECT_TRUE(standin.ends());
        EXPECT_EQ(ended, app::Ended::ByError);
        EXPECT_EQ(beside.world.form.StatusLine.Caption, app::femapIsGone);
        EXPECT_FALSE(beside.world.program.isConnected());
        EXPECT_TRUE(beside.world.pointersAreDefault());
        expectNoRowMissing(whole, keptBy(beside.world));
        expectFilesOf(whole, keptBy(beside.world));
        beside.world.program.close();
    }
}

}  // namespace reliability
