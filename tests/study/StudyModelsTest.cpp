#include "StudyFixture.h"
#include "fake/NeutralText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace study
{
namespace
{

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// A second model, "wing.neu", lies beside the first one.
class StudyModels : public testing::Test
{
protected:
    StudyModels() { f.write("wing.neu", neutral::completeFile()); }

    StudyFixture f;
    const std::string wing = f.folder.path("wing.neu");
    const std::string startWithoutModel = "start $beam.log$ALWAYS\n";
};

TEST_F(StudyModels, AreOpenedInAFormThatStartedWithoutOne)
{
    EXPECT_EQ(f.runScript(startWithoutModel +
                          "print StatusLine\n"
                          "open " +
                          wing +
                          "\n"
                          "print StatusLine\n"
                          "pick 1\nchoose x\nclick InputsButton\n"
                          "click GenerateButton\n"),
              0)
        << f.error();

    EXPECT_THAT(f.outputLines().front(), "FEMAP has no model open.");
    EXPECT_EQ(f.outputLines().at(1), "");
    EXPECT_EQ(f.read("wingControl.txt"), "xAtNode1\t0\tNode\t1\tx\t\r\n\r\n");
}

TEST_F(StudyModels, TakeTurnsAsTheCurrentOne)
{
    EXPECT_EQ(f.run("put Node 1 x 5\n"
                    "open " +
                    wing +
                    "\n"
                    "pick 1\nchoose x\nclick InputsButton\n"
                    "print InputsList\n"
                    "closemodel\n"
                    "click RefreshInputs\n"
                    "print InputsList\n"),
              0)
        << f.error();

    EXPECT_THAT(f.outputLines(),
                ElementsAre("xAtNode1\t0\tNode\t1\tx\t", "xAtNode1\t5\tNode\t1\tx\t"));
}

TEST_F(StudyModels, AreReadAgainWhenTheirFileIsOpenedAgain)
{
    EXPECT_EQ(f.run("put Node 1 x 5\n"
                    "open " +
                    f.modelPath() +
                    "\n"
                    "pick 1\nchoose x\nclick InputsButton\n"
                    "print InputsList\n"
                    "closemodel\n"),
              0)
        << f.error();

    EXPECT_THAT(f.outputLines(), ElementsAre("xAtNode1\t0\tNode\t1\tx\t"));
}

TEST_F(StudyModels, CloseTheFormWithTheLastOfThem)
{
    EXPECT_EQ(f.run("open " + wing + "\nclosemodel\nprint Solver\nclosemodel\n"), 0) << f.error();

    EXPECT_THAT(f.outputLines(), ElementsAre("NXNastran"));
    EXPECT_EQ(f.log().back(), "DEBUG: Setting Main femap instance to Nothing");
}

TEST_F(StudyModels, CannotBeClosedWhenNoneIsOpen)
{
    EXPECT_EQ(f.runScript(startWithoutModel + "closemodel\n"), 1);

    EXPECT_THAT(f.error(), HasSubstr("beam.study:2: FEMAP has no model open"));
}

TEST_F(StudyModels, ThatCannotBeOpenedLeaveTheCurrentOne)
{
    EXPECT_EQ(f.run("open none.neu\n"), 1);

    EXPECT_THAT(f.error(), AllOf(StartsWith("beam.study:2: "), HasSubstr("none.neu")));
    EXPECT_EQ(f.log().back(), "DEBUG: Setting Main femap instance to Nothing");
}

TEST_F(StudyModels, AreOpenedByACheckAsWell)
{
    f.write("beam.study", startWithoutModel +
                              "pick 1\nchoose x\nclick InputsButton\n"
                              "open none.neu\n"
                              "click GenerateButton\n"
                              "open " +
                              wing +
                              "\n"
                              "pick 9\nchoose x\nclick InputsButton\n");

    EXPECT_EQ(f.call({"--check", f.folder.path("beam.study")}), 1);

    EXPECT_THAT(
        splitLines(f.error()),
        ElementsAre(StartsWith("beam.study:4: InputsButton is disabled: FEMAP has no model open"),
                    AllOf(StartsWith("beam.study:5: "), HasSubstr("none.neu")),
                    AllOf(StartsWith("beam.study:8: "), HasSubstr("the ID 9"))));
}

}  // namespace
}  // namespace study
