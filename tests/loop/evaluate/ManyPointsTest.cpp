#include "EvaluateFixture.h"
#include "loop/evaluate/Campaign.h"

#include <gmock/gmock.h>

#include <algorithm>

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace loop::evaluate
{

namespace
{

const std::string head = "row,Skin,\"Web, left\",Total mass,\"End \"\"B\"\"\",status\r\n";

class ManyPoints : public EvaluateFixture
{
protected:
    int evaluatePoints(std::vector<std::string> words = {})
    {
        words.insert(words.end(), {"--points", path("points.csv"), "--results", path("out.csv")});
        return evaluate(words);
    }
    // The records in the order of their numbers.
    std::string sortedResults() const
    {
        std::istringstream text(read("out.csv"));
        std::vector<std::string> lines;
        for (std::string line; std::getline(text, line);)
            lines.push_back(line + '\n');
        std::ranges::sort(lines.begin() + 1, lines.end());
        std::string all;
        for (const std::string& line : lines)
            all += line;
        return all;
    }
};

TEST_F(ManyPoints, GetARecordEachWithAllInputsAndOutputs)
{
    write("points.csv", "Skin\n1\n 2.5 \n1E-3\n");

    EXPECT_EQ(evaluatePoints(), 0) << errors.str();

    EXPECT_EQ(read("out.csv"), head + "1,1,.25,1.25,7,done\r\n" + "2,2.5,.25,2.75,7,done\r\n" +
                                   "3,1E-3,.25,0.251,7,done\r\n");
    EXPECT_EQ(output.str(), "3 of 3 points are done; the results are in " + path("out.csv") + "\n");
    EXPECT_THAT(errors.str(), EndsWith("3 of 3 points\n"));
    EXPECT_EQ(read("InputValues.txt"), inputs);
}

TEST_F(ManyPoints, MayNameTheInputsInAnyOrder)
{
    write("points.csv", "\xEF\xBB\xBF\"Web, left\", Skin\r\n1,2\r\n");

    EXPECT_EQ(evaluatePoints(), 0) << errors.str();

    EXPECT_EQ(read("out.csv"), head + "1,2,1,3,7,done\r\n");
}

TEST_F(ManyPoints, GoOnBehindOneThatFails)
{
    write("points.csv", "Skin\n1\n9\n2\n");

    EXPECT_EQ(evaluatePoints(), 1);

    EXPECT_EQ(read("out.csv"),
              head + "1,1,.25,1.25,7,done\r\n" +
                  "2,9,.25,,,failed: CAEInput ended with code 1: Skin is refused\r\n" +
                  "3,2,.25,2.25,7,done\r\n");
    EXPECT_THAT(errors.str(),
                HasSubstr("velmar-evaluate: row 2: CAEInput ended with code 1: Skin is refused\n"));
    EXPECT_THAT(errors.str(), EndsWith("3 of 3 points, 1 failed\n"));
    EXPECT_EQ(output.str(),
              "2 of 3 points are done, 1 failed (--again repeats them); the results "
              "are in " +
                  path("out.csv") + "\n");
}

TEST_F(ManyPoints, AreNotRunTwice)
{
    write("points.csv", "Skin\n1\n9\n");
    evaluatePoints();
    const std::string before = read("out.csv");
    std::filesystem::remove(path("calls"));

    EXPECT_EQ(evaluatePoints(), 1);

    EXPECT_EQ(read("out.csv"), before);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(ManyPoints, ThatFailedAreRepeatedWhenThatIsWanted)
{
    write("points.csv", "Skin\n1\n9\n");
    evaluatePoints();
    std::filesystem::remove(path("calls"));
    system.files.remove(programs.path("CAEInput"));
    std::filesystem::copy_file("/bin/true", programs.path("CAEInput"));
    write("panel.run.neu", "3\n");
    write("FDFemap.bat", "echo 3 >panel.run.neu; . ./solve\n");

    EXPECT_EQ(evaluatePoints({"--again"}), 0) << errors.str();

    EXPECT_EQ(read("out.csv"), head + "1,1,.25,1.25,7,done\r\n" + "2,9,.25,3,7,done\r\n");
    EXPECT_EQ(callsOf("solver"), 1);
}

TEST_F(ManyPoints, GoOnWhereACallWasEnded)
{
    write("points.csv", "Skin\n1\n2\n3\n");
    write("out.csv", head + "1,1.0,0.25,88,7,done\r\n" + "2,2,.25,2.2");

    EXPECT_EQ(evaluatePoints(), 0) << errors.str();

    EXPECT_EQ(read("out.csv"), head + "1,1.0,0.25,88,7,done\r\n" + "2,2,.25,2.25,7,done\r\n" +
                                   "3,3,.25,3.25,7,done\r\n");
    EXPECT_EQ(output.str(), "3 of 3 points are done; the results are in " + path("out.csv") + "\n");
}

TEST_F(ManyPoints, AreRunWhereTheResultsAreOfOtherValues)
{
    write("points.csv", "Skin\n1\n");
    const std::string others = "1,4,.25,88,7,done\r\n7,1,.25,88,7,done\r\nx,1,.25,88,7,done\r\n";
    write("out.csv", head + others);

    EXPECT_EQ(evaluatePoints(), 0) << errors.str();

    EXPECT_EQ(read("out.csv"), head + others + "1,1,.25,1.25,7,done\r\n");
    EXPECT_THAT(errors.str(), StartsWith("velmar-evaluate: " + path("out.csv") +
                                         " has results of 3 other points than the table; they "
                                         "stay\n"));
}

TEST_F(ManyPoints, GetNoTableOfAnotherStudy)
{
    write("points.csv", "Skin\n1\n");
    write("out.csv", "row,Skin,Total mass,status\r\n");

    EXPECT_EQ(evaluatePoints(), 1);

    EXPECT_EQ(read("out.csv"), "row,Skin,Total mass,status\r\n");
    EXPECT_EQ(errors.str(), path("out.csv") +
                                ":1: the table has other names than this study; name another file "
                                "for the results, or remove this one\n");
}

TEST_F(ManyPoints, AreAllLookedAtBeforeTheFirstIsRun)
{
    write("points.csv", "Skin,\"Web, left\"\n1,2\n1,x\n1\n,2\n\"1,2\n");

    EXPECT_EQ(evaluatePoints(), 1);

    const std::string file = path("points.csv");
    EXPECT_EQ(errors.str(),
              file + ":3: Web, left is \"x\", which is no number; write it as 12.5 or 1.5E-05\n" +
                  file +
                  ":4: the row has 1 cells, but the head has 2; a row has a value for each name of "
                  "the head\n" +
                  file + ":5: Skin is \"\", which is no number; write it as 12.5 or 1.5E-05\n" +
                  file + ":6: a quotation mark is not closed; close it\n");
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_FALSE(has("out.csv"));
}

TEST_F(ManyPoints, NeedNamesOfTheStudy)
{
    write("points.csv", "Skin,skin,Skin,Load  history\n1,1,1,1\n");

    EXPECT_EQ(evaluatePoints(), 1);

    const std::string line = path("points.csv") + ":1: ";
    EXPECT_EQ(
        errors.str(),
        line +
            "the study has 1 of \"Skin\", not 2; name it as often as it is there, in its order\n" +
            line + "the study has no \"skin\"; write its names as they are\n" + line +
            "the study has no \"Load  history\"; write its names as they are\n");
}

TEST_F(ManyPoints, NeedATable)
{
    EXPECT_EQ(evaluatePoints(), 1);
    EXPECT_THAT(errors.str(), StartsWith("velmar-evaluate: File not opened: "));

    write("points.csv", "");
    EXPECT_EQ(evaluatePoints(), 1);
    EXPECT_EQ(errors.str(),
              path("points.csv") + ":1: the table is empty; its first line has names of inputs\n");
}

TEST_F(ManyPoints, MustGiveANumberWhereTheStudyHasNone)
{
    write("InputValues.txt", "Skin  \r\nWeb, left  1\r\n");
    write("points.csv", "\"Web, left\"\n1\n");

    EXPECT_EQ(evaluatePoints(), 1);
    EXPECT_EQ(errors.str(),
              "InputValues.txt:1: Skin has no number, and no point gives it one; "
              "press \"Refresh Values\" and \"Apply\" in the form\n");

    write("points.csv", "Skin\n1\n");
    EXPECT_EQ(evaluatePoints(), 0) << errors.str();
    EXPECT_EQ(read("out.csv"), head + "1,1,1,2,7,done\r\n");
}

TEST_F(ManyPoints, KeepWithinTheBoundsThatTheEngineerGave)
{
    write("panelBounds.csv",
          "name,kind,value,lower,upper\nSkin,Prop,1,0.5,2\n\"Web, left\",Matl,1,,\n");
    write("points.csv", "Skin,\"Web, left\"\n0.5,-1E9\n2,1E9\n0.4,1\n2.1,1\n");

    EXPECT_EQ(evaluatePoints(), 1);

    const std::string file = path("points.csv");
    EXPECT_EQ(errors.str(), file +
                                ":4: Skin is 0.4, beyond its bounds in panelBounds.csv:2; give "
                                "another value, or other bounds there\n" +
                                file +
                                ":5: Skin is 2.1, beyond its bounds in panelBounds.csv:2; "
                                "give another value, or other bounds there\n");
}

TEST_F(ManyPoints, RunSideBySideInCopies)
{
    write("points.csv", "Skin\n1\n2\n3\n4\n5\n");
    write("solve", read("solve") + "ls >seen; cp seen calls '" + folder.path() + "'\n");
    write("more.txt", "");

    EXPECT_EQ(evaluatePoints({"-j", "3", "--with", "solve", "--with", "more.txt"}), 0)
        << errors.str();

    EXPECT_EQ(sortedResults(), head + "1,1,.25,1.25,7,done\r\n" + "2,2,.25,2.25,7,done\r\n" +
                                   "3,3,.25,3.25,7,done\r\n" + "4,4,.25,4.25,7,done\r\n" +
                                   "5,5,.25,5.25,7,done\r\n");
    EXPECT_EQ(read("seen"),
              "CAEInput.txt\nCAEOutput.txt\nFDFemap.bat\nInputValues.txt\ncalls\n"
              "more.txt\npanel.dat\npanel.neu\npanel.op2\npanel.run.neu\n"
              "panelEvaluate.log\nseen\nsolve\n");
    EXPECT_THAT(read("calls"), HasSubstr("panelCopies"));
    EXPECT_FALSE(has("panelCopies"));
    EXPECT_EQ(read("InputValues.txt"), inputs);
    EXPECT_EQ(read("OutputValues.txt"), outputs);
}

TEST_F(ManyPoints, SideBySideKeepTheTimesOfTheirFiles)
{
    write("points.csv", "Skin\n1\n2\n");
    write("FunctionsInputvalues.txt", "");
    const auto past = std::filesystem::last_write_time(path("solve")) - std::chrono::hours(1);
    std::filesystem::last_write_time(path("FunctionsInputvalues.txt"), past);
    write("solve",
          read("solve") + "[ FunctionsInputvalues.txt -nt CAEInput.txt ] && exit 3 || :\n");

    EXPECT_EQ(evaluatePoints({"-j", "2", "--with", "solve"}), 0) << errors.str();
}

TEST_F(ManyPoints, SideBySideNeedTheModelAndTheFilesNamed)
{
    write("points.csv", "Skin\n1\n2\n");

    EXPECT_EQ(evaluatePoints({"-j", "2", "--with", "nothing"}), 1);
    EXPECT_EQ(errors.str(), "velmar-evaluate: File not copied: No such file or directory: " +
                                path("nothing") + "\n");
    EXPECT_FALSE(has("panelCopies"));

    std::filesystem::remove(path("panel.neu"));
    EXPECT_EQ(evaluatePoints({"-j", "2"}), 1);
    EXPECT_THAT(errors.str(), EndsWith(path("panel.neu") + "\n"));
}

TEST_F(ManyPoints, StopWhenSomebodyWantsIt)
{
    write("points.csv", "Skin\n1\n2\n3\n");
    write("solve", read("solve") + "! grep -q 'Skin  2' InputValues.txt || touch solver.hangs\n");
    isToStop = [this] { return has("inside"); };

    EXPECT_EQ(evaluatePoints(), 1);

    EXPECT_EQ(output.str(),
              "2 of 3 points are done, stopped (the same call goes on); the results "
              "are in " +
                  path("out.csv") + "\n");
    EXPECT_EQ(read("InputValues.txt"), inputs);
    EXPECT_THAT(errors.str(), Not(HasSubstr("row 3")));

    std::filesystem::remove(path("solver.hangs"));
    isToStop = [] { return false; };
    EXPECT_EQ(evaluatePoints(), 0) << errors.str();
    EXPECT_EQ(callsOf("solver"), 4);
}

TEST_F(ManyPoints, TellHowMuchTimeIsLeft)
{
    double seconds = 0;
    system.monotonicSeconds = [&] { return seconds += 30; };
    write("points.csv", "Skin\n1\n2\n");

    EXPECT_EQ(evaluatePoints(), 0) << errors.str();

    EXPECT_THAT(errors.str(),
                AllOf(StartsWith("1 of 2 points, about "), HasSubstr(" left\n2 of 2 ")));
}

TEST(ARoughTime, HasTheUnitThatFits)
{
    EXPECT_EQ(roughTime(0.4), "0 s");
    EXPECT_EQ(roughTime(119.4), "119 s");
    EXPECT_EQ(roughTime(120), "2 min");
    EXPECT_EQ(roughTime(7000), "117 min");
    EXPECT_EQ(roughTime(9000), "2.5 h");
}

}  // namespace

}  // namespace loop::evaluate
