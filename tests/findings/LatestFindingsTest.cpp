#include "FindingsFixture.h"
#include "findings/LatestFindings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace findings
{
namespace
{

using testing::Contains;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

struct FollowedFindings : testing::Test
{
    FindingsFixture f;
    LatestFindings latest{f.context};

    bool follow(bool isAction = true) { return latest.follow(f.femap.modelName, isAction); }
    void addInput(std::initializer_list<std::string_view> cells) { f.addInput(cells); }
};

TEST_F(FollowedFindings, TellOfEachRowTheGravest)
{
    addInput({"ThicknessAtProp8", "none", "Prop", "8", "pval", "0"});  // no number: an error
    addInput({"ThicknessAtProp9", "9.5", "Prop", "9", "pval", "0"});   // outside: a warning

    follow();

    EXPECT_EQ(latest.gravestOf({Grid::Inputs, 1}), std::nullopt);
    EXPECT_EQ(latest.gravestOf({Grid::Inputs, 2}), Severity::Error);
    EXPECT_EQ(latest.gravestOf({Grid::Inputs, 3}), Severity::Warning);
    EXPECT_EQ(latest.gravestOf({Grid::Inputs, 4}), std::nullopt);
    EXPECT_EQ(latest.gravestOf({Grid::Outputs, 2}), std::nullopt);
}

TEST_F(FollowedFindings, TellOfARowTheSentencesAndTheirCures)
{
    addInput({"ThicknessAtProp9", "9.5", "Prop", "9", "pval", "0"});

    follow();

    EXPECT_THAT(latest.textOf({Grid::Inputs, 1}), IsEmpty());
    EXPECT_THAT(latest.textOf({Grid::Inputs, 2}), StartsWith("ThicknessAtProp9 has the value 9.5"));
    EXPECT_THAT(latest.textOf({Grid::Inputs, 2}), HasSubstr("Set the bounds"));
}

TEST_F(FollowedFindings, TellNothingOfAGridThatChangedSince)
{
    addInput({"ThicknessAtProp9", "9.5", "Prop", "9", "pval", "0"});
    follow();

    f.form.InputsList.RemoveItem(1);

    EXPECT_EQ(latest.gravestOf({Grid::Inputs, 2}), std::nullopt);
    follow();
    EXPECT_EQ(latest.gravestOf({Grid::Inputs, 1}), Severity::Warning);
}

TEST_F(FollowedFindings, AreLookedForOnlyWhereTheFormHasChanged)
{
    EXPECT_TRUE(follow());
    EXPECT_FALSE(follow());

    f.form.CommandLine.Text = "";
    EXPECT_TRUE(follow());
    EXPECT_THAT(latest.found(), Contains(Field(&Finding::code, "no-command")));

    f.form.Solver.Text = "another";
    EXPECT_TRUE(follow());
    f.form.Optimizer.Text = "Ombra";
    EXPECT_TRUE(follow());
    f.openModel("wing.neu");
    EXPECT_TRUE(follow());
}

TEST_F(FollowedFindings, OfFilesAndFemapGoWithTheNextAction)
{
    f.files.contents.erase(generate::inWork("beam.dat"));
    follow();
    EXPECT_THAT(latest.found(), Not(Contains(Field(&Finding::code, "no-deck"))));

    latest.take(f.all(), f.femap.modelName, true);
    EXPECT_FALSE(follow(false));
    EXPECT_TRUE(latest.isWithFilesAndFemap());
    EXPECT_THAT(latest.found(), Contains(Field(&Finding::code, "no-deck")));

    EXPECT_TRUE(follow());
    EXPECT_FALSE(latest.isWithFilesAndFemap());
    EXPECT_THAT(latest.found(), Not(Contains(Field(&Finding::code, "no-deck"))));
}

}  // namespace
}  // namespace findings
