#include "fake/GenerateFixture.h"
#include "generate/FunctionDataFile.h"
#include "loop/Values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace loop
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

const std::string order =
    "; the lines must have the names of the rows of the description, in their order\n";

/// A study with these rows of inputs, and what its files of values hold.
struct GivenStudy
{
    explicit GivenStudy(std::vector<std::string> rows)
    {
        inputs.folder = "/study/";
        inputs.file = "CAEInput.txt";
        inputs.valuesFile = "InputValues.txt";
        std::size_t line = 3;
        for (std::string& row : rows)
            inputs.rows.push_back({++line, std::move(row)});
    }

    std::vector<std::optional<double>> read(const std::string& text)
    {
        machine.files.contents["/study/InputValues.txt"] = text;
        std::vector<std::optional<double>> numbers;
        for (const GivenValue& value : readValues(machine.system, inputs, problems))
            numbers.push_back(value.number);
        return numbers;
    }
    GivenFunctions readPoints(const std::string& text)
    {
        machine.files.contents["/study/FunctionsInputvalues.txt"] = text;
        return readFunctions(machine.system, inputs, problems);
    }

    fake::MemoryMachine machine;
    Description inputs;
    Problems problems;
};

const std::vector<std::string> threeRows = {"depth\t\tProp\t1\tpval\t0", "x\t\tNode\t1\tx\t",
                                            "x y\t\tLoadMesh\t 1\t0\t0"};

std::optional<double> oneValue(const std::string& text)
{
    GivenStudy study({"a\t\tProp\t1\tpval\t0"});
    return study.read("a  " + text + "\r\n").at(0);
}

}  // namespace

TEST(GivenValues, AreReadInEveryFormOfANumber)
{
    EXPECT_EQ(oneValue("12.5"), 12.5);
    EXPECT_EQ(oneValue(" .5"), 0.5);
    EXPECT_EQ(oneValue("-.5"), -0.5);
    EXPECT_EQ(oneValue("+5."), 5);
    EXPECT_EQ(oneValue("1E-05"), 1E-05);
    EXPECT_EQ(oneValue("1D3"), 1000);
    EXPECT_EQ(oneValue("1.5d-03  "), 0.0015);
    EXPECT_EQ(oneValue("\t7\t"), 7);
    EXPECT_EQ(oneValue("      7"), 7);
}

TEST(GivenValues, AreRefusedInEveryOtherForm)
{
    for (const char* const text : {"1,5", "x", "1 2", "1.#INF", "-1.#INF", "1.#QNAN", "nan", "inf",
                                   "1E999", "1D", "D3", "0x10", "X-Y Values"})
        EXPECT_EQ(oneValue(text), std::nullopt) << text;
}

TEST(GivenValues, StandBehindNamesThatMayHoldBlanks)
{
    GivenStudy study(threeRows);

    EXPECT_THAT(study.read("depth  3\nx -1\nx y   .25\n"), ElementsAre(3, -1, 0.25));
    EXPECT_EQ(study.problems.text(), "");
}

TEST(GivenValues, MayHaveEitherLineEndAndBlankLines)
{
    GivenStudy study(threeRows);

    EXPECT_THAT(study.read("depth  3\r\n\r\nx  -1\nx y  .25\r\n  \r\n"), ElementsAre(3, -1, 0.25));
    EXPECT_EQ(study.problems.text(), "");
}

TEST(GivenValues, KnowTheirLine)
{
    GivenStudy study(threeRows);
    study.machine.files.contents["/study/InputValues.txt"] = "depth  3\n\nx  1\nx y  2\n";

    const std::vector<GivenValue> values =
        readValues(study.machine.system, study.inputs, study.problems);

    EXPECT_EQ(values.at(0).line, 1U);
    EXPECT_EQ(values.at(1).line, 3U);
}

TEST(GivenValues, OfSeveralLoadsOfOneNameAreTakenInOrder)
{
    GivenStudy study({"f\t\tLoadMesh\t 1\t0\t0", "f\t\tLoadMesh\t 1\t0\t0"});

    EXPECT_THAT(study.read("f   1\nf   2\n"), ElementsAre(1, 2));
    EXPECT_EQ(study.problems.text(), "");
}

