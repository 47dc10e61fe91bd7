#include "femap/NumberText.h"
#include "selection/ValueRefreshFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace selection
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;

TEST_F(ValueRefresh, AnOutputIsReadAtItsEntity)
{
    fillOutputs(
        {"TotalTrans1AtNode12\told\t12\t1\tOutput", "Plate60031AtElem40\told\t40\t60031\tOutput"});

    RefreshOutputs_Click(f.context);

    EXPECT_THAT(outputs(), ElementsAre("TotalTrans1AtNode12\t0.1\t12\t1\tOutput",
                                       "Plate60031AtElem40\t77\t40\t60031\tOutput"));
    expectFemapReleased();
}

TEST_F(ValueRefresh, AnExtremeIsReadThroughTheMemberThatItsRowNames)
{
    fillOutputs({"MaxAtNode1\told\t1\t1\tmaxval", "MinAtNode1\told\t1\t1\tminval",
                 "AbsAtNode1\told\t1\t1\tabsmaxval"});

    RefreshOutputs_Click(f.context);

    EXPECT_EQ(output(1), "9");
    EXPECT_EQ(output(2), "-4.5");
    EXPECT_EQ(output(3), "9");
}

TEST_F(ValueRefresh, ResultsChangedInTheModelShowUp)
{
    fillOutputs({"TotalTrans1AtNode12\t0.1\t12\t1\tOutput", "MaxAtNode1\t9\t1\t1\tmaxval"});

    femap::embedded::putOutputValue(f.model(), 1, 12, 40);
    f.model().outputSets.find(1)->vectors.find(1)->maxval = 40;
    RefreshOutputs_Click(f.context);

    EXPECT_EQ(output(1), "40");
    EXPECT_EQ(output(2), "40");
}

TEST_F(ValueRefresh, EachStepOfAnOutputRefreshIsLogged)
{
    measureScripted();
    fillOutputs({"TotalTrans1AtNode12\told\t12\t1\tOutput", "MaxAtNode1\told\t1\t1\tmaxval",
                 "TotalMass\told\tMassTotal\t\tMassProperties"});

    RefreshOutputs_Click(f.context);

    EXPECT_THAT(
        f.log(),
        ElementsAre("DEBUG: At the start of RefreshOutputs_Click", "DEBUG: Acquired Femap lock",
                    "DEBUG: Trying to update OutputTotalTrans1AtNode12\told\t12\t1\tOutput",
                    "DEBUG: Trying to update OutputMaxAtNode1\t9\t1\t1\tmaxval",
                    "DEBUG: Trying to update OutputTotalMass\t6.5\tMassTotal\t\tMassProperties",
                    "DEBUG: Released Femap Lock", "DEBUG: At the end of RefreshOutputs_Click"));
}

TEST_F(ValueRefresh, AnOutputWithoutANameIsPassedOver)
{
    fillOutputs({"\tkept\t12\t1\tOutput", "\tkept\tMassTotal\t\tMassProperties",
                 "TotalTrans1AtNode13\told\t13\t1\tOutput"});

    RefreshOutputs_Click(f.context);

    EXPECT_THAT(outputs(),
                ElementsAre("\tkept\t12\t1\tOutput", "\tkept\tMassTotal\t\tMassProperties",
                            "TotalTrans1AtNode13\t0.2\t13\t1\tOutput"));
}

TEST_F(ValueRefresh, TheBlankRowOfAnEmptyOutputGridStaysBlank)
{
    RefreshOutputs_Click(f.context);

    EXPECT_THAT(outputs(), ElementsAre("\t\t\t\t"));
    EXPECT_THAT(f.log(), Not(Contains(HasSubstr("ERROR"))));
    expectFemapReleased();
}

TEST_F(ValueRefresh, EveryMassQuantityIsFoundByItsTag)
{
    measureScripted();
    const std::vector<std::pair<std::string, std::vector<double>>> quantities = {
        {"Length", {1}},
        {"Area", {2}},
        {"Vol", {3}},
        {"MassStructural", {4}},
        {"MassNonStructural", {5}},
        {"MassTotal", {6.5}},
        {"StructuralCG", {10, 11, 12}},
        {"NonStructuralCG", {20, 21, 22}},
        {"TotalCG", {30, 31, 32}},
        {"Inertia", {40, 41, 42, 43, 44, 45}},
        {"InertiaCG", {50, 51, 52, 53, 54, 55}}};
    std::vector<std::string> rows;
    std::vector<double> expected;
    for (const auto& [tag, values] : quantities)
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::string index = values.size() == 1 ? "" : std::to_string(i);
            rows.push_back("Name\told\t" + tag + "\t" + index + "\tMassProperties");
            expected.push_back(values[i] + 1000.0 * static_cast<double>(expected.size()));
        }
    fillOutputs(rows);

    RefreshOutputs_Click(f.context);

    ASSERT_EQ(f.form.OutputsList.Rows(), 28);
    for (int row = 1; row < f.form.OutputsList.Rows(); ++row)
        EXPECT_EQ(output(row), femap::numberText(expected[static_cast<std::size_t>(row - 1)]))
            << f.form.OutputsList.rowText(row);
    expectFemapReleased();
}

