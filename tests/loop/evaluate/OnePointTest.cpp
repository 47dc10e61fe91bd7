#include "EvaluateFixture.h"

#include <gmock/gmock.h>

#include <filesystem>

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

namespace loop::evaluate
{

namespace
{

class OnePoint : public EvaluateFixture
{};

TEST_F(OnePoint, GoesThroughCaeInputTheSolverAndCaeOutput)
{
    EXPECT_EQ(evaluate(), 0) << errors.str();

    const std::string arguments = " --femap=embedded --folder " + folder.path() + "/ --locked";
    EXPECT_THAT(calls(), ElementsAre("CAEInput" + arguments, "solver", "CAEOutput" + arguments));
    EXPECT_EQ(read("OutputValues.txt"), "Total mass  1.75\r\nEnd \"B\"  7\r\n");
    EXPECT_THAT(output.str(), MatchesRegex("OutputValues.txt is written: 2 outputs in [^ ]* s\n"));
    EXPECT_EQ(errors.str(), "");
}

TEST_F(OnePoint, LeavesTheFolderAsItWasButForResultsAndTheLog)
{
    const std::set<std::string> before = folder.listing();

    EXPECT_EQ(evaluate(), 0);

    EXPECT_EQ(read("InputValues.txt"), inputs);
    std::set<std::string> after = folder.listing();
    for (const char* const made : {"calls", "panel.dat", "panel.op2", "panelEvaluate.log"})
        EXPECT_EQ(after.erase(made), 1U) << made;
    EXPECT_EQ(after, before);
}

TEST_F(OnePoint, RunsTheLineOfTheCallInPlaceOfTheBatchFile)
{
    std::filesystem::remove(path("FDFemap.bat"));

    EXPECT_EQ(evaluate({"--solver", ". ./solve; echo \"more\" >>panel.op2.log"}), 0)
        << errors.str();

    EXPECT_TRUE(has("panel.op2.log"));
}

TEST_F(OnePoint, WithoutABatchFileSaysSo)
{
    std::filesystem::remove(path("FDFemap.bat"));

    EXPECT_EQ(evaluate(), 1);

    EXPECT_THAT(errors.str(), AllOf(StartsWith("velmar-evaluate: solver could not be run: File not "
                                               "opened: No such file or directory: "),
                                    HasSubstr("FDFemap.bat")));
}

TEST_F(OnePoint, DeletesWhatAnEarlierRunOfTheSolverLeft)
{
    write("solve", "ls panel.* >found; echo result >panel.op2");
    for (const char* const old : {"panel.op2", "panel.results.neu", "panel.Log", "panel.rsf"})
        write(old, "old");

    evaluate();

    EXPECT_EQ(read("found"), "panel.dat\npanel.neu\npanel.run.neu\n");
}

TEST_F(OnePoint, MayEndInTheCodesZeroAndOneOfTheSolver)
{
    write("FDFemap.bat", ". ./solve; exit 1\r\n");
    EXPECT_EQ(evaluate(), 0) << errors.str();

    write("FDFemap.bat", ". ./solve; echo licence; exit 2\r\n");
    EXPECT_EQ(evaluate(), 1);
    EXPECT_EQ(errors.str(), "velmar-evaluate: solver ended with code 2: licence\n");
}

TEST_F(OnePoint, TakesResultsInANeutralFileFromTheModelHost)
{
    write("FDFemap.bat", ". ./solve; cp panel.op2 panel.results.neu; mv panel.op2 kept\r\n");
    write("output.fails", "");

    evaluate();
    EXPECT_THAT(errors.str(), StartsWith("velmar-evaluate: CAEOutput ended with code 1"));
}

TEST_F(OnePoint, TellsWhichStepFailedAndTheEndOfItsOutput)
{
    write("InputValues.txt", "Skin  9\r\nWeb, left  1\r\n");

    EXPECT_EQ(evaluate(), 1);

    EXPECT_EQ(errors.str(),
              "velmar-evaluate: CAEInput ended with code 1: Skin is refused\n"
              "the end of its output:\nall is checked\nSkin is refused\n");
    EXPECT_FALSE(has("OutputValues.txt"));
    EXPECT_EQ(callsOf("solver"), 0);
}

TEST_F(OnePoint, NeverHandsOnOldResults)
{
    write("output.fails", "");

    EXPECT_EQ(evaluate(), 1);

    EXPECT_FALSE(has("OutputValues.txt"));
    EXPECT_EQ(errors.str(),
              "velmar-evaluate: CAEOutput ended with code 1: CAEOutput.txt:4: no number\n");
}

TEST_F(OnePoint, DoesNotTakeOutputsThatAreNotAllThere)
{
    write("FDFemap.bat", "echo 'Total mass  x' >panel.op2\r\n");

    EXPECT_EQ(evaluate(), 1);

    EXPECT_THAT(errors.str(),
                AllOf(StartsWith("velmar-evaluate: CAEOutput left OutputValues.txt:1: Total mass "
                                 "has \"x\", which is no number"),
                      Not(HasSubstr("\n\n"))));
}

TEST_F(OnePoint, EndsAStepThatTakesTooLong)
{
    write("solver.hangs", "");

    EXPECT_EQ(evaluate({"--timeout", "0.2"}), 1);

    EXPECT_EQ(errors.str(), "velmar-evaluate: solver took longer than 0.2 s and was ended\n");
    EXPECT_EQ(read("InputValues.txt"), inputs);
    EXPECT_FALSE(has("panelFormer.json"));
}

TEST_F(OnePoint, EndsAndPutsBackWhenItIsToStop)
{
    write("solver.hangs", "");
    isToStop = [this] { return has("inside"); };

    EXPECT_EQ(evaluate(), 1);

    EXPECT_EQ(errors.str(), "velmar-evaluate: stopped\n");
    EXPECT_EQ(read("InputValues.txt"), inputs);
    EXPECT_FALSE(has("panelFormer.json"));
    EXPECT_FALSE(has("panel.run.neu"));
}

TEST_F(OnePoint, NeedsItsProgramsBesideItself)
{
    std::filesystem::remove(programs.path("CAEOutput"));

    EXPECT_EQ(evaluate(), 1);

    EXPECT_EQ(errors.str(),
              "velmar-evaluate: A program is missing; install the tool again, all of "
              "it in one folder: " +
                  programs.path("CAEOutput") + "\n");
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_TRUE(has("OutputValues.txt"));
}

TEST_F(OnePoint, NeedsAStudyInTheFolder)
{
    std::filesystem::remove(path("CAEOutput.txt"));
    EXPECT_EQ(evaluate(), 1);
    EXPECT_THAT(errors.str(), StartsWith("CAEOutput.txt: the file is not in "));
    EXPECT_FALSE(has("panelFormer.json"));

    std::filesystem::remove(path("CAEInput.txt"));
    EXPECT_EQ(evaluate(), 1);
    EXPECT_THAT(errors.str(), StartsWith("CAEInput.txt: the file is not in "));
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(OnePoint, WaitsForTheFolderAndTellsWhoHasIt)
{
    const auto lock = system.files.lockFolder(folder.path() + "/");
    system.wait = [](std::chrono::milliseconds) {};

    EXPECT_EQ(evaluate(), 1);

    EXPECT_THAT(errors.str(),
                AllOf(StartsWith("velmar-evaluate: another program works in the folder: "),
                      EndsWith(". Try again when it has ended\n")));
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(OnePoint, OfAWrongCallShowsHowToCall)
{
    EXPECT_EQ(evaluate({"--what"}), 2);
    EXPECT_THAT(errors.str(),
                StartsWith("velmar-evaluate: unknown option --what\nusage: velmar-evaluate "));

    EXPECT_EQ(evaluate({"--help"}), 0);
    EXPECT_THAT(output.str(), StartsWith("usage: velmar-evaluate "));
}

}  // namespace

}  // namespace loop::evaluate
