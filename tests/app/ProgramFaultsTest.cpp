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
        for (int n = 1; reached; ++n) {
            StartedProgram f;
            f.form.ScaleWidth = f.form.ScaleHeight = 10000;
            int calls = 0;
            reached = false;
            f.connector.beforeCall = [&](const std::string&) {
                if (++calls != n)
                    return;
                reached = true;
                throw logging::RuntimeError(logging::ErrorNumber::ObjectFailed, "refused");
            };

            f.program.raise(binding.event, binding.event == femapEvent ? 2 : 46);

            EXPECT_EQ(f.femap.lockCount, 0) << binding.event << " call " << n;
            EXPECT_FALSE(f.program.isBusy());
            for (const form::MainForm::NamedControl& each : f.form.controls())
                EXPECT_EQ(each.control->MousePointer, form::pointerDefault) << binding.event;
            EXPECT_EQ(f.program.raise("ClearAll_Click"), Ended::Normally);
        }
    }
}

TEST(Program, AsksNothingMoreOfAFemapThatDiedAtAnyCallOfAnyProcedure)
{
    for (const Binding& binding : bindings()) {
        bool reached = true;
        for (int n = 1; reached; ++n) {
            StartedProgram f;
            f.form.ScaleWidth = f.form.ScaleHeight = 10000;
            f.form.InputsList.AddItem("x\t1");
            f.program.raise("GenerateButton_Click");
            const std::string control = f.files.contents.at("/models/beamControl.txt");
            int calls = 0;
            f.connector.beforeCall = [&](const std::string&) {
                if (++calls >= n)
                    throw femap::ConnectionLost("gone");
            };

            const Ended ended = f.program.raise(binding.event, 2);

            reached = calls >= n;
            if (!reached)
                continue;
            EXPECT_EQ(calls, n) << binding.event;
            EXPECT_EQ(ended, Ended::ByError) << binding.event;
            EXPECT_EQ(f.form.StatusLine.Caption, femapIsGone);
            EXPECT_EQ(f.form.InputsList.Rows(), 3);
            EXPECT_EQ(f.files.contents.at("/models/beamControl.txt"), control);
            EXPECT_FALSE(f.form.GenerateButton.Enabled);
            f.program.close();
            EXPECT_EQ(calls, n);
            EXPECT_EQ(f.host.unloads, 1);
        }
    }
}

TEST(Program, StartsWithAUsableFormWhicheverCallFails)
{
    bool reached = true;
    for (int n = 1; reached; ++n) {
        ProgramFixture f;
        f.addVectors({2});
        int calls = 0;
        f.connector.beforeCall = [&](const std::string&) {
            if (++calls == n)
                throw logging::RuntimeError(logging::ErrorNumber::ObjectFailed, "refused");
        };

        const Started started = f.program.start("/models/beam.neu$beam.log$ALWAYS");

        reached = calls >= n;
        EXPECT_NE(started, Started::FemapNotFound);
        EXPECT_TRUE(f.program.isConnected());
        EXPECT_EQ(f.program.raise("ClearAll_Click"), Ended::Normally);
        f.program.close();
        EXPECT_EQ(f.connector.handles, 0) << "call " << n;
    }
}

TEST(Program, AsksNothingMoreOfAFemapThatDiedAtAnyCallOfStart)
{
    bool reached = true;
    for (int n = 1; reached; ++n) {
        ProgramFixture f;
        f.addVectors({2});
        int calls = 0;
        f.connector.beforeCall = [&](const std::string&) {
            if (++calls >= n)
                throw femap::ConnectionLost("gone");
        };

        const Started started = f.program.start("/models/beam.neu$beam.log$ALWAYS");

        reached = calls >= n;
        if (!reached)
            continue;
        EXPECT_EQ(started, Started::ByError);
        EXPECT_EQ(calls, n);
        EXPECT_FALSE(f.program.isConnected());
        EXPECT_EQ(f.form.StatusLine.Caption, femapIsGone);
        f.program.close();
        EXPECT_EQ(calls, n);
        EXPECT_EQ(f.connector.handles, 0);
    }
}

}  // namespace
}  // namespace app
