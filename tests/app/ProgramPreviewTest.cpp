#include "AppFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace app
{
namespace
{

TEST(PreviewOfAProgram, TellsWhatApplyThenWrites)
{
    StartedProgram f;
    f.form.Optimizer.Text = "Velmar";

    const preview::Preview made = f.program.preview("FDFemap.bat");

    EXPECT_THAT(made.files, SizeIs(8));
    EXPECT_THAT(made.problem, IsEmpty());
    f.program.raise(form::click("GenerateButton"));
    for (const preview::File& file : made.files)
        EXPECT_EQ(f.files.contents.at(file.path).size(), file.size) << file.path;
    EXPECT_EQ(f.files.contents.at("/models/FDFemap.bat"), made.texts->after);
}

TEST(PreviewOfAProgram, WritesAndShowsNothing)
{
    StartedProgram f;
    f.form.status.tellResult("4 rows");
    const auto disk = f.files.contents;

    f.program.preview();

    EXPECT_EQ(f.files.contents, disk) << "the log, too";
    EXPECT_THAT(f.messages(), IsEmpty());
    EXPECT_EQ(f.form.StatusLine.Caption, "4 rows");
    EXPECT_THAT(f.connector.calls, Not(Contains("feAppLock")));
}

TEST(PreviewOfAProgram, IsEmptyWhileAProcedureRunsAndAfterTheEnd)
{
    StartedProgram f;
    f.duringApply([&] { EXPECT_THAT(f.program.preview().files, IsEmpty()); });
    f.program.close();

    EXPECT_THAT(f.program.preview().files, IsEmpty());
}

TEST(PreviewOfAProgram, FindsOutThatFemapIsLost)
{
    StartedProgram f;
    f.connector.beforeCall = [](const std::string&) { throw femap::ConnectionLost("gone"); };

    const preview::Preview made = f.program.preview();

    EXPECT_THAT(made.files, IsEmpty());
    EXPECT_EQ(made.problem, f.program.lastFailure());
    EXPECT_FALSE(f.program.isConnected());
}

}  // namespace
}  // namespace app
