#include "OutputFixture.h"
#include "loop/OutputRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace loop
{

using testing::ElementsAre;
using testing::HasSubstr;

namespace
{

class OutputRows : public testing::Test
{
protected:
    OutputRows()
    {
        femap::neutral::OutputSet set;
        set.id = 1;
        set.vectors.put({.id = 1,
                         .title = "Total Translation",
                         .minval = -4.5,
                         .maxval = 9,
                         .ids = {12, 13, 99},
                         .values = {0.1, 1e-7, 5}});
        set.vectors.put({.id = 7033,
                         .title = "Plate Top VonMises Stress",
                         .minval = 1,
                         .maxval = std::numeric_limits<double>::infinity(),
                         .location = femap::EntityType::Element,
                         .ids = {40},
                         .values = {77}});
        f.model().outputSets.put(set);
    }

    // Reads such rows, whose first one stands in line 4; gives their values.
    std::vector<std::string> values(const std::vector<std::string>& rows)
    {
        outputs.file = "CAEOutput.txt";
        for (const std::string& row : rows)
            outputs.rows.push_back({outputs.rows.size() + 4, row});
        takeOutputs(f.context, outputs);
        if (wantsResults(outputs))
            readResultRows(f.context, outputs, f.problems);
        if (wantsMass(outputs))
            readMassRows(f.context, outputs, f.problems);
        std::vector<std::string> result;
        for (int row = 1; row < f.form.OutputsList.Rows(); ++row)
            result.push_back(f.form.OutputsList.text(row, form::valueColumn));
        return result;
    }
    std::string problemOf(const std::string& row)
    {
        EXPECT_THAT(values({row}), ElementsAre(""));
        return f.problems.text();
    }

    OutputFixture f;
    Description outputs;
};

}  // namespace

TEST_F(OutputRows, OfEveryKindAreRead)
{
    EXPECT_THAT(
        values(
            {"TotalTrans1AtNode12\t\t12\t1\tOutput", "TotalTrans1AtNode13\t\t13\t1\tOutput",
             "PlateTopVo7033AtElem40\t\t40\t7033\tOutput",
             "TotalTranslatiMaxAtNode1\t\t1\t1\tmaxval", "TotalTranslatiMinAtNode1\t\t1\t1\tminval",
             "TotalMass\t\tMassTotal\t\tMassProperties", "TotalCGx\t\tTotalCG\t0\tMassProperties"}),
        ElementsAre("0.1", "1E-07", "77", "9", "-4.5", "8", "1"));
    EXPECT_EQ(f.problems.text(), "");
}

TEST_F(OutputRows, AreOneBlankRowWhereThereAreNone)
{
    EXPECT_THAT(values({}), ElementsAre(""));
    EXPECT_EQ(f.problems.text(), "");
}

TEST_F(OutputRows, OfTheMassAskForNoResults)
{
    f.model().outputSets = {};

    EXPECT_THAT(values({"TotalMass\t\tMassTotal\t\tMassProperties"}), ElementsAre("8"));

    EXPECT_FALSE(wantsResults(outputs));
}

TEST_F(OutputRows, OfResultsMeasureNothing)
{
    fake::CallWatch& watch = f.watchFemap();

    values({"TotalTrans1AtNode12\t\t12\t1\tOutput"});

    EXPECT_EQ(watch.count("feMeasureMeshMassProp"), 0);
}

TEST_F(OutputRows, OfTheMassAreMeasuredOnce)
{
    fake::CallWatch& watch = f.watchFemap();

    values({"TotalMass\t\tMassTotal\t\tMassProperties", "TotalArea\t\tArea\t\tMassProperties"});

    EXPECT_EQ(watch.count("feMeasureMeshMassProp"), 1);
}

TEST_F(OutputRows, OfOneVectorLoadItAndReadItsTitleOnce)
{
    fake::CallWatch& watch = f.watchFemap();

    values({"TotalTrans1AtNode12\t\t12\t1\tOutput", "TotalTrans1AtNode13\t\t13\t1\tOutput",
            "PlateTopVo7033AtElem40\t\t40\t7033\tOutput",
            "TotalTranslatiMaxAtNode1\t\t1\t1\tmaxval"});

    EXPECT_EQ(watch.count("Output.Get 1"), 2);
    EXPECT_EQ(watch.count("Output.Title 1"), 1);
}

TEST_F(OutputRows, OfAVectorThatTheResultsLackAreTold)
{
    EXPECT_EQ(problemOf("Stress8AtElem40\t\t40\t8\tOutput"),
              "CAEOutput.txt:4: the results have no output vector 8; let the solver give it, or "
              "choose another one in the form and press \"Apply\"\n");
}

TEST_F(OutputRows, BehindAVectorThatTheResultsLackAreRead)
{
    EXPECT_THAT(values({"TotalTrans1AtNode12\t\t12\t1\tOutput", "X8AtNode12\t\t12\t8\tOutput",
                        "TotalTrans1AtNode13\t\t13\t1\tOutput"}),
                ElementsAre("0.1", "", "1E-07"));
}

TEST_F(OutputRows, OfAnEntityThatIsGoneAreTold)
{
    EXPECT_EQ(problemOf("TotalTrans1AtNode99\t\t99\t1\tOutput"),
              "CAEOutput.txt:4: FEMAP has no Node with the ID 99; choose it again in the form and "
              "press \"Apply\"\n");
}

TEST_F(OutputRows, OfAnEntityWithoutAValueAreTold)
{
    EXPECT_EQ(problemOf("TotalTrans1AtNode10\t\t10\t1\tOutput"),
              "CAEOutput.txt:4: " + femap::noValueText(1, 10) + "\n");
}

TEST_F(OutputRows, WhoseValueIsNoNumberAreTold)
{
    EXPECT_EQ(problemOf("PlateTopVonMisMaxAtElem7033\t\t7033\t7033\tmaxval"),
              "CAEOutput.txt:4: the value is no number: \"1.#INF\"\n");
}

TEST_F(OutputRows, WhoseVectorHasAnotherTitleNowAreTold)
{
    EXPECT_EQ(problemOf("T1Translat1AtNode12\t\t12\t1\tOutput"),
              "CAEOutput.txt:4: \"T1Translat1AtNode12\" points at what is \"TotalTrans1AtNode12\" "
              "now; choose it again in the form and press \"Apply\"\n");
}

TEST_F(OutputRows, OfAnotherEntityThanTheirNameSaysAreTold)
{
    EXPECT_THAT(problemOf("TotalTrans1AtNode12\t\t13\t1\tOutput"),
                HasSubstr("\"TotalTrans1AtNode13\" now"));
}

TEST_F(OutputRows, OfAnotherExtremeThanTheirNameSaysAreTold)
{
    EXPECT_THAT(problemOf("TotalTranslatiMaxAtNode1\t\t1\t1\tminval"),
                HasSubstr("\"TotalTranslatiMinAtNode1\" now"));
}

TEST_F(OutputRows, OfAnotherQuantityThanTheirNameSaysAreTold)
{
    EXPECT_THAT(problemOf("TotalMass\t\tMassStructural\t\tMassProperties"),
                HasSubstr("\"StructuralMass\" now"));
}

TEST_F(OutputRows, OfAnUnknownQuantityOrComponentOfTheMassAreTold)
{
    EXPECT_THAT(
        values({"TotalWeight\t\tWeight\t\tMassProperties", "TotalCGx\t\tTotalCG\t3\tMassProperties",
                "TotalCGx\t\tTotalCG\t\tMassProperties"}),
        ElementsAre("", "", ""));

    EXPECT_EQ(
        f.problems.text(),
        "CAEOutput.txt:4: there is no quantity of the mass \"Weight\"; choose it again in the "
        "form and press \"Apply\"\n"
        "CAEOutput.txt:5: the quantity of the mass \"TotalCG\" has no component 3; choose it "
        "again in the form and press \"Apply\"\n"
        "CAEOutput.txt:6: \"\" is no whole number\n");
}

TEST_F(OutputRows, AreFoundByNameWhereTheCodePageLacksACharacterOfTheTitle)
{
    f.model().outputSets.find(1)->vectors.find(1)->title = "Δ Translation";

    EXPECT_THAT(values({"?Translati1AtNode12\t\t12\t1\tOutput"}), ElementsAre("0.1"));
    EXPECT_EQ(f.problems.text(), "");
}

}  // namespace loop
