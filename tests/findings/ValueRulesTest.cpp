#include "FindingsFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace findings
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ValueRules : public testing::Test
{
protected:
    FindingsFixture f;
};

TEST_F(ValueRules, TellPropertiesOutsideTheBoundsOfTheTaskDescription)
{
    for (const char* const inside : {"0.01", "5", " .5", "5E+00"}) {
        f.form.InputsList.setText(1, form::valueColumn, inside);
        EXPECT_THAT(f.found("outside-bounds"), IsEmpty()) << inside;
    }

    f.form.InputsList.setText(1, form::valueColumn, "5.25");
    EXPECT_EQ(f.found("outside-bounds"),
              "warning outside-bounds inputs:1 ThicknessAtProp7: ThicknessAtProp7 has the value "
              "5.25, outside the bounds 0.01 to 5.0 of the task description.");
    f.addInput({"IAtProp7", "-3", "Prop", "7", "pval", "1"});
    f.addInput({"xAtNode12", "300", "Node", "12", "x", ""});
    EXPECT_EQ(f.found("outside-bounds"),
              "warning outside-bounds inputs:1-2: 2 property inputs are outside the bounds 0.01 to "
              "5.0 of the task description: ThicknessAtProp7 (5.25), IAtProp7 (-3).");

    f.chooseTool("Ombra");
    EXPECT_THAT(f.found("outside-bounds"), IsEmpty());
}

TEST_F(ValueRules, TellNoBoundsOfWhatIsAWholeNumber)
{
    f.addInput({"ColorAtProp7", "110", "Prop", "7", "color", ""});
    f.addInput({"layerAtProp7", "9", "Prop", "7", "layer", ""});

    EXPECT_THAT(f.found("outside-bounds"), IsEmpty());
    EXPECT_THAT(f.places("whole-number-varied"),
                ElementsAre(Place{Grid::Inputs, 2}, Place{Grid::Inputs, 3}));
}

TEST_F(ValueRules, TellValuesOutsideTheBoundsOfTheParameterFile)
{
    f.addInput({"ExAtMatl1", "210000000", "Matl", "1", "Ex", ""});
    f.addOutput({"TotalMass", "-9.5E+06", "MassTotal", "", "MassProperties"});
    EXPECT_THAT(f.found("outside-parameter-bounds"), IsEmpty());

    f.chooseTool("Ombra");

    EXPECT_THAT(f.found("outside-parameter-bounds"),
                HasSubstr("2 values are outside the bounds -9.425e6 to 9.425e6"));
    EXPECT_THAT(f.places("outside-parameter-bounds"),
                ElementsAre(Place{Grid::Inputs, 2}, Place{Grid::Outputs, 2}));
}

TEST_F(ValueRules, TellValuesThatAreNoNumbers)
{
    f.addInput({"Curve", "X-Y Values", "Function", " 2", "", ""});
    EXPECT_THAT(f.found("no-number"), IsEmpty());

    f.addInput({"AlphazxAtMatl1", "", "Matl", "1", "Alphaxz", ""});
    f.addOutput({"TotalMass", "1.#INF", "MassTotal", "", "MassProperties"});

    EXPECT_EQ(
        f.found("no-number"),
        "error no-number inputs:3 outputs:2: 2 values are no numbers: AlphazxAtMatl1 (empty), "
        "TotalMass (1.#INF).");
}

TEST_F(ValueRules, TellThatNothingWouldBeVaried)
{
    EXPECT_THAT(f.found("nothing-varied"), IsEmpty());

    f.form.InputsList.setText(1, form::inputColumn::kind, "Node");
    EXPECT_THAT(f.found("nothing-varied"), HasSubstr("warning nothing-varied: No input"));

    f.chooseTool("Ombra");
    EXPECT_THAT(f.found("nothing-varied"), IsEmpty());
}

TEST_F(ValueRules, TellWholeNumbersThatWouldBeVariedAsRealOnes)
{
    f.addInput({"ExAtMatl1", "2", "Matl", "1", "Ex", ""});
    f.addInput({"orientAAtElem40", "2", "Elem", "40", "orient", "0"});
    f.addInput({"PressAt_1_Pressure", " 2", "LoadMesh", " 1", "0", "0"});
    EXPECT_THAT(f.found("whole-number-varied"), IsEmpty());

    for (const char* const member : {"type", "layer", "matlID", "refCS", "Color"})
        f.addInput({std::string(member) + "AtProp7", "2", "Prop", "7", member, ""});
    f.addInput({"node1AtElem40", "12", "Elem", "40", "node", "0"});
    f.addInput({"defCSysAtNode12", "0", "Node", "12", "defCSys", ""});

    EXPECT_THAT(f.found("whole-number-varied"), HasSubstr("inputs:5-11: 7 inputs are whole"));
}

TEST_F(ValueRules, TellResultsOfElementsWithoutAConstraint)
{
    f.addOutput({"T1Translat2AtNode12", "1", "12", "2", "Output"});
    f.addOutput({"TotalMass", "1", "MassTotal", "", "MassProperties"});
    EXPECT_THAT(f.found("no-constraint"), IsEmpty());

    f.addOutput({"PlateTopVo7033AtElem40", "1", "40", "7033", "Output"});
    f.addOutput({"elemForces12MaxAtElem85002", "1", "85002", "85002", "maxval"});

    EXPECT_EQ(f.found("no-constraint"),
              "hint no-constraint outputs:4-5: 2 outputs of elements get no constraint, for their "
              "names do not begin with \"Elem\": PlateTopVo7033AtElem40, "
              "elemForces12MaxAtElem85002.");
    f.chooseTool("Ombra");
    EXPECT_THAT(f.found("no-constraint"), IsEmpty());
}

}  // namespace
}  // namespace findings
