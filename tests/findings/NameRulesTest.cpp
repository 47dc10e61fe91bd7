#include "FindingsFixture.h"
#include "findings/NameOrder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace findings
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class NameRules : public testing::Test
{
protected:
    FindingsFixture f;

    void addInput(std::string_view name, std::string_view id = "1")
    {
        f.addInput({name, "1", "Matl", id, "Ex", ""});
    }
    void addOutput(std::string_view name) { f.addOutput({name, "1", "12", "2", "Output"}); }
};

TEST_F(NameRules, TellRowsWithoutANameButNotTheBlankRow)
{
    f.form.OutputsList.AddItem("");
    EXPECT_THAT(f.found("no-name"), IsEmpty());

    f.form.InputsList.AddItem("\tX-Y Values\tFunction\t 3\t\t");

    EXPECT_EQ(f.found("no-name"),
              "error no-name inputs:2: The row has no name and is left out of "
              "the files (Function  3).");
}

TEST_F(NameRules, TellNamesThatStandInBothGrids)
{
    addInput("A1");
    addOutput("B1");
    EXPECT_THAT(f.found("name-in-both"), IsEmpty());

    addOutput("A1");

    EXPECT_EQ(f.found("name-in-both"),
              "error name-in-both inputs:2 outputs:3 A1: A1 is an input and an output.");
    EXPECT_THAT(f.found("name-twice"), IsEmpty());
    EXPECT_THAT(f.found("name-begins-another"), IsEmpty());
}

TEST_F(NameRules, TellNamesThatDifferInTheCaseOfLettersOnly)
{
    addInput("Load_1");
    addInput("Load_2");
    EXPECT_THAT(f.found("name-differs-in-case"), IsEmpty());

    addOutput("LOAD_2");

    EXPECT_EQ(f.found("name-differs-in-case"),
              "error name-differs-in-case inputs:3 outputs:2 LOAD_2: LOAD_2 and Load_2 differ in "
              "the case of letters only.");
}

TEST_F(NameRules, TellWhatIsThereTwice)
{
    for (const char* const value : {"1", "2"})
        f.addInput({"Press_4_Pressure", value, "LoadMesh", " 4", "0", "0"});

    EXPECT_EQ(f.found("name-twice"),
              "warning name-twice inputs:2-3 Press_4_Pressure: Press_4_Pressure is there more than "
              "once (2 rows).");
    EXPECT_THAT(f.found("name-of-two"), IsEmpty());
}

TEST_F(NameRules, TellNamesOfDifferentQuantities)
{
    addInput("ExtremelyLongNaAtMatl1", "1");
    addInput("ExtremelyLongNaAtMatl1", "2");

    EXPECT_EQ(
        f.found("name-of-two"),
        "warning name-of-two inputs:2-3 ExtremelyLongNaAtMatl1: ExtremelyLongNaAtMatl1 is the "
        "name of different quantities (Matl 1 Ex and Matl 2 Ex).");
    EXPECT_THAT(f.found("name-twice"), IsEmpty());
}

TEST_F(NameRules, TellANameThatBeginsAnotherOfEitherGrid)
{
    addInput("ExAtMatl1");
    addInput("ExAtMatl20");
    EXPECT_THAT(f.found("name-begins-another"), IsEmpty());

    addOutput("EXATMATL1_B");
    EXPECT_EQ(f.found("name-begins-another"),
              "warning name-begins-another inputs:2 ExAtMatl1: ExAtMatl1 is the beginning of "
              "another name, EXATMATL1_B.");

    addInput("ExAtMatl20_3");
    EXPECT_EQ(f.found("name-begins-another"),
              "warning name-begins-another inputs:2-3: 2 names are the beginning of another one, "
              "as ExAtMatl1 of EXATMATL1_B.");
}

TEST_F(NameRules, CountNamesOfWhichOnlyTheNumberGoesOnWithoutTheirRows)
{
    for (int node = 1; node <= 30; ++node)
        addInput("xAtNode" + std::to_string(node));

    EXPECT_EQ(f.found("name-begins-another"),
              "warning name-begins-another: 3 names are the beginning of another one, as xAtNode1 "
              "of xAtNode10.");

    addInput("xAtNode4_b");
    EXPECT_THAT(f.places("name-begins-another"), ElementsAre(Place{Grid::Inputs, 5}));
}

TEST_F(NameRules, TellCharactersThatFilesTakeForSomethingElse)
{
    addInput("Träger_1+a.b-c(d)");
    EXPECT_THAT(f.found("name-special"), IsEmpty());

    f.addInput({"Pilot's \"seat\"", "X-Y Values", "Function", " 2", "", ""});
    addInput("a<b%");
    EXPECT_EQ(f.found("name-special"),
              "warning name-special inputs:3-4: 2 names hold characters that the files of the tool "
              "may take for something else: Pilot's \"seat\" (a blank, \", '), a<b% (%, <).");
}

TEST(NamesInOrder, StandTogetherWhereverTheyAre)
{
    const std::vector<std::string> inputs = {"b\t1", "A\t1", "", "a\t1"};
    const std::vector<std::string> outputs = {"a\t2", "B\t2"};
    const NameOrder names(inputs, outputs);

    std::vector<std::string> rows;
    for (const NameOrder::Entry& entry : names.entries())
        rows.push_back(std::string(names.rowText(entry)) + " " + std::to_string(entry.row));

    EXPECT_THAT(rows, ElementsAre("A\t1 2", "a\t1 4", "a\t2 1", "B\t2 2", "b\t1 1"));
}

TEST(NamesInOrder, MayBeNone)
{
    const std::vector<std::string> blank = {"\t"};

    EXPECT_THAT(NameOrder(blank, blank).entries(), IsEmpty());
}

}  // namespace
}  // namespace findings
