#include "selection/ValueRefreshFixture.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace selection
{

using sys::RuntimeError;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;

TEST_F(ValueRefresh, EachKindOfEntityIsReadAgain)
{
    fillInputs({"xAtNode12\told\tNode\t12\tx", "colorAtElem40\told\tElem\t40\tcolor",
                "TitleAtProp7\told\tProp\t7\ttitle", "ExAtMatl3\told\tMatl\t3\tEx"});

    RefreshInputs_Click(f.context);

    EXPECT_THAT(inputs(), ElementsAre("xAtNode12\t1.5\tNode\t12\tx\t",
                                      "colorAtElem40\t124\tElem\t40\tcolor\t",
                                      "TitleAtProp7\tShell\tProp\t7\ttitle\t",
                                      "ExAtMatl3\t210000000000\tMatl\t3\tEx\t"));
    expectFemapReleased();
}

TEST_F(ValueRefresh, ArrayMembersAreReadAtTheirIndex)
{
    fillInputs({"ThicknessAtProp7\told\tProp\t7\tpval\t0", "T4AtProp7\told\tProp\t7\tpval\t3",
                "orientAAtElem40\told\tElem\t40\torient\t0",
                "node2AtElem40\told\tElem\t40\tnode\t1"});

    RefreshInputs_Click(f.context);

    EXPECT_EQ(input(1), "0.25");
    EXPECT_EQ(input(2), "0.125");
    EXPECT_EQ(input(3), "30");
    EXPECT_EQ(input(4), "13");
    expectFemapReleased();
}

TEST_F(ValueRefresh, AValueChangedInTheModelShowsUp)
{
    fillInputs({"xAtNode12\t1.5\tNode\t12\tx", "ThicknessAtProp7\t0.25\tProp\t7\tpval\t0"});

    f.model().nodes.find(12)->x = -0.5;
    f.model().properties.find(7)->pval[0] = 1e-5;
    RefreshInputs_Click(f.context);

    EXPECT_EQ(input(1), "-0.5");
    EXPECT_EQ(input(2), "1E-05");
}

TEST_F(ValueRefresh, OfTheSelectedInputsLeavesTheOthersAsTheyAre)
{
    fillInputs({"xAtNode12\told\tNode\t12\tx", "yAtNode12\told\tNode\t12\ty",
                "xAtNode13\told\tNode\t13\tx", "ExAtMatl3\told\tMatl\t3\tEx"});
    f.form.InputsList.Row = 3;
    f.form.InputsList.RowSel = 2;

    refreshSelectedInputs(f.context);

    EXPECT_EQ(input(1), "old");
    EXPECT_EQ(input(2), "-2");
    EXPECT_EQ(input(3), "3.5");
    EXPECT_EQ(input(4), "old");
    EXPECT_THAT(f.log(), AllOf(Contains("DEBUG: At the start of RefreshInputs_Click"),
                               Contains("DEBUG: Acquired Femap lock"),
                               Contains("DEBUG: Number of rowsto refresh  in input list = 3"),
                               Contains("DEBUG: Released Femap lock"),
                               Contains("DEBUG: At the end of RefreshInputs_Click")));
    expectFemapReleased();
}

TEST_F(ValueRefresh, OfTheSelectedOutputsLeavesTheOthersAsTheyAre)
{
    fillOutputs({"a\told\t12\t1\tOutput", "b\told\t13\t1\tOutput", "c\told\t\t1\tminval"});
    f.form.OutputsList.Row = f.form.OutputsList.RowSel = 2;

    refreshSelectedOutputs(f.context);

    EXPECT_EQ(output(1), "old");
    EXPECT_EQ(output(2), "0.2");
    EXPECT_EQ(output(3), "old");
    expectFemapReleased();
}

TEST_F(ValueRefresh, AnEntityIDWithALeadingBlankIsRead)
{
    fillInputs({"xAtNode12\told\tNode\t 12\tx", "T4AtProp7\told\tProp\t7\tpval\t 3"});

    RefreshInputs_Click(f.context);

    EXPECT_EQ(input(1), "1.5");
    EXPECT_EQ(input(2), "0.125");
}

TEST_F(ValueRefresh, EachStepOfAnInputRefreshIsLogged)
{
    fillInputs({"xAtNode12\told\tNode\t12\tx", "Ramp\tX-Y Values\tFunction\t 5\t",
                "yAtNode12\told\tNode\t12\ty"});

    RefreshInputs_Click(f.context);

    EXPECT_THAT(
        f.log(),
        ElementsAre("DEBUG: At the start of RefreshInputs_Click", "DEBUG: Acquired Femap lock",
                    "DEBUG: Number of rowsto refresh  in input list = 4",
                    "DEBUG: Entry:  Name=xAtNode12  Value=old  Type=Node",
                    "DEBUG: Called the entity Node to update",
                    "DEBUG: Entry:  Name=Ramp  Value=X-Y Values  Type=Function",
                    "DEBUG: Entry:  Name=yAtNode12  Value=old  Type=Node",
                    "DEBUG: Called the entity Node to update", "DEBUG: Released Femap lock",
                    "DEBUG: At the end of RefreshInputs_Click"));
}

TEST_F(ValueRefresh, TheBlankRowOfAnEmptyInputGridStaysBlank)
{
    RefreshInputs_Click(f.context);

    EXPECT_THAT(inputs(), ElementsAre("\t\t\t\t\t"));
    EXPECT_THAT(
        f.log(),
        ElementsAre("DEBUG: At the start of RefreshInputs_Click", "DEBUG: Acquired Femap lock",
                    "DEBUG: Number of rowsto refresh  in input list = 2",
                    "DEBUG: Entry:  Name=  Value=  Type=", "DEBUG: Released Femap lock",
                    "DEBUG: At the end of RefreshInputs_Click"));
    expectFemapReleased();
}

TEST_F(ValueRefresh, FunctionsAndLoadDefinitionsKeepTheirText)
{
    const std::vector<std::string> rows = {
        "Ramp\tX-Y Values\tFunction\t 5\t\t",       "A_1_Fx\t 1\tLoadMesh\t 1\t0\t0",
        "B_2_Fx\t 2\tLoadGeom\t 2\t0\t0",           "C_3_Temperature\t 3\tLoadETemp\t 3\t0\t0",
        "D_4_Temperature\t 4\tLoadNTemp\t 4\t0\t0", "NoKind\tkept\t\t12\tx\t"};
    fillInputs(rows);

    RefreshInputs_Click(f.context);

    EXPECT_EQ(inputs(), rows);
    EXPECT_THAT(f.log(), Not(Contains(HasSubstr("Called the entity"))));
    EXPECT_THAT(f.log(), Not(Contains(HasSubstr("ERROR"))));
}

class InputThatCannotBeRead : public ValueRefresh, public testing::WithParamInterface<BadRow>
{};

TEST_P(InputThatCannotBeRead, KeepsItsValueAndTheWalkGoesOn)
{
    fillInputs({"zAtNode12\told\tNode\t12\tz", GetParam().row, "xAtNode12\told\tNode\t12\tx"});

    RefreshInputs_Click(f.context);

    EXPECT_EQ(input(1), "0");
    EXPECT_EQ(f.form.InputsList.rowText(2), GetParam().row);
    EXPECT_EQ(input(3), "1.5");
    EXPECT_THAT(f.log(), Contains(GetParam().line));
    expectFemapReleased();
}

INSTANTIATE_TEST_SUITE_P(
    EachReason, InputThatCannotBeRead,
    testing::Values(BadRow{"MissingEntity", "A\tkept\tNode\t99\tx\t",
                           "ERROR: FEMAP has no Node with the ID 99"},
                    BadRow{"EntityIDIsNoNumber", "A\tkept\tNode\tmany\tx\t",
                           "ERROR: \"many\" is no whole number"},
                    BadRow{"NoEntityID", "A\tkept\tNode\t\tx\t", "ERROR: \"\" is no whole number"},
                    BadRow{"IndexIsNoNumber", "A\tkept\tProp\t7\tpval\tfirst",
                           "ERROR: \"first\" is no whole number"},
                    BadRow{"IndexBeyondTheArray", "A\tkept\tElem\t40\torient\t11",
                           "ERROR: --------------------Refreshing A--------------------"},
                    BadRow{"UnknownKind", "A\tkept\tSpline\t1\tx\t",
                           "ERROR: --------------------Refreshing A--------------------"},
                    BadRow{"UnknownMember", "A\tkept\tMatl\t3\tAlphaxz\t",
                           "ERROR: --------------------Refreshing A--------------------"},
                    BadRow{"NoMember", "A\tkept\tNode\t12\t\t",
                           "ERROR: --------------------Refreshing A--------------------"}),
    [](const auto& one) { return one.param.name; });

TEST_F(ValueRefresh, AMissingEntityIsNotReadFromTheOneBefore)
{
    fillInputs({"xAtNode12\told\tNode\t12\tx", "xAtNode99\tkept\tNode\t99\tx"});

    RefreshInputs_Click(f.context);

    EXPECT_EQ(input(1), "1.5");
    EXPECT_EQ(input(2), "kept");
}

TEST_F(ValueRefresh, AnUnknownKindIsNotCalledAndIsRefusedEachTime)
{
    fillInputs({"A\tkept\tSpline\t1\tx", "B\tkept\tSpline\t1\tx"});

    RefreshInputs_Click(f.context);

    EXPECT_THAT(f.log(),
                AllOf(Contains("ERROR: --------------------Refreshing A--------------------"),
                      Contains("ERROR: --------------------Refreshing B--------------------"),
                      Not(Contains("DEBUG: Called the entity Spline to update"))));
}

TEST_F(ValueRefresh, FemapIsLockedAndThePointerAnHourglassWhileRowsAreRead)
{
    f.watchFemap().beforeCall = [&](const std::string& call) {
        if (call != "entity" && call != "feOutput")
            return;
        EXPECT_EQ(f.femap.lockCount, 1);
        for (const form::NamedControl& each : f.form.controls())
            EXPECT_EQ(each.control->MousePointer, 11) << each.name;
    };
    fillInputs({"xAtNode12\told\tNode\t12\tx"});
    fillOutputs({"M\told\t1\t1\tmaxval"});

    RefreshInputs_Click(f.context);
    RefreshOutputs_Click(f.context);

    EXPECT_EQ(input(1), "1.5");
    EXPECT_EQ(output(1), "9");
    expectFemapReleased();
}

TEST_F(ValueRefresh, ALongRefreshShowsHowFarItIs)
{
    std::vector<std::string> captions;  // whenever the walk looks at the clock
    f.system.monotonicSeconds = [&] {
        captions.push_back(f.form.StatusLine.Caption);
        return f.seconds += 2;
    };
    fillInputs(std::vector<std::string>(600, "xAtNode12\told\tNode\t12\tx"));
    fillOutputs(std::vector<std::string>(600, "M\told\t1\t1\tmaxval"));

    RefreshInputs_Click(f.context);
    const int shownForInputs = f.host.progressShown;
    RefreshOutputs_Click(f.context);

    EXPECT_GT(shownForInputs, 0);
    EXPECT_GT(f.host.progressShown, shownForInputs);
    EXPECT_THAT(captions, IsSupersetOf({"Refreshing inputs … 42 %", "Refreshing outputs … 42 %"}));
    EXPECT_EQ(f.form.StatusLine.Caption, "");
    EXPECT_EQ(f.femap.statusMaximum, 0);
}

TEST_F(ValueRefresh, AModelClosedMeanwhileLeavesEveryRowAsItWas)
{
    const std::vector<std::string> inputRows = {"xAtNode12\t1.5\tNode\t12\tx\t"};
    const std::vector<std::string> outputRows = {"MaxAtNode1\t9\t1\t1\tmaxval"};
    fillInputs(inputRows);
    fillOutputs(outputRows);
    f.femap.model.reset();

    RefreshInputs_Click(f.context);
    RefreshOutputs_Click(f.context);

    EXPECT_EQ(inputs(), inputRows);
    EXPECT_EQ(outputs(), outputRows);
    expectFemapReleased();
}

TEST_F(ValueRefresh, ALostConnectionGoesUpAtOnce)
{
    f.watchFemap().dieAt("entity");
    fillInputs({"xAtNode12\tkept\tNode\t12\tx", "xAtNode13\tkept\tNode\t13\tx"});

    EXPECT_THROW(RefreshInputs_Click(f.context), femap::ConnectionLost);

    EXPECT_EQ(input(1), "kept");
    EXPECT_EQ(input(2), "kept");
}

TEST_F(ValueRefresh, WithoutFemapTheErrorGoesUp)
{
    f.context.application.reset();

    EXPECT_THROW(RefreshInputs_Click(f.context), RuntimeError);
    EXPECT_THROW(RefreshOutputs_Click(f.context), RuntimeError);

    EXPECT_EQ(f.context.lockDepth, 0);
}

}  // namespace selection
