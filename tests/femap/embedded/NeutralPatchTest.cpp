#include "fake/NeutralText.h"
#include "femap/embedded/HostFixture.h"
#include "femap/embedded/NeutralPatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using femap::ModelValues;
using femap::embedded::PatchProblem;
using femap::embedded::writePatched;
using neutral::block;
using neutral::completeFile;
using neutral::header;
using testing::ElementsAre;
using testing::EndsWith;

namespace
{

// Each with its line in front.
std::vector<std::string> problemsOf(const std::string& text, const ModelValues& values)
{
    bool isWritten = false;
    std::vector<std::string> problems;
    for (const PatchProblem& problem :
         writePatched(text, "wing.neu", values, [&](std::string_view) { isWritten = true; }))
        problems.push_back(std::to_string(problem.line) + ": " + problem.what);
    EXPECT_NE(isWritten, !problems.empty());
    return problems;
}

std::string patched(const std::string& text, const ModelValues& values)
{
    std::string result;
    const auto problems =
        writePatched(text, "wing.neu", values, [&](std::string_view piece) { result += piece; });
    for (const PatchProblem& problem : problems)
        ADD_FAILURE() << problem.line << ": " << problem.what;
    return result;
}

ModelValues one(const std::string& word, int id, const femap::MemberName& member,
                const femap::Value& value)
{
    return {.entities = {{word, id, member, value}}, .loads = {}, .functions = {}};
}

ModelValues oneLoad(int definition, std::size_t load, const femap::MemberName& member,
                    const femap::Value& value, int set = 1)
{
    return {.entities = {}, .loads = {{set, definition, load, member, value}}, .functions = {}};
}

ModelValues points(int id, const femap::FunctionPoints& all)
{
    return {.entities = {}, .loads = {}, .functions = {{id, all}}};
}

// The text with one piece of it replaced, which is there once.
std::string with(std::string text, const std::string& piece, const std::string& by)
{
    const std::size_t at = text.find(piece);
    EXPECT_NE(at, std::string::npos) << piece;
    EXPECT_EQ(text.find(piece, at + 1), std::string::npos) << piece;
    return text.replace(at, piece.size(), by);
}

std::string nodes(const std::string& line)
{
    return header() + block(403, line + "\n");
}

TEST(NeutralPatch, LeavesAFileWithoutValuesAsItIs)
{
    EXPECT_EQ(patched(completeFile(), {}), completeFile());
}

TEST(NeutralPatch, ReplacesTheNumberAndNothingBesideIt)
{
    const std::string node = " 7 ,0,0,1,46,0,0,0,0,0,0,  1.5 ,\t2.50, 3.,0,0";

    EXPECT_EQ(patched(nodes(node + "\r"), one("Node", 7, {"y"}, -0.125)),
              nodes(" 7 ,0,0,1,46,0,0,0,0,0,0,  1.5 ,\t-0.125, 3.,0,0\r"));
}

TEST(NeutralPatch, KeepsTheTextOfANumberThatIsTheValueAlready)
{
    const std::string text = nodes("7,0,0,1,46,0,0,0,0,0,0,1.500D+00,2,-0.,0,0,");
    ModelValues values = one("Node", 7, {"x"}, 1.5);
    values.entities.push_back({"Node", 7, {"y"}, 2.0});
    values.entities.push_back({"Node", 7, {"z"}, -0.0});

    EXPECT_EQ(patched(text, values), text);
}

TEST(NeutralPatch, WritesNumbersSoThatTheyReadBackAndRealOnesWithAPoint)
{
    const auto written = [](double number) {
        return patched(nodes("7,0,0,1,46,0,0,0,0,0,0,1.,"
                             "2.,3.,0,0,"),
                       one("Node", 7, {"y"}, number));
    };
    const auto expected = [](const std::string& number) {
        return nodes("7,0,0,1,46,0,0,0,0,0,0,1.," + number + ",3.,0,0,");
    };

    EXPECT_EQ(written(5), expected("5."));
    EXPECT_EQ(written(0), expected("0."));
    EXPECT_EQ(written(1e20), expected("1.E+20"));
    EXPECT_EQ(written(0.1), expected("0.1"));
    EXPECT_EQ(written(-2.5e-9), expected("-2.5E-09"));
    EXPECT_EQ(written(std::numeric_limits<double>::denorm_min()), expected("5.E-324"));
}

TEST(NeutralPatch, TakesTheLastOfSeveralValuesForOneNumber)
{
    ModelValues values = one("Matl", 1, {"mval", 0}, 1.0);
    values.entities.push_back({"Matl", 1, {"Ex"}, 70000.0});
    const std::string text = completeFile();

    EXPECT_EQ(patched(text, values), with(text, "210000.,0.3,", "70000.,0.3,"));

    values.entities.push_back({"Matl", 1, {"Ex"}, 210000.0});
    EXPECT_EQ(patched(text, values), text);
}

TEST(NeutralPatch, ReplacesWholeNumbersOfAnEntity)
{
    const std::string text = completeFile();

    EXPECT_EQ(patched(text, one("Elem", 1, {"propID"}, 12.0)),
              with(text, "1,124,1,17,4,", "1,124,12,17,4,"));
    EXPECT_EQ(patched(text, one("Elem", 1, {"node", 2}, std::int64_t{4})),
              with(text, "\n1,2,3,4,0,", "\n1,2,4,4,0,"));
    EXPECT_EQ(patched(text, one("Prop", 1, {"matlID"}, std::string("3"))),
              with(text, "1,110,1,17,", "1,110,3,17,"));
}

TEST(NeutralPatch, ReplacesNumbersOfPropertiesAndElements)
{
    const std::string text = completeFile();
    const std::string offsets = "0,0,0,0,0,0,0,0,0,0,\n0.,0.,0.,\n0.,0.,0.,\n0.,0.,0.,\n";

    EXPECT_EQ(patched(text, one("Prop", 1, {"pval", 0}, 0.5)),
              with(text, "0.25,0.,0.", "0.5,0.,0."));
    EXPECT_EQ(patched(text, one("Elem", 1, {"MaterialAngle"}, 30.0)),
              with(text, offsets, "0,0,0,0,0,0,0,0,0,0,\n30.,0.,0.,\n0.,0.,0.,\n0.,0.,0.,\n"));
    EXPECT_EQ(patched(text, one("Elem", 1, {"PlateOffset"}, 0.5)),
              with(text, offsets, "0,0,0,0,0,0,0,0,0,0,\n0.,0.,0.,\n0.5,0.,0.,\n0.,0.,0.,\n"));
}

TEST(NeutralPatch, ReplacesNumbersOfAnOldMaterial)
{
    std::string lines;
    for (int i = 0; i < 30; ++i)
        lines += std::to_string(i) + ".5,0.,\n";
    const std::string text = header("4.4") + block(401, "1,55,0,0,1,0,\nOld\n" + lines);

    EXPECT_EQ(patched(text, one("Matl", 1, {"mval", 2}, 9.0)), with(text, "\n1.5,", "\n9.,"));
    EXPECT_THAT(
        problemsOf(text, one("Matl", 1, {"mval", 58}, 9.0)),
        ElementsAre("8: Matl 1 has no number in the file for mval(58) that could be replaced"));
}

TEST(NeutralPatch, CountsTheLoadsOfADefinitionOnly)
{
    const std::string loads = neutral::loadSetHead("1,", "Case") +
                              neutral::meshLoad("1,1,10,1,0,0,0,2,", "1,", "1.,2.,3.,0.,0.,") +
                              neutral::meshLoad("2,1,10,1,0,0,0,1,", "1,", "1.,2.,4.,0.,0.,") +
                              neutral::meshLoad("3,1,10,1,0,0,0,2,", "1,", "1.,2.,5.,0.,0.,") +
                              neutral::listEnd + neutral::listEnd + neutral::listEnd +
                              neutral::listEnd +
                              "-1,0,-1,0.,-1,\n1,13,1,\nOne\n2,13,1,\nTwo\n-1,0,0,\n";
    const std::string text = header() + block(507, loads);

    EXPECT_EQ(patched(text, oneLoad(2, 1, {"load", 2}, 7.0)), with(text, "2.,5.", "2.,7."));
    EXPECT_EQ(patched(text, oneLoad(1, 0, {"load", 2}, 7.0)), with(text, "2.,4.", "2.,7."));
    EXPECT_THAT(problemsOf(text, oneLoad(1, 1, {"load", 2}, 7.0)),
                ElementsAre("8: the file has no load 2 of load definition 1 of load set 1"));
}

TEST(NeutralPatch, ReplacesTheTemperatureOfALoadAmongItsValues)
{
    const std::string loads = neutral::loadSetHead("1,", "Case") +
                              neutral::meshLoad("1,46,10,1,0,0,0,0,", "4,", "1.,2.,300.,0.,0.,") +
                              neutral::listEnd + neutral::listEnd + neutral::listEnd +
                              neutral::listEnd;
    const std::string text = header("8.2") + block(507, loads);

    EXPECT_EQ(patched(text, oneLoad(1, 0, {"temp"}, 280.5)), with(text, ",300.,", ",280.5,"));
}

TEST(NeutralPatch, ReplacesATemperature)
{
    EXPECT_EQ(patched(completeFile(), oneLoad(2, 0, {"temp"}, 80.0)),
              with(completeFile(), "2,10,1,20.,-1.,", "2,10,1,80.,-1.,"));
}

TEST(NeutralPatch, RefusesATemperatureThatStandsTwice)
{
    const std::string text = with(completeFile(), "2,10,1,20.,-1.,0,0,0,\n",
                                  "2,10,1,20.,-1.,0,0,0,\n2,10,1,30.,-1.,0,0,0,\n");

    EXPECT_THAT(problemsOf(text, oneLoad(2, 1, {"temp"}, 80.0)),
                ElementsAre(EndsWith(": load 2 of load definition 2 of load set 1 is not the only "
                                     "one of its node or element")));
}

TEST(NeutralPatch, ReplacesThePointsOfAFunction)
{
    EXPECT_EQ(patched(completeFile(), points(1, {{0, 2}, {1, 5}})),
              with(completeFile(), "1,0.,0.,\n2,1.,5.,", "1,0.,1.,\n2,2.,5.,"));
}

TEST(NeutralPatch, KeepsTheSignOfZeroInAFunction)
{
    EXPECT_EQ(patched(completeFile(), points(1, {{-0.0, -0.0}, {0, 5}})),
              with(completeFile(), "1,0.,0.,\n2,1.,5.,", "1,0.,0.,\n2,-0.,5.,"));
}

TEST(NeutralPatch, RefusesAnotherNumberOfPointsAndPointsThatAreNoNumbers)
{
    const std::string text = nodes("7,0,0,1,46,0,0,0,0,0,0,1.,2.,3.,0,0,") +
                             block(420, "1,1,\nRamp\n1,0.,0.,\n2,1.,5.,\n-1,0.,0.,\n");

    EXPECT_THAT(problemsOf(text, points(1, {{0, 1, 2}, {0, 1, 2}})),
                ElementsAre("12: function 1 has another number of points in the file: 2"));
    EXPECT_THAT(problemsOf(text, points(1, {{0, 1}, {0}})),
                ElementsAre("12: function 1 has another number of points in the file: 2"));
    EXPECT_THAT(problemsOf(text, points(1, {{0, 1}, {0, std::nan("")}})),
                ElementsAre("12: function 1 would get a point that is no number"));
}

TEST(NeutralPatch, NamesEverythingThatTheFileLacks)
{
    ModelValues values = one("Node", 9, {"x"}, 1.0);
    values.entities.push_back({"Prop", 2, {"pval", 0}, 1.0});
    values.loads.push_back({3, 1, 0, {"load", 0}, 1.0});
    values.functions.push_back({5, {{0}, {0}}});

    EXPECT_THAT(problemsOf(completeFile(), values),
                ElementsAre("0: the file has no Node 9", "0: the file has no Prop 2",
                            "0: the file has no function 5", "0: the file has no load set 3"));
}

TEST(NeutralPatch, NamesADefinitionThatALoadSetLacksOrWhoseKindIsNotKnown)
{
    const std::string text =
        header() + block(507, neutral::loadSetHead("1,", "Case") + neutral::listEnd +
                                  neutral::listEnd + neutral::listEnd + neutral::listEnd +
                                  "-1,0,-1,0.,-1,\n4,99,1,\nOther\n-1,0,0,\n");

    EXPECT_THAT(problemsOf(text, oneLoad(3, 0, {"load", 0}, 1.0)),
                ElementsAre("8: the file has no load definition 3 of load set 1"));
    EXPECT_THAT(problemsOf(text, oneLoad(4, 0, {"load", 0}, 1.0)),
                ElementsAre("8: load definition 4 of load set 1 is of a kind that is not known"));
}

TEST(NeutralPatch, RefusesPlacesBeyondThoseThatAreStored)
{
    EXPECT_THAT(
        problemsOf(completeFile(), one("Prop", 1, {"pval", 3}, 0.0)),
        ElementsAre("233: Prop 1 has no number in the file for pval(3) that could be replaced"));
}

TEST(NeutralPatch, RefusesWhatTellsWhichEntityItIsAndOfWhichKind)
{
    const auto isRefused = [](const ModelValues& values) {
        return problemsOf(completeFile(), values).size() == 1;
    };

    EXPECT_TRUE(isRefused(one("Node", 1, {"ID"}, 5.0)));
    EXPECT_TRUE(isRefused(one("Elem", 1, {"ID"}, 5.0)));
    EXPECT_TRUE(isRefused(one("Elem", 1, {"type"}, 18.0)));
    EXPECT_TRUE(isRefused(one("Elem", 1, {"topology"}, 5.0)));
    EXPECT_TRUE(isRefused(one("Prop", 1, {"type"}, 18.0)));
    EXPECT_TRUE(isRefused(one("Prop", 1, {"title"}, std::string("Skin"))));
    EXPECT_TRUE(isRefused(one("Matl", 1, {"type"}, 1.0)));
    EXPECT_TRUE(isRefused(one("Matl", 1, {"subtype"}, 1.0)));
    EXPECT_TRUE(isRefused(oneLoad(1, 0, {"type"}, 2.0)));
    EXPECT_TRUE(isRefused(oneLoad(1, 0, {"meshID"}, 2.0)));
    EXPECT_TRUE(isRefused(oneLoad(1, 0, {"LoadDefinitionID"}, 2.0)));
    EXPECT_TRUE(isRefused(oneLoad(1, 0, {"phase"}, 2.0)));
    EXPECT_TRUE(isRefused(oneLoad(2, 0, {"ID"}, 3.0)));
}

TEST(NeutralPatch, RefusesTheIDOfANodeThatIsTheNumberOfAPlace)
{
    for (int id = 1; id < 30; ++id)
        EXPECT_EQ(problemsOf(nodes(std::to_string(id) + ",0,0,1,46,0,0,0,0,0,0,1.,2.,3.,0,0,"),
                             one("Node", id, {"ID"}, 77.0))
                      .size(),
                  1U);
}

TEST(NeutralPatch, ReplacesANumberThatIsTheNumberOfItsPlace)
{
    for (int number = 1; number < 30; ++number) {
        const std::string before = "7,0,0,1,46,0,0,0,0,0,0,1.,";
        const std::string text = nodes(before + std::to_string(number) + ".,3.,0,0,");

        EXPECT_EQ(patched(text, one("Node", 7, {"y"}, 0.5)), nodes(before + "0.5,3.,0,0,"));
    }
}

TEST(NeutralPatch, SaysWhatTheHostSaysOfMembersAndValuesThatDoNotFit)
{
    ModelValues values = one("Prop", 1, {"pvall", 1}, 1.0);
    values.entities.push_back({"Prop", 1, {"pval"}, 1.0});
    values.entities.push_back({"Prop", 1, {"pval", 200}, 1.0});
    values.entities.push_back({"Prop", 1, {"pval", 0}, std::numeric_limits<double>::infinity()});
    values.entities.push_back({"Prop", 1, {"color"}, 0.5});

    EXPECT_THAT(problemsOf(completeFile(), values),
                ElementsAre("233: Prop 1: \"0.5\" is no whole number",
                            "233: Prop 1: \"1.#INF\" is no number",
                            "233: Prop 1: feProp has no member pvall",
                            "233: Prop 1: pval of feProp has no place 200",
                            "233: Prop 1: pval of feProp needs an index"));
}

TEST(NeutralPatch, RefusesASecondRecordOfOneID)
{
    const std::string node = "7,0,0,1,46,0,0,0,0,0,0,1.,2.,3.,0,0,";
    const std::string text = nodes(node) + block(403, node + "\n");

    EXPECT_THAT(problemsOf(text, one("Node", 7, {"x"}, 1.0)),
                ElementsAre("12: this is a second Node 7 in the file"));
}

TEST(NeutralPatch, RefusesALineThatGrowsBeyondWhatFemapReads)
{
    const std::string begin = "7,0,0,1,46,0,0,0,0,0,0,";
    const std::string end = "2.,3.,0,0,";
    const std::string blanks(255 - begin.size() - end.size() - 3, ' ');
    const std::string text = nodes(begin + blanks + "1.," + end + "\r");

    EXPECT_EQ(patched(text, one("Node", 7, {"x"}, 3.0)), with(text, " 1.,", " 3.,"));
    EXPECT_THAT(problemsOf(text, one("Node", 7, {"x"}, 1.5)),
                ElementsAre("8: the line would have more than 255 characters"));
    EXPECT_EQ(patched(text, one("Node", 7, {"z"}, 4.0)), with(text, "3.,0,0,", "4.,0,0,"));
}

TEST(NeutralPatch, SkipsWhatItDoesNotNeed)
{
    const std::string text = nodes("7,0,0,1,46,0,0,0,0,0,0,1.,2.,3.,0,0,\nno 8 node") +
                             block(404, "no element\n") + block(9999, "anything\n");
    const auto value = one("Node", 7, {"x"}, 1.5);

    EXPECT_THAT(complaintOf([&] { patched(text, value); }),
                "wing.neu:9: field 1 is not a whole number. Export the model again from FEMAP as a "
                "neutral file of version 4.4 to 11.");
    EXPECT_THAT(patched(with(text, "no 8 node", "8 node"), value),
                with(with(text, "no 8 node", "8 node"), ",1.,2.", ",1.5,2."));
}

TEST(NeutralPatch, FindsAnElementBehindOneWithLists)
{
    const std::string rigid =
        "5,124,0,29,13,1,0,0,\n1,0,0,0,0,0,0,0,0,0,\n0,0,0,0,0,0,0,0,0,0,\n"
        "0.,0.,0.,\n0.,0.,0.,\n0.,0.,0.,\n"
        "0,0,0,0,0,0,0,0,0,0,0,0,1,0,0,0,\n2,0,1.,1,1,1,1,1,1,\n"
        "6,124,1,1,1,1,1,1,1,\n-1,-1,-1,\n";
    const std::string text = header() + block(404, rigid + neutral::quad(6, "9,8,7,5"));

    EXPECT_EQ(patched(text, one("Elem", 6, {"node", 0}, 4.0)), with(text, "9,8,7,5", "4,8,7,5"));
}

TEST(NeutralPatch, TakesAFileWhoseResultsLackTheirEnd)
{
    const std::string text = nodes("7,0,0,1,46,0,0,0,0,0,0,1.,2.,3.,0,0,") + "   -1\n   451\n" +
                             neutral::vectorHead(1, 1, "T") + "1,0.5,\n-1,0.,\n";

    EXPECT_EQ(patched(text, one("Node", 7, {"x"}, 1.5)), with(text, ",1.,2.", ",1.5,2."));
}

TEST(NeutralPatch, RaisesForAFileThatIsNone)
{
    EXPECT_THAT(complaintOf([] { patched("Once upon a time\n", {}); }),
                "wing.neu:1: this is no FEMAP neutral file, or its header is missing. Export the "
                "model again from FEMAP as a neutral file of version 4.4 to 11.");
}

}  // namespace
