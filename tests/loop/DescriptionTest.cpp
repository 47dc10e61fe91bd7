#include "fake/GenerateFixture.h"
#include "generate/Targets.h"
#include "loop/Description.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace loop
{

using generate::inputExchange;
using generate::outputExchange;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{

const std::string inputHead =
    "Reference Model (FEMAP) = beam.neu\r\n"
    "Input Deck (NastranNX) = beam.dat\r\n"
    "NameValue = InputValues.txt\r\n";

struct ReadDescription
{
    explicit ReadDescription(const std::string& text) : ReadDescription(text, inputExchange) {}
    ReadDescription(const std::string& text, const generate::ExchangeFormat& format)
    {
        fake::MemoryMachine machine;
        machine.files.contents["/study/" + std::string(format.description)] = text;
        result = readDescription(machine.system, "/study/", format, problems);
    }

    std::vector<std::string> rows() const
    {
        std::vector<std::string> texts;
        for (const DescribedRow& row : result.rows)
            texts.push_back(row.text);
        return texts;
    }

    Problems problems;
    Description result;
};

}  // namespace

TEST(ADescription, TellsModelSolverAndFiles)
{
    const ReadDescription read(inputHead);

    EXPECT_EQ(read.problems.text(), "");
    EXPECT_EQ(read.result.model, "beam.neu");
    EXPECT_EQ(read.result.name(), "beam");
    ASSERT_NE(read.result.solver, nullptr);
    EXPECT_EQ(read.result.solver->solver, "NXNastran");
    EXPECT_EQ(read.result.solver->brand, femap::SolverBrand::NxNastran);
    EXPECT_EQ(read.result.solverFile, "beam.dat");
    EXPECT_EQ(read.result.valuesFile, "InputValues.txt");
    EXPECT_EQ(read.result.pathOf(read.result.solverFile), "/study/beam.dat");
    EXPECT_THAT(read.rows(), IsEmpty());
}

TEST(ADescription, OfOutputsTellsTheFileOfResults)
{
    const ReadDescription read(
        "Reference Model (FEMAP) = wing.v2.modfem\n"
        "Results File (NastranNE) = wing.v2.fno\n"
        "OutputNameValue = OutputValues.txt\n"
        "MassProperties  TotalArea  Area  \n"
        "Output  T3AtNode4  4  4",
        outputExchange);

    EXPECT_EQ(read.problems.text(), "");
    EXPECT_EQ(read.result.name(), "wing.v2");
    EXPECT_EQ(read.result.solver->solver, "NENastran");
    EXPECT_EQ(read.result.solverFile, "wing.v2.fno");
    EXPECT_EQ(read.result.valuesFile, "OutputValues.txt");
    EXPECT_THAT(read.rows(),
                ElementsAre("TotalArea\t\tArea\t\tMassProperties", "T3AtNode4\t\t4\t4\tOutput"));
    EXPECT_EQ(read.result.rows.back().line, 5U);
}

TEST(ADescription, MayBeWithoutASolver)
{
    const ReadDescription read(
        "Reference Model (FEMAP) = beam.neu\r\n"
        "NameValue = InputValues.txt\r\n"
        "Node  xAtNode1  1  x  \r\n");

    EXPECT_EQ(read.problems.text(), "");
    EXPECT_EQ(read.result.solver, nullptr);
    EXPECT_EQ(read.result.solverFile, "");
    EXPECT_THAT(read.rows(), ElementsAre("xAtNode1\t\tNode\t1\tx\t"));
}

TEST(ADescription, GivesBackRowsOfEveryKindWhateverBlanksTheirNamesHold)
{
    const std::vector<std::string> rows = {
        "ThicknessAtProp1\t\tProp\t1\tpval\t0",
        "xAtNode163\t\tNode\t163\tx\t",
        "load at the tip\t\tLoadMesh\t 5\t0\t0",
        "two  blanks   three \t\tFunction\t 12\t\t",
        "7   8\t\tFunction\t 9\t\t",
        "Temperatur Öse\t\tLoadNTemp\t 5\t0\t0",
    };
    std::string text = inputHead;
    for (const std::string& row : rows) {
        text += generate::concatenated(generate::inputParameterLine(generate::ParameterRow(row)));
        text += "\r\n";
    }
    std::string bytes;
    sys::windows1252().encode(text, bytes);

    const ReadDescription read(bytes);

    EXPECT_EQ(read.problems.text(), "");
    EXPECT_EQ(read.rows(), rows);
}

TEST(ADescription, TellsEveryLineThatIsNoRow)
{
    const ReadDescription read(inputHead +
                               "Node  xAtNode1  1  x  \r\n"
                               "Nodes  xAtNode1  1  x  \r\n"
                               "Output  T3AtNode4  4  4\r\n"
                               "Prop  A  one  pval  0\r\n"
                               "LoadMesh  a  1  0  0\r\n"
                               "Node\r\n"
                               "\r\n");

    EXPECT_THAT(read.rows(), ElementsAre("xAtNode1\t\tNode\t1\tx\t"));
    const std::string what =
        ": the line is not as \"Apply\" writes it; press \"Apply\" in the form again\n";
    EXPECT_EQ(read.problems.text(), "CAEInput.txt:5" + what + "CAEInput.txt:6" + what +
                                        "CAEInput.txt:7" + what + "CAEInput.txt:8" + what +
                                        "CAEInput.txt:9" + what + "CAEInput.txt:10" + what);
}

TEST(ADescription, TellsALineOfTheHeadThatIsWrong)
{
    EXPECT_THAT(ReadDescription("").problems.text(), StartsWith("CAEInput.txt:1: the head"));
    EXPECT_THAT(ReadDescription("Model = beam.neu\n").problems.text(),
                StartsWith("CAEInput.txt:1: the head"));
    EXPECT_THAT(ReadDescription("Reference Model (FEMAP) = beam.neu\nnothing\n").problems.text(),
                StartsWith("CAEInput.txt:2: the head"));
    EXPECT_THAT(ReadDescription("Reference Model (FEMAP) = beam.neu\n"
                                "Input Deck (Other) = beam.dat\nNameValue = a.txt\n")
                    .problems.text(),
                StartsWith("CAEInput.txt:2: the solver is none that is known"));
    EXPECT_THAT(ReadDescription("Reference Model (FEMAP) = beam.neu\n"
                                "Input Deck (NastranNX) = beam.dat\nNameValue = ../a.txt\n")
                    .problems.text(),
                StartsWith("CAEInput.txt:3: the head"));
}

TEST(ADescription, ThatIsNotThereIsToldWithTheFolder)
{
    fake::MemoryMachine machine;
    Problems problems;
    readDescription(machine.system, "/study/", inputExchange, problems);
    readDescription(machine.system, "", outputExchange, problems);

    const std::string cure =
        "; go to the folder of the model, or name it by --folder, and press "
        "\"Apply\" in the form if it is not there either\n";
    EXPECT_EQ(problems.text(), "CAEInput.txt: the file is not in the folder /study/" + cure +
                                   "CAEOutput.txt: the file is not in the folder " +
                                   (std::filesystem::current_path() / "").string() + cure);
}

TEST(ADescription, ThatCannotBeReadIsTold)
{
    fake::MemoryMachine machine;
    machine.files.contents["/study/CAEInput.txt"] = inputHead;
    machine.files.deniedReads = 1;
    Problems problems;

    readDescription(machine.system, "/study/", inputExchange, problems);

    EXPECT_THAT(problems.text(), StartsWith("CAEInput.txt: "));
}

TEST(TheHeadOfADescription, IsReadAsItIsWritten)
{
    for (const generate::SolverFormat& solver : generate::solverFormats())
        for (const auto* const format : {&inputExchange, &outputExchange}) {
            generate::GenerateFixture f;
            f.form.Solver.Text = solver.solver;
            f.form.fileExtension = "modfem";

            const ReadDescription read(generate::exchangeHead(f.context, *format, "a = b) = c.d"),
                                       *format);

            EXPECT_EQ(read.problems.text(), "");
            EXPECT_EQ(read.result.model, "a = b) = c.d.modfem");
            EXPECT_EQ(read.result.solver, &solver);
            EXPECT_EQ(read.result.valuesFile, format->values);
        }
}

TEST(Problems, AreToldByFilesAndLines)
{
    Problems problems;
    EXPECT_TRUE(problems.empty());
    problems.add("b.txt", 10, "ten");
    problems.add("b.txt", 9, "nine");
    problems.add("a.txt", 0, "all of it");
    problems.add("b.txt", 9, "nine again");
    problems.add("", 0, "of no file");

    EXPECT_FALSE(problems.empty());
    EXPECT_EQ(problems.text(),
              "of no file\na.txt: all of it\nb.txt:9: nine\nb.txt:9: nine again\n"
              "b.txt:10: ten\n");
}

}  // namespace loop
