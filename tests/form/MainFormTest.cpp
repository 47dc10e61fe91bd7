#include "form/MainForm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

using form::Control;
using form::MainForm;
using testing::ElementsAre;

namespace
{

TEST(MainFormTest, HasTheCaptionsThatTheEngineerKnows)
{
    const MainForm form;

    EXPECT_EQ(form.Caption, "Velmar-Femap Interface");
    EXPECT_EQ(form.Inputs.Caption, "Input");
    EXPECT_EQ(form.InputsButton.Caption, "Select...");
    EXPECT_EQ(form.RefreshInputs.Caption, "Refresh Values");
    EXPECT_EQ(form.ClearInputSelection.Caption, "Remove Selected");
    EXPECT_EQ(form.Outputs.Caption, "Output");
    EXPECT_EQ(form.OutputsButton.Caption, "Select...");
    EXPECT_EQ(form.RefreshOutputs.Caption, "Refresh Values");
    EXPECT_EQ(form.ClearOutputSelection.Caption, "Remove Selected");
    EXPECT_EQ(form.Execution.Caption, "Execution");
    EXPECT_EQ(form.Label1.Caption, "Command Line");
    EXPECT_EQ(form.Label2.Caption, "CAE Solver");
    EXPECT_EQ(form.Label3.Caption, "PIDO Tool");
    EXPECT_EQ(form.ClearAll.Caption, "Clear All");
    EXPECT_EQ(form.GenerateButton.Caption, "Apply");
}

TEST(MainFormTest, OffersTheItemsOfItsFourBoxesInOrder)
{
    const MainForm form;

    EXPECT_THAT(form.InputSelection.List, ElementsAre("Nodes", "Elements", "Properties",
                                                      "Materials", "Functions", "LoadDefinition"));
    EXPECT_THAT(form.OutputSelection.List, ElementsAre("Nodes", "Nodes Min/Max", "Elements",
                                                       "Elements Min/Max", "Mass Properties"));
    EXPECT_THAT(form.Solver.List, ElementsAre("NENastran", "NXNastran"));
    EXPECT_THAT(form.Optimizer.List, ElementsAre("Velmar", "KORVA"));
}

TEST(MainFormTest, HasGridsOfSixAndFiveColumnsWithAHeaderAndOneBlankRow)
{
    const MainForm form;

    EXPECT_EQ(form.InputsList.Cols(), 6);
    EXPECT_EQ(form.OutputsList.Cols(), 5);
    for (const form::ParameterGrid* grid : {&form.InputsList, &form.OutputsList}) {
        EXPECT_EQ(grid->Rows(), 2);
        EXPECT_EQ(grid->text(0, 0), "Variable Name");
        EXPECT_EQ(grid->text(0, 1), "Value");
        EXPECT_EQ(grid->text(1, 0), "");
    }
}

TEST(MainFormTest, ListsEveryControlOnceUnderItsOwnName)
{
    MainForm form;
    const std::vector<std::string> expected = {
        "pbOuter",
        "pbInner",
        "Inputs",
        "InputSelection",
        "InputsButton",
        "RefreshInputs",
        "ClearInputSelection",
        "InputsList",
        "Outputs",
        "OutputSelection",
        "OutputsButton",
        "RefreshOutputs",
        "ClearOutputSelection",
        "OutputsList",
        "Execution",
        "Label1",
        "CommandLine",
        "Label2",
        "Solver",
        "Label3",
        "Optimizer",
        "ClearAll",
        "GenerateButton",
        "StatusLine",
        "HScroll1",
        "VScroll1",
    };

    std::vector<std::string> names;
    std::set<const Control*> controls;
    for (const form::NamedControl& each : form.controls()) {
        names.emplace_back(each.name);
        controls.insert(each.control);
    }

    EXPECT_EQ(names, expected);
    EXPECT_EQ(controls.size(), expected.size());
    EXPECT_TRUE(controls.contains(&form.InputsList));
    EXPECT_TRUE(controls.contains(&form.OutputsList));
    EXPECT_TRUE(controls.contains(&form.GenerateButton));
    EXPECT_TRUE(controls.contains(&form.pbInner));
}

TEST(MainFormTest, SetsThePointerOfEveryControl)
{
    MainForm form;
    const auto all = [&](int pointer) {
        return std::all_of(form.controls().begin(), form.controls().end(),
                           [&](const auto& each) { return each.control->MousePointer == pointer; });
    };
    const bool defaultAtFirst = all(0);

    form.setMousePointers(form::pointerHourglass);
    const bool hourglass = all(11);
    form.setMousePointers(form::pointerDefault);

    EXPECT_TRUE(defaultAtFirst);
    EXPECT_TRUE(hourglass);
    EXPECT_TRUE(all(0));
}

TEST(MainFormTest, TellsItsWindowThatThePointersChanged)
{
    MainForm form;
    std::vector<int> shown;
    form.pointersChanged = [&] { shown.push_back(form.GenerateButton.MousePointer); };

    form.setMousePointers(form::pointerHourglass);
    form.setMousePointers(form::pointerDefault);

    EXPECT_THAT(shown, ElementsAre(11, 0));
}

TEST(MainFormTest, EnablesAndDisablesEveryControl)
{
    MainForm form;
    const auto all = [&](bool enabled) {
        return std::all_of(form.controls().begin(), form.controls().end(),
                           [&](const auto& each) { return each.control->Enabled == enabled; });
    };

    form.setEnabled(false);
    const bool off = all(false);
    form.setEnabled(true);

    EXPECT_TRUE(off);
    EXPECT_TRUE(all(true));
}

}  // namespace
