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

TEST(Bindings, NameEveryControlThatThereIs)
{
    form::MainForm form;
    for (const Binding& binding : bindings()) {
        if (binding.event == femapEvent || binding.control() == "Form")
            continue;
        const auto isIt = [&](const form::MainForm::NamedControl& each) {
            return each.name == binding.control();
        };
        EXPECT_TRUE(std::ranges::any_of(form.controls(), isIt)) << binding.event;
    }
}

TEST(Bindings, AreFoundByTheirNameAndByNoOther)
{
    EXPECT_NE(findBinding("ClearAll_Click"), nullptr);
    EXPECT_EQ(findBinding("ClearAll_KeyDown"), nullptr);
    EXPECT_EQ(findBinding(""), nullptr);
}

struct BoundProcedure
{
    const char* event;
    const char* firstLine;  // that it logs
};

// clang-format off
constexpr BoundProcedure boundProcedures[] = {
    {"InputsButton_Click",         "DEBUG: Before click of Select for input parameter"},
    {"RefreshInputs_Click",        "At the start of RefreshInputs_Click"},
    {"ClearInputSelection_Click",  "DEBUG: Position at At start of ClearInputSelection_Click"},
    {"InputsList_KeyDown",         "DEBUG: Position at At start of InputsList_KeyDown"},
    {"OutputsButton_Click",        "DEBUG: Position at At start of OutputsButton_Click"},
    {"RefreshOutputs_Click",       "At the start of RefreshOutputs_Click"},
    {"ClearOutputSelection_Click", "DEBUG: Position at At start of ClearOutputSelection_Click"},
    {"OutputsList_KeyDown",        "DEBUG: Position at At start of OutputsList_KeyDown"},
    {"Solver_Click",               "DEBUG: Position at At start of Solver_Click"},
    {"Optimizer_Click",            "DEBUG: Position at At start of Optimizer_Click"},
    {"ClearAll_Click",             "DEBUG: Position at At start of ClearAll_Click"},
    {"GenerateButton_Click",       "Before Generating supporting files"},
    {"HScroll1_Change",            "DEBUG: Position at At start of HScroll1_Change"},
    {"VScroll1_Change",            "DEBUG: Position at At Start of VScroll1_Change"},
    {"Form_Resize",                "DEBUG: Position at At start of Form_Resize"},
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