TEST(GivenValues, AreNotNeededForFunctions)
{
    GivenStudy study(
        {"a\t\tProp\t1\tpval\t0", "E over T\t\tFunction\t 2\t\t", "b\t\tProp\t1\tpval\t1"});

    EXPECT_THAT(study.read("a  1\nE over T  X-Y Values\nb  2\n"), ElementsAre(1, std::nullopt, 2));
    EXPECT_THAT(study.read("a  1\nb  2\n"), ElementsAre(1, std::nullopt, 2));
    EXPECT_EQ(study.problems.text(), "");
}

TEST(GivenValues, WithoutANumberAreTold)
{
    GivenStudy study(threeRows);

    study.read("depth  \nx  1,5\nx y  2\n");

    EXPECT_EQ(study.problems.text(),
              "InputValues.txt:1: depth has no value; write it as 12.5 or 1.5E-05\n"
              "InputValues.txt:2: x has \"1,5\", which is no number; write it as 12.5 or "
              "1.5E-05\n");
}

TEST(GivenValues, WithALineTooFewAreToldOnce)
{
    GivenStudy study(threeRows);

    study.read("depth  1\nx y  2\n");

    // The line of "x y" begins like one of "x".
    EXPECT_EQ(study.problems.text(),
              "InputValues.txt:2: x has \"y  2\", which is no number; write it as 12.5 or "
              "1.5E-05\n"
              "InputValues.txt:2: the line of x y (CAEInput.txt:6) is missing" +
                  order);
}

TEST(GivenValues, WithoutTheFirstOrTheLastLineAreToldOnce)
{
    GivenStudy first(threeRows);
    first.read("x  1\nx y  2\n");
    GivenStudy last(threeRows);
    last.read("depth  1\nx  2\n");

    EXPECT_EQ(first.problems.text(),
              "InputValues.txt:1: the line of depth (CAEInput.txt:4) is missing" + order);
    EXPECT_EQ(last.problems.text(),
              "InputValues.txt:2: the line of x y (CAEInput.txt:6) is missing" + order);
}

TEST(GivenValues, WithALineTooManyAreToldOnce)
{
    GivenStudy study(threeRows);

    EXPECT_THAT(study.read("depth  1\nwidth  7\nx  2\nx y  3\nmore  4\n"), ElementsAre(1, 2, 3));

    EXPECT_EQ(study.problems.text(),
              "InputValues.txt:2: the line is of no row of CAEInput.txt here" + order +
                  "InputValues.txt:5: the line is of no row of CAEInput.txt here" + order);
}

TEST(GivenValues, OfAnotherNameAreTold)
{
    GivenStudy study(threeRows);

    study.read("Depth  1\nx  2\nx y  3\n");

    EXPECT_EQ(study.problems.text(),
              "InputValues.txt:1: the line should be that of depth (CAEInput.txt:4)" + order);
}

TEST(GivenValues, InAnotherOrderAreTold)
{
    GivenStudy study({"a\t\tProp\t1\tpval\t0", "b\t\tProp\t1\tpval\t1"});

    study.read("b  1\na  2\n");

    EXPECT_THAT(study.problems.text(), HasSubstr("InputValues.txt:1: the line of a"));
}

TEST(GivenValues, OfAFileThatIsNotThereAreTold)
{
    GivenStudy study(threeRows);

    EXPECT_THAT(readValues(study.machine.system, study.inputs, study.problems), SizeIs(3));
    EXPECT_EQ(study.problems.text(),
              "InputValues.txt: the file is not in the folder /study/; let the optimiser write it, "
              "or press \"Apply\" in the form again\n");
}

