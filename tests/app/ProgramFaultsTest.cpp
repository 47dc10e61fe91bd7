#include "AppFixture.h"
#include "app/Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

TEST(Program, IsUsableAfterAFailureOfEveryCallOfEveryProcedure)
{
    for (const Binding& binding : bindings()) {
        bool reached = true;
        for (std::size_t n = 1; reached; ++n) {
            StartedProgram f;
            f.form.ScaleWidth = f.form.ScaleHeight = 10000;
            f.connector.failAtCall(n);

            f.program.raise(binding.event, binding.event == femapEvent ? 2 : 46);

            reached = f.connector.calls.size() >= n;
            EXPECT_EQ(f.femap.lockCount, 0) << binding.event.text() << " call " << n;
            EXPECT_FALSE(f.program.isBusy());
            EXPECT_TRUE(fake::pointersAreDefault(f.form)) << binding.event.text();
            EXPECT_EQ(f.program.raise(form::click("ClearAll")), Ended::Normally);
        }
    }
}

TEST(Program, AsksNothingMoreOfAFemapThatDiedAtAnyCallOfAnyProcedure)
{
    for (const Binding& binding : bindings()) {
        bool reached = true;
        for (std::size_t n = 1; reached; ++n) {
            StartedProgram f;
            f.form.ScaleWidth = f.form.ScaleHeight = 10000;
            f.form.InputsList.AddItem("x\t1");
            f.program.raise(form::click("GenerateButton"));
            const std::string control = f.files.contents.at("/models/beamControl.txt");
            f.connector.dieAtCall(n);

            const Ended ended = f.program.raise(binding.event, 2);

            reached = f.connector.calls.size() >= n;
            if (!reached)
                continue;
            EXPECT_EQ(f.connector.calls.size(), n) << binding.event.text();
            EXPECT_EQ(ended, Ended::ByError) << binding.event.text();
            EXPECT_EQ(f.form.StatusLine.Caption, femapIsGone);
            EXPECT_EQ(f.form.InputsList.Rows(), 3);
            EXPECT_EQ(f.files.contents.at("/models/beamControl.txt"), control);
            EXPECT_FALSE(f.form.GenerateButton.Enabled);
            f.program.close();
            EXPECT_EQ(f.connector.calls.size(), n);
            EXPECT_EQ(f.host.unloads, 1);
        }
    }
}

TEST(Program, StartsWithAUsableFormWhicheverCallFails)
{
    bool reached = true;
    for (std::size_t n = 1; reached; ++n) {
        ProgramFixture f;
        f.addVectors({2});
        f.connector.failAtCall(n);

        const Started started = f.program.start(allArguments);

        reached = f.connector.calls.size() >= n;
        EXPECT_NE(started, Started::FemapNotFound);
        EXPECT_TRUE(f.program.isConnected());
        EXPECT_EQ(f.program.raise(form::click("ClearAll")), Ended::Normally);
        f.program.close();
        EXPECT_EQ(f.connector.objects, 0) << "call " << n;
    }
}

TEST(Program, AsksNothingMoreOfAFemapThatDiedAtAnyCallOfStart)
{
    bool reached = true;
    for (std::size_t n = 1; reached; ++n) {
        ProgramFixture f;
        f.addVectors({2});
        f.connector.dieAtCall(n);

        const Started started = f.program.start(allArguments);

        reached = f.connector.calls.size() >= n;
        if (!reached)
            continue;
        EXPECT_EQ(started, Started::ByError);
        EXPECT_EQ(f.connector.calls.size(), n);
        EXPECT_FALSE(f.program.isConnected());
        EXPECT_EQ(f.form.StatusLine.Caption, femapIsGone);
        f.program.close();
        EXPECT_EQ(f.connector.calls.size(), n);
        EXPECT_EQ(f.connector.objects, 0);
    }
}

}  // namespace
}  // namespace app
