#include "fake/GenerateFixture.h"
#include "generate/ScanProject.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace generate
{

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::SizeIs;

TEST(OmbraProject, WritesThreeProjectFilesAndSixExchangeFiles)
{
    GenerateFixture f;
    f.femap.modelName = inWork("plate");

    WriteOmbraProject(f.context, f.progress);

    EXPECT_THAT(f.fileNames(),
                ElementsAre("CAEInput.txt", "CAEOutput.txt", "InputValues.txt",
                            "InputValues.txt.template", "OutputValues.txt",
                            "OutputValues.txt.template", "plate.kvp", "plate.par", "plate.pcs"));
}

TEST(OmbraProject, LogsNothing)
{
    GenerateFixture f;
    f.addInput({"T1", "0.25", "Prop", "1", "pval", "0"});

    EXPECT_THAT(f.logOf([&] { WriteOmbraProject(f.context, f.progress); }), IsEmpty());
}

TEST(OmbraProject, RaisesWithoutAModelAndWritesNothing)
{
    GenerateFixture f;
    f.femap.model.reset();

    EXPECT_THROW(WriteOmbraProject(f.context, f.progress), sys::RuntimeError);
    EXPECT_THAT(f.fileNames(), IsEmpty());
}

TEST(ProjectFile, NamesTheOtherFilesAfterTheModel)
{
    GenerateFixture f;

    WriteProjectFile(f.context, f.progress, inWork(""), "plate");

    EXPECT_THAT(f.written("plate.kvp"),
                IsSupersetOf({"set linkfile \"plate.pcs\"", "set linkfiledisplay \"plate.pcs\"",
                              "set scriptfile \"plate.script\"", "set openparfile \"plate.par\""}));
}

TEST(ProjectFile, BeginsWithABoxOfThirtySevenCharacters)
{
    GenerateFixture f;

    WriteProjectFile(f.context, f.progress, inWork(""), "plate");

    const std::vector<std::string> lines = f.written("plate.kvp");
    const std::vector<std::string> box(lines.begin(), lines.begin() + 5);
    EXPECT_THAT(box, Each(SizeIs(37)));
    EXPECT_EQ(box.at(2), "##  Kelvex Ombra Project (.kvp)    ##");
}

TEST(ProjectFile, TellsBlankLinesFromEmptyOnes)
{
    GenerateFixture f;

    WriteProjectFile(f.context, f.progress, inWork(""), "plate");

    const std::vector<std::string> lines = f.written("plate.kvp");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), " "), 5);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), ""), 21);
}

TEST(ProcessFile, RunsTheCommandLineInItsSecondStep)
{
    GenerateFixture f;
    f.form.CommandLine.Text = "call 'a' \"b\"";

    WriteProcessFile(f.context, f.progress, inWork(""), "plate");

    EXPECT_THAT(f.written("plate.pcs"), Contains("'Y'  'call 'a' \"b\"' '*' '<local>' 0"));
}

TEST(ProcessFile, KeepsTheRecordOfAnEmptyCommandLine)
{
    GenerateFixture f;
    f.form.CommandLine.Text = "";

    WriteProcessFile(f.context, f.progress, inWork(""), "plate");

    EXPECT_THAT(f.written("plate.pcs"), Contains("'Y'  '' '*' '<local>' 0"));
}

TEST(ProcessFile, HasTwoBlanksBeforeTheFlagOfTheInputFilesOnly)
{
    GenerateFixture f;

    WriteProcessFile(f.context, f.progress, inWork(""), "plate");

    EXPECT_THAT(f.written("plate.pcs"),
                IsSupersetOf({"'I'  'InputValues.txt.template' 'InputValues.txt' '<local>'  0",
                              "'O'  'OutputValues.txt.template' 'OutputValues.txt' '<local>' 0"}));
}

TEST(ParameterFile, HoldsSixLinesForEmptyGrids)
{
    GenerateFixture f;

    WriteParameterFile(f.context, f.progress, inWork(""), "plate");

    EXPECT_THAT(f.written("plate.par"),
                ElementsAre("'H' 'y2k2'", "'H' 'Inputs'", "'H' '============'", "'H' 'Outputs'",
                            "'H' '============'", "'H' 'END'"));
}

TEST(ParameterFile, HoldsEveryNamedRowWithItsRole)
{
    GenerateFixture f;
    f.addInput({"T1", "0.25", "Prop", "1", "pval", "0"});
    f.addInput({"", "1", "Prop", "1", "pval", "0"});
    f.addInput({"it's @input@", "X-Y 'Values'", "Function", " 5"});
    f.addOutput({"TotalMass", "", "MassTotal", "", "MassProperties"});

    WriteParameterFile(f.context, f.progress, inWork(""), "plate");

    EXPECT_THAT(
        f.written("plate.par"),
        ElementsAre(
            "'H' 'y2k2'", "'H' 'Inputs'", "'H' '============'",
            "'P'    'T1'    0.25        0.00    0.0    -9.425e6    9.425e6    0.00    1",
            "'P'    'it's @input@'    X-Y 'Values'        0.00    0.0    -9.425e6    9.425e6    "
            "0.00    1",
            "'H' 'Outputs'", "'H' '============'",
            "'P'    'TotalMass'            0.00    0.0    -9.425e6    9.425e6    0.00    2",
            "'H' 'END'"));
}

}  // namespace generate