TEST(GivenFunctions, AreReadAsTheyAreWritten)
{
    generate::GenerateFixture f;
    f.femap.model->functions.put(
        {.id = 3, .title = "  ramp_ ", .x = {0, 1E-05}, .y = {-0.5, 1E+20}});
    f.femap.model->functions.put({.id = 12, .title = "", .x = {}, .y = {}});
    f.form.InputsList.AddItem("a\t\tFunction\t 3\t\t");
    f.form.InputsList.AddItem("b\t\tFunction\t 12\t\t");
    generate::WriteFunctionInputs(f.context, f.progress);
    GivenStudy study({});

    const GivenFunctions read =
        study.readPoints(f.files.contents.at(generate::inWork("FunctionsInputvalues.txt")));

    EXPECT_EQ(study.problems.text(), "");
    ASSERT_THAT(read.blocks, SizeIs(2));
    EXPECT_EQ(read.blocks[0].id, 3);
    EXPECT_EQ(read.blocks[0].title, "  ramp_ ");
    EXPECT_THAT(read.blocks[0].points.x, ElementsAre(0, 1E-05));
    EXPECT_THAT(read.blocks[0].points.y, ElementsAre(-0.5, 1E+20));
    EXPECT_EQ(read.blocks[0].line, 1U);
    EXPECT_EQ(read.blocks[1].id, 12);
    EXPECT_EQ(read.blocks[1].title, "");
    EXPECT_THAT(read.blocks[1].points.x, IsEmpty());
    EXPECT_EQ(read.blocks[1].line, 7U);
}

TEST(GivenFunctions, ThatAreNotAsTheyAreWrittenAreToldAndTheOthersRead)
{
    GivenStudy study({});

    const GivenFunctions read = study.readPoints(
        "nonsense\n 1\n"
        "Function Definition\n x \n"
        "Function Definition\n 1 \nt\n many\n"
        "Function Definition\n 2 \nt\n 2\n 0_0\n 1,0\n"
        "Function Definition\n 4 \nt\n 2\n 0_0\n"
        "Function Definition\n 3 \nt\n 1\n 0_1D1\n"
        "Function Definition\n 5 \n");

    ASSERT_THAT(read.blocks, SizeIs(1));
    EXPECT_EQ(read.blocks[0].id, 3);
    EXPECT_THAT(read.blocks[0].points.y, ElementsAre(10));
    const std::string file = "FunctionsInputvalues.txt:";
    const std::string cure = "; press \"Apply\" in the form again\n";
    EXPECT_EQ(study.problems.text(),
              file + "1: a block begins with \"Function Definition\"" + cure + file +
                  "4: the ID of the function is missing" + cure + file +
                  "8: the number of points is missing" + cure + file +
                  "14: a point is an X and a Y with \"_\" between them, and there are 2 of them" +
                  cure + file +
                  "20: a point is an X and a Y with \"_\" between them, and there are 2 of them" +
                  cure + file + "28: the number of points is missing" + cure);
}

TEST(GivenFunctions, OfAnotherApplyAreLeftOutAndThatIsSaid)
{
    const std::string block = "Function Definition\n 3 \nt\n 0\n";
    GivenStudy study({});
    study.machine.files.contents["/study/CAEInput.txt"] = "";
    study.machine.files.times["/study/CAEInput.txt"] = 1000;
    const auto readAt = [&](std::int64_t time) {
        study.machine.files.times["/study/FunctionsInputvalues.txt"] = time;
        return study.readPoints(block);
    };

    EXPECT_THAT(readAt(1000).blocks, SizeIs(1));
    EXPECT_THAT(readAt(998).blocks, SizeIs(1));
    EXPECT_EQ(readAt(998).remark, "");
    EXPECT_THAT(readAt(997).blocks, IsEmpty());
    EXPECT_EQ(readAt(997).remark,
              "FunctionsInputvalues.txt is older than CAEInput.txt and left out: it is of another "
              "\"Apply\". Remove it, or press \"Apply\" in the form again");
    study.machine.files.times["/study/FunctionsInputvalues.txt"] = 1;
    EXPECT_EQ(study.readPoints("").remark, "");
    EXPECT_EQ(study.problems.text(), "");
}

TEST(GivenFunctions, OfAFileThatIsNotThereAreNone)
{
    GivenStudy study({});

    EXPECT_THAT(readFunctions(study.machine.system, study.inputs, study.problems).blocks,
                IsEmpty());
    EXPECT_EQ(study.problems.text(), "");
}

}  // namespace loop
