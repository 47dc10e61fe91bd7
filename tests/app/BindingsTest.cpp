#include "AppFixture.h"
#include "app/Bindings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace app
{
namespace
{

using testing::HasSubstr;
using enum form::What;

TEST(Bindings, NameEveryControlThatThereIs)
{
    form::MainForm form;
    for (const Binding& binding : bindings()) {
        if (binding.event == femapEvent || binding.event.control == "Form")
            continue;
        const auto isIt = [&](const form::NamedControl& each) {
            return each.name == binding.event.control;
        };
        EXPECT_TRUE(std::ranges::any_of(form.controls(), isIt)) << binding.event.text();
    }
}

TEST(Bindings, AreFoundByTheirNameAndByNoOther)
{
    EXPECT_NE(findBinding(form::click("ClearAll")), nullptr);
    EXPECT_EQ(findBinding({"ClearAll", KeyDown}), nullptr);
    EXPECT_EQ(findBinding(form::click("")), nullptr);
}

struct BoundProcedure
{
    form::Event event;
    const char* firstLine;  // that it logs
};

// clang-format off
constexpr BoundProcedure boundProcedures[] = {
    {{"InputsButton", Click},         "DEBUG: Before click of Select for input parameter"},
    {{"RefreshInputs", Click},        "At the start of RefreshInputs_Click"},
    {{"RefreshInputs", SelectedRows}, "At the start of RefreshInputs_Click"},
    {{"ClearInputSelection", Click},  "DEBUG: Position at At start of ClearInputSelection_Click"},
    {{"InputsList", KeyDown},         "DEBUG: Position at At start of InputsList_KeyDown"},
    {{"OutputsButton", Click},        "DEBUG: Position at At start of OutputsButton_Click"},
    {{"RefreshOutputs", Click},       "At the start of RefreshOutputs_Click"},
    {{"RefreshOutputs", SelectedRows}, "At the start of RefreshOutputs_Click"},
    {{"ClearOutputSelection", Click}, "DEBUG: Position at At start of ClearOutputSelection_Click"},
    {{"OutputsList", KeyDown},        "DEBUG: Position at At start of OutputsList_KeyDown"},
    {{"Solver", Click},               "DEBUG: Position at At start of Solver_Click"},
    {{"Optimizer", Click},            "DEBUG: Position at At start of Optimizer_Click"},
    {{"ClearAll", Click},             "DEBUG: Position at At start of ClearAll_Click"},
    {{"GenerateButton", Click},       "Before Generating supporting files"},
    {{"HScroll1", Change},            "DEBUG: Position at At start of HScroll1_Change"},
    {{"VScroll1", Change},            "DEBUG: Position at At Start of VScroll1_Change"},
    {{"Form", Resize},                "DEBUG: Position at At start of Form_Resize"},
};
// clang-format on

class EveryBinding : public testing::TestWithParam<BoundProcedure>
{};

TEST_P(EveryBinding, RunsTheProcedureOfItsName)
{
    ProgramFixture f;
    f.program.start(allArguments);
    f.form.ScaleWidth = 10000;
    f.form.ScaleHeight = 10000;
    const std::string lastLineOfStart = "DEBUG: Position at At end of Load Form";

    f.program.raise(GetParam().event);

    const std::vector<std::string> log = f.log();
    const auto place = std::ranges::find(log, lastLineOfStart);
    ASSERT_NE(place, log.end());
    EXPECT_THAT(*std::next(place), HasSubstr(GetParam().firstLine));
}

INSTANTIATE_TEST_SUITE_P(All, EveryBinding, testing::ValuesIn(boundProcedures));

TEST(EveryBindingTable, IsCoveredByTheExamples)
{
    EXPECT_EQ(bindings().size(), std::size(boundProcedures) + 1);  // and FEMAP's event
}

}  // namespace
}  // namespace app
