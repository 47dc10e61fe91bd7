#include "fake/GenerateFixture.h"
#include "generate/ExchangeFiles.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace generate
{

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

void write(GenerateFixture& f)
{
    WriteExchangeFiles(f.context, f.progress, inWork(""), "beam");
}

}  // namespace

TEST(ExchangeLines, JoinTheCellsWithTwoBlanksInTheirOwnOrder)
{
    const ParameterRow input("name\tvalue\tkind\tid\tmember\tindex");
    const ParameterRow output("name\tvalue\tfirst\tsecond\tkind");

    EXPECT_EQ(inputParameterLine(input), "kind  name  id  member  index");
    EXPECT_EQ(outputResponseLine(output), "kind  name  first  second");
    EXPECT_EQ(nameValueLine(input), "name  value");
    EXPECT_EQ(templateLine(output), "name  !<name%f!value>!");
}

TEST(ExchangeLines, KeepTheGapsAroundEmptyCells)
{
    const ParameterRow input("name\t\t\t\t\t");
    const ParameterRow output("name\t\t\t\t");

    EXPECT_EQ(inputParameterLine(input), "  name      ");
    EXPECT_EQ(outputResponseLine(output), "  name    ");
    EXPECT_EQ(nameValueLine(input), "name  ");
    EXPECT_EQ(templateLine(output), "name  !<name%f!>!");
}

TEST(TemplateLines, TellTheNameThatTheyAreFor)
{
    const std::string row = "T1\t0.25\tProp\t1";

    EXPECT_EQ(nameInTemplate(concatenated(templateLine(ParameterRow(row)))), "T1");
    EXPECT_EQ(nameInTemplate("T1  !<T2%f!0.25>!"), "");
    EXPECT_EQ(nameInTemplate("T1  0.25"), "");
    EXPECT_EQ(nameInTemplate(""), "");
}

TEST(ExchangeHead, NamesTheModelThatIsReadBackFromIt)
{
    GenerateFixture f;
    f.form.fileExtension = " modfem ";

    const std::string head = exchangeHead(f.context, inputExchange, "beam");

    EXPECT_EQ(namedReference(head), "beam.modfem");
    EXPECT_EQ(referenceModel(f.form, f.femap.modelName), "beam.modfem");
    f.form.fileExtension.clear();
    EXPECT_EQ(referenceModel(f.form, f.femap.modelName), "beam.neu");
    EXPECT_EQ(namedReference("NameValue = InputValues.txt"), "");
}

TEST(ExchangeFiles, AreSixForTheInputsAndTheOutputs)
{
    GenerateFixture f;
    f.addInput({"T1", "0.25", "Prop", "12", "pval", "0"});
    f.addInput({"Load history", "X-Y Values", "Function", " 5"});
    f.addOutput({"Elem7Stress", "1.5", "7", "7033", "Output"});
    f.addOutput({"TotalMass", "7.85", "MassTotal", "", "MassProperties"});

    write(f);

    EXPECT_THAT(f.fileNames(), ElementsAre("CAEInput.txt", "CAEOutput.txt", "InputValues.txt",
                                           "InputValues.txt.template", "OutputValues.txt",
                                           "OutputValues.txt.template"));
    EXPECT_THAT(f.written("CAEInput.txt"),
                ElementsAre("Reference Model (FEMAP) = beam.neu",
                            "Input Deck (NastranNX) = beam.dat", "NameValue = InputValues.txt",
                            "Prop  T1  12  pval  0", "Function  Load history   5    "));
    EXPECT_THAT(f.written("InputValues.txt"), ElementsAre("T1  0.25", "Load history  X-Y Values"));
    EXPECT_THAT(f.written("InputValues.txt.template"),
                ElementsAre("T1  !<T1%f!0.25>!", "Load history  !<Load history%f!X-Y Values>!"));
    EXPECT_THAT(
        f.written("CAEOutput.txt"),
        ElementsAre("Reference Model (FEMAP) = beam.neu", "Results File (NastranNX) = beam.op2",
                    "OutputNameValue = OutputValues.txt", "Output  Elem7Stress  7  7033",
                    "MassProperties  TotalMass  MassTotal  "));
    EXPECT_THAT(f.written("OutputValues.txt"), ElementsAre("Elem7Stress  1.5", "TotalMass  7.85"));
    EXPECT_THAT(
        f.written("OutputValues.txt.template"),
        ElementsAre("Elem7Stress  !<Elem7Stress%f!1.5>!", "TotalMass  !<TotalMass%f!7.85>!"));
}

