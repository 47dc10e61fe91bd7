#include "FindingsFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace findings
{
namespace
{

using testing::HasSubstr;
using testing::IsEmpty;

class CommandRules : public testing::Test
{
protected:
    FindingsFixture f;

    std::string& command() { return f.form.CommandLine.Text; }
};

TEST_F(CommandRules, TellCharactersOfTheModelsNameThatBreakCommands)
{
    f.openModel("wing, left & right.neu");

    EXPECT_EQ(f.found("model-name-breaks"),
              "error model-name-breaks wing, left & right: The model's name, wing, left & right, "
              "holds a blank, &, ,: the commands of the loop break there and would run on other "
              "files.");
    EXPECT_THAT(f.found("other-deck"), IsEmpty());
    EXPECT_THAT(f.found("command-special"), IsEmpty()) << "that comes of the name";
}

TEST_F(CommandRules, LookForTheModelsNameOutsideOfQuotesWhereThereIsNoScript)
{
    f.chooseTool("Ombra");
    f.openModel("left wing.neu");
    EXPECT_THAT(f.found("model-name-breaks"), HasSubstr("a blank"));

    command() = "nastran \"left wing.dat\" notify=no";

    EXPECT_THAT(f.found("model-name-breaks"), IsEmpty());
    EXPECT_THAT(f.found("other-deck"), IsEmpty());
}

TEST_F(CommandRules, WarnOfCharactersThatOnlySomeFilesTakeForSomethingElse)
{
    f.openModel("beam[1]!.neu");
    EXPECT_THAT(f.found("model-name-special"), HasSubstr("holds !, which"));

    f.chooseTool("Ombra");

    EXPECT_THAT(f.found("model-name-special"), HasSubstr("holds [, ], which"));
    EXPECT_THAT(f.found("model-name-breaks"), IsEmpty());
}

TEST_F(CommandRules, LetPlainNamesPass)
{
    f.openModel("Wing_2-b.neu");

    EXPECT_THAT(f.found("model-name-breaks"), IsEmpty());
    EXPECT_THAT(f.found("model-name-special"), IsEmpty());
    EXPECT_THAT(f.found("model-name-not-ascii"), IsEmpty());
}

TEST_F(CommandRules, WarnOfWhatTheBatchFileTakesForSomethingElse)
{
    command() = "%NASTRAN% beam.dat notify=no & pause";
    EXPECT_THAT(f.found("command-special"), HasSubstr("holds &, %, which"));

    command() = R"("C:\R&D\nastran.exe" beam.dat notify=no,yes;)";
    EXPECT_THAT(f.found("command-special"), IsEmpty());

    command() = "call % beam.dat";
    f.chooseTool("Ombra");
    EXPECT_THAT(f.found("command-special"), IsEmpty());
}

TEST_F(CommandRules, TellTheQuoteThatEndsTheRecordInTheProcessFile)
{
    command() = "nastran beam.dat title='x'";
    EXPECT_THAT(f.found("command-breaks"), IsEmpty());

    f.chooseTool("Ombra");

    EXPECT_THAT(f.found("command-breaks"), HasSubstr("holds ', at which"));
}

TEST_F(CommandRules, WarnOfLettersThatCmdReadsInAnotherCodePage)
{
    f.openModel("Träger.neu");
    EXPECT_THAT(f.found("model-name-not-ascii"), HasSubstr("Träger"));
    EXPECT_THAT(f.found("command-not-ascii"), IsEmpty()) << "that comes of the name";

    command() = "C:\\Löser\\nastran Träger.dat";
    EXPECT_THAT(f.found("command-not-ascii"), HasSubstr("warning"));

    f.chooseTool("Ombra");
    EXPECT_THAT(f.found("model-name-not-ascii"), IsEmpty());
    EXPECT_THAT(f.found("command-not-ascii"), IsEmpty());
}

TEST_F(CommandRules, WarnOfAFolderOnAShare)
{
    EXPECT_THAT(f.found("folder-on-share"), IsEmpty());

    f.femap.modelName = "//server/models/beam.neu";

    EXPECT_THAT(f.found("folder-on-share"), HasSubstr("//server/models/"));
}

TEST_F(CommandRules, TellAnEmptyCommandLine)
{
    EXPECT_THAT(f.found("no-command"), IsEmpty());

    command() = "  ";

    EXPECT_THAT(f.found("no-command"), HasSubstr("error no-command: The command line is empty"));
}

TEST_F(CommandRules, TellADeckOfAnotherModelOrSolver)
{
    for (const char* const good : {"nastran beam.dat notify=no", "nastran \"C:\\w k\\BEAM.DAT\"",
                                   "run.bat", "nastran beam", "nastran rcf=other.dat beam.dat"}) {
        command() = good;
        EXPECT_THAT(f.found("other-deck"), IsEmpty()) << good;
    }

    command() = "nastran rod.dat notify=no";
    EXPECT_THAT(f.found("other-deck"), HasSubstr("runs the deck rod.dat, but the model's deck is "
                                                 "beam.dat"));
    command() = "nastran nastran.ini beam.nas";
    EXPECT_THAT(f.found("other-deck"), HasSubstr("beam.nas"));
    command() = "nastran beam.bdf";
    EXPECT_THAT(f.found("other-deck"), HasSubstr("beam.bdf"));
}

TEST_F(CommandRules, TellASolverThatIsNoneOfTheTwo)
{
    EXPECT_THAT(f.found("no-solver"), IsEmpty());

    f.form.Solver.Text = "nxnastran";

    EXPECT_THAT(f.found("no-solver"), HasSubstr("(\"nxnastran\")"));
    EXPECT_THAT(f.found("other-deck"), IsEmpty());
}

TEST_F(CommandRules, TellAReferenceThatIsNotTheModelsFile)
{
    f.form.fileExtension = "modfem";
    EXPECT_THAT(f.found("reference-model"), HasSubstr("would be beam.modfem, but the model is "
                                                      "beam.neu"));

    f.form.fileExtension.clear();
    EXPECT_THAT(f.found("reference-model"), IsEmpty());

    f.femap.modelName = generate::inWork("beam");
    EXPECT_THAT(f.found("reference-model"), HasSubstr("would be beam.beam, but"));
    f.femap.modelName = generate::inWork("beam.");
    EXPECT_THAT(f.found("reference-model"), HasSubstr("would be beam., but"));
}

}  // namespace
}  // namespace findings