TEST_F(ValueRefresh, EachMassRowHasAMeasurementOfAllElementsOfItsOwn)
{
    f.model().elements.put({.id = 41, .type = 17});
    measureScripted();
    fillOutputs({"TotalMass\told\tMassTotal\t\tMassProperties", "MaxAtNode1\told\t1\t1\tmaxval",
                 "TotalMass\told\tMassTotal\t\tMassProperties",
                 "StructuralCGx\told\tStructuralCG\t0\tMassProperties"});

    RefreshOutputs_Click(f.context);

    EXPECT_THAT(measuredElements,
                ElementsAre(ElementsAre(40, 41), ElementsAre(40, 41), ElementsAre(40, 41)));
    EXPECT_EQ(output(1), "6.5");
    EXPECT_EQ(output(3), "1006.5");
    EXPECT_EQ(output(4), "2010");
}

TEST_F(ValueRefresh, AMassChangedInTheModelShowsUp)
{
    f.model().nodes.put({.id = 14, .x = 3.5, .y = 2});
    f.model().nodes.put({.id = 15, .x = 1.5, .y = 2});
    f.model().nodes.find(12)->y = 0;
    f.model().elements.put(
        {.id = 40, .propID = 7, .type = 17, .topology = 4, .node = {12, 13, 14, 15}});
    f.model().properties.find(7)->matlID = 3;
    f.model().properties.find(7)->pval = {0.25};
    f.model().materials.find(3)->mval.resize(50);
    f.model().materials.find(3)->mval[49] = 2;  // density
    fillOutputs(
        {"TotalArea\told\tArea\t\tMassProperties", "TotalMass\told\tMassTotal\t\tMassProperties"});

    RefreshOutputs_Click(f.context);
    const std::vector<std::string> before = {output(1), output(2)};
    f.model().properties.find(7)->pval[0] = 0.5;
    RefreshOutputs_Click(f.context);

    EXPECT_THAT(before, ElementsAre("4", "2"));
    EXPECT_EQ(output(1), "4");
    EXPECT_EQ(output(2), "4");
}

class OutputThatCannotBeRead : public ValueRefresh, public testing::WithParamInterface<BadRow>
{};

TEST_P(OutputThatCannotBeRead, KeepsItsValueAndTheWalkGoesOn)
{
    measureScripted();
    fillOutputs({"A1\told\t12\t1\tOutput", GetParam().row, "B1\told\t1\t1\tminval"});

    RefreshOutputs_Click(f.context);

    EXPECT_EQ(output(1), "0.1");
    EXPECT_EQ(f.form.OutputsList.rowText(2), GetParam().row);
    EXPECT_EQ(output(3), "-4.5");
    EXPECT_THAT(f.log(), Contains(GetParam().line));
    expectFemapReleased();
}

const std::string refreshingA = "ERROR: --------------------Refreshing A--------------------";

INSTANTIATE_TEST_SUITE_P(
    EachReason, OutputThatCannotBeRead,
    testing::Values(
        BadRow{"MissingVector", "A\tkept\t12\t99\tOutput",
               "ERROR: FEMAP has no output vector with the ID 99"},
        BadRow{"MissingVectorOfAnExtreme", "A\tkept\t99\t99\tmaxval",
               "ERROR: FEMAP has no output vector with the ID 99"},
        BadRow{"NoValueAtTheEntity", "A\tkept\t4000\t1\tOutput", refreshingA},
        BadRow{"EntityIDIsNoNumber", "A\tkept\tmany\t1\tOutput",
               "ERROR: \"many\" is no whole number"},
        BadRow{"VectorIDIsNoNumber", "A\tkept\t12\tmany\tOutput",
               "ERROR: \"many\" is no whole number"},
        BadRow{"VectorIDOfAnExtremeIsNoNumber", "A\tkept\t1\t\tmaxval",
               "ERROR: \"\" is no whole number"},
        BadRow{"UnknownMember", "A\tkept\t1\t1\tmostval", refreshingA},
        BadRow{"NoKind", "A\tkept\t1\t1\t", refreshingA},
        BadRow{"UnknownMassQuantity", "A\tkept\tWeight\t\tMassProperties",
               "ERROR: There is no mass quantity \"Weight\""},
        BadRow{"ComponentIsNoNumber", "A\tkept\tTotalCG\tx\tMassProperties",
               "ERROR: \"x\" is no whole number"},
        BadRow{"ComponentBeyondTheArray", "A\tkept\tTotalCG\t3\tMassProperties", refreshingA},
        BadRow{"NegativeComponent", "A\tkept\tInertia\t-1\tMassProperties", refreshingA}),
    [](const auto& one) { return one.param.name; });

TEST_F(ValueRefresh, AFailedMeasurementCostsItsRowOnly)
{
    f.watchFemap().failAt("feMeasureMeshMassProp", "The mass came out negative");
    fillOutputs({"TotalMass\tkept\tMassTotal\t\tMassProperties", "MaxAtNode1\told\t1\t1\tmaxval"});

    RefreshOutputs_Click(f.context);

    EXPECT_EQ(output(1), "kept");
    EXPECT_EQ(output(2), "9");
    EXPECT_THAT(f.log(), IsSupersetOf({std::string("ERROR: The mass came out negative"),
                                       std::string("ERROR: --------------------Refreshing "
                                                   "TotalMass--------------------")}));
    expectFemapReleased();
}

}  // namespace selection