TEST(ExchangeFiles, NameTheDeckAndTheResultsOfTheOtherSolver)
{
    GenerateFixture f;
    f.form.Solver.Text = "NENastran";

    write(f);

    EXPECT_THAT(f.written("CAEInput.txt"),
                ElementsAre("Reference Model (FEMAP) = beam.neu",
                            "Input Deck (NastranNE) = beam.nas", "NameValue = InputValues.txt"));
    EXPECT_THAT(f.written("CAEOutput.txt"), ElementsAre("Reference Model (FEMAP) = beam.neu",
                                                        "Results File (NastranNE) = beam.fno",
                                                        "OutputNameValue = OutputValues.txt"));
}

TEST(ExchangeFiles, NameNoDeckForAnUnknownSolverOrOtherCase)
{
    for (const char* const solver : {"OtherSolver", "nxnastran", "NENastran ", ""}) {
        GenerateFixture f;
        f.form.Solver.Text = solver;

        write(f);

        EXPECT_THAT(f.written("CAEInput.txt"), ElementsAre("Reference Model (FEMAP) = beam.neu",
                                                           "NameValue = InputValues.txt"));
        EXPECT_THAT(f.written("CAEOutput.txt"), ElementsAre("Reference Model (FEMAP) = beam.neu",
                                                            "OutputNameValue = OutputValues.txt"));
    }
}

TEST(ExchangeFiles, OfEmptyGridsHoldTheHeadsOnly)
{
    GenerateFixture f;

    write(f);

    EXPECT_EQ(f.written("CAEInput.txt").size(), 3U);
    EXPECT_EQ(f.written("CAEOutput.txt").size(), 3U);
    for (const char* const name : {"InputValues.txt", "InputValues.txt.template",
                                   "OutputValues.txt", "OutputValues.txt.template"})
        EXPECT_EQ(f.files.contents.at(inWork(name)), "") << name;
}

TEST(ExchangeFiles, LeaveOutRowsWithoutAName)
{
    GenerateFixture f;
    f.addInput({"first", "1"});
    f.addInput({"", "2", "Prop"});
    f.addInput({"last", "3"});

    write(f);

    EXPECT_THAT(f.written("InputValues.txt"), ElementsAre("first  1", "last  3"));
}

TEST(ExchangeFiles, TakeCellsUnchanged)
{
    GenerateFixture f;
    f.addInput({" a  b'@model@\" ", "  -.5 ", "Prop", "1", "pval", "0"});

    write(f);

    EXPECT_THAT(f.written("InputValues.txt"), ElementsAre(" a  b'@model@\"     -.5 "));
}

TEST(ExchangeFiles, TrimTheExtensionOfTheModelFile)
{
    GenerateFixture f;
    const std::pair<const char*, const char*> extensions[] = {
        {"  MOD ", "beam.MOD"}, {"a b", "beam.a b"}, {"   ", "beam."}, {"", "beam."}};
    for (const auto& [extension, model] : extensions) {
        f.form.fileExtension = extension;

        write(f);

        EXPECT_EQ(f.written("CAEInput.txt").front(),
                  std::string("Reference Model (FEMAP) = ") + model);
        EXPECT_EQ(f.written("CAEOutput.txt").front(),
                  std::string("Reference Model (FEMAP) = ") + model);
    }
}

TEST(ExchangeFiles, ReplaceTheOldOnes)
{
    GenerateFixture f;
    f.files.contents[inWork("InputValues.txt")] = "old";
    f.addInput({"T1", "1"});

    write(f);

    EXPECT_THAT(f.written("InputValues.txt"), ElementsAre("T1  1"));
}

TEST(ExchangeFiles, LogNothing)
{
    GenerateFixture f;
    f.addInput({"T1", "1"});

    EXPECT_THAT(f.logOf([&] { write(f); }), IsEmpty());
}

TEST(ExchangeFiles, AreOpenedTogetherAndClosedInReverseOrder)
{
    GenerateFixture f;
    f.addInput({"T1", "1"});
    // Three are created, then the template is written, flushed, closed and renamed.
    f.files.failingOperation = f.files.operations + 3 + 4 + 1;

    EXPECT_THROW(write(f), sys::RuntimeError);
    EXPECT_THAT(f.fileNames(), ElementsAre("InputValues.txt.template"));
}

TEST(ExchangeFiles, LogTheFirstLineWithACharacterThatTheCodePageLacks)
{
    GenerateFixture f;
    f.addInput({"plain", "1"});
    f.addInput({"Ω", "2"});

    const auto log = f.logOf([&] { write(f); });

    EXPECT_THAT(f.written("InputValues.txt"), ElementsAre("plain  1", "?  2"));
    EXPECT_THAT(log, testing::Contains(testing::HasSubstr(inWork("InputValues.txt") + ": line 2")));
}

}  // namespace generate
