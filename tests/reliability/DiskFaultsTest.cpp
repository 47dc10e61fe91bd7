#include "RowsAndFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace reliability
{

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

// "Apply" for each tool, on a disk that fails at one operation.
class DiskThatFails : public testing::TestWithParam<const char*>
{
protected:
    static const Action& action()
    {
        const std::string name = std::string("AppliesFor") + GetParam();
        return *std::ranges::find(actions(), name, [](const Action& each) { return each.name; });
    }

    // Does something in a fresh world for each operation of "Apply" with the disk, counted from 1.
    static int forEachOperation(const std::function<void(World& world)>& check)
    {
        int operation = 1;
        for (bool isReached = true; isReached; ++operation) {
            SCOPED_TRACE("operation " + std::to_string(operation));
            World world;
            begin(world, action());
            const int failing = world.files.operations + operation;
            world.files.failingOperation = failing;
            const app::Ended ended = action().run(world);
            isReached = world.files.operations >= failing && ended == app::Ended::ByError;
            if (isReached)
                check(world);
        }
        return operation - 2;
    }
};

INSTANTIATE_TEST_SUITE_P(DuringApply, DiskThatFails, testing::Values("Velmar", "Ombra"),
                         [](const auto& tool) { return std::string(tool.param); });

}  // namespace

TEST_P(DiskThatFails, LeavesEveryFileCompleteAndNoOther)
{
    const int operations = forEachOperation([](World& world) {
        expectFilesOf(wholeRunOf(action()), keptBy(world));
        EXPECT_EQ(world.controlFile(),
                  wholeRunOf(action()).before.files.at(world.controlFileName()));
    });

    // Each file is created, written, flushed, closed and put into its place.
    EXPECT_GE(operations, 5 * 8);
}

TEST_P(DiskThatFails, IsToldInOneMessageWithTheFileTheReasonAndTheCure)
{
    const std::size_t others = wholeRunOf(action()).messages.size();
    forEachOperation([&](World& world) {
        const std::string& folder = world.modelFolder;
        EXPECT_THAT(world.form.StatusLine.Caption,
                    AllOf(StartsWith("No space left on device. "),
                          HasSubstr(" was not written. See that its folder is there and the disk "
                                    "has room, and try again: " +
                                    folder)));
        // FEMAP's window has reason, file and cure, whatever is cut of the path.
        EXPECT_EQ(world.messages().back(), femap::cutToMessage(world.form.StatusLine.Caption));
        EXPECT_THAT(world.messages().back(), HasSubstr(", and try again: "));
        EXPECT_EQ(std::ranges::count_if(world.messages(),
                                        [&](const std::string& text) {
                                            return text.find("not written") != text.npos;
                                        }),
                  1);
        EXPECT_LE(world.messages().size(), others + 1);
    });
}

TEST_P(DiskThatFails, LeavesFemapUnlockedAndTheFormUsable)
{
    forEachOperation([](World& world) {
        EXPECT_EQ(world.femap.lockCount, 0);
        EXPECT_TRUE(world.pointersAreDefault());
        expectRowsOf(wholeRunOf(action()), keptBy(world));

        EXPECT_EQ(action().run(world), app::Ended::Normally);

        EXPECT_EQ(world.generatedFiles(), wholeRunOf(action()).after.files);
    });
}

}  // namespace reliability
