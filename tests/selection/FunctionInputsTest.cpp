#include "fake/FormFixture.h"
#include "selection/FunctionInputs.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace selection
{

using fake::FormFixture;
using femap::ReturnCode;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace
{

class FunctionInputs : public testing::Test
{
protected:
    FunctionInputs()
    {
        define(5, "Ramp");
        define(12, "Load history");
    }

    void define(int id, const std::string& title)
    {
        femap::neutral::Function function;
        function.id = id;
        function.title = title;
        f.model().functions.put(function);
    }
    void pick(int id) { f.pick({id}); }

    FormFixture f;
};

}  // namespace

TEST_F(FunctionInputs, APickedFunctionBecomesARow)
{
    pick(5);

    FetchFunctionData(f.context);

    EXPECT_THAT(f.rows(f.form.InputsList), ElementsAre("Ramp\tX-Y Values\tFunction\t 5\t\t"));
    EXPECT_EQ(f.form.returnCode, -1);
    EXPECT_THAT(f.messages(), IsEmpty());
}

TEST_F(FunctionInputs, FemapAsksForOneFunctionUnderTheTitleOfTheTool)
{
    pick(5);

    FetchFunctionData(f.context);

    ASSERT_EQ(f.dialogs.asked.size(), 1U);
    EXPECT_EQ(f.dialogs.asked[0].type, femap::EntityType::Function);
    EXPECT_EQ(f.dialogs.asked[0].title, "Select Function for Velmar Parameter");
    EXPECT_TRUE(f.dialogs.asked[0].onlyOne);
    EXPECT_THAT(f.dialogs.asked[0].available, ElementsAre(5, 12));
}

TEST_F(FunctionInputs, EachStepOfAPickIsLogged)
{
    pick(12);

    FetchFunctionData(f.context);

    EXPECT_THAT(f.log(),
                ElementsAre("DEBUG: No Error found Start of fetching function data",
                            "DEBUG: initialize function",
                            "DEBUG: Selected function ID= 12 Title=Load history",
                            "DEBUG: Added function to Input list Variable Name=Load history "
                            "value=X-Y Values",
                            "DEBUG: Check for blank variable in Input List",
                            "DEBUG: Blank row found in Input List and hence deleted",
                            "DEBUG: End of fetching function data"));
}

TEST_F(FunctionInputs, AFunctionPickedTwiceGivesTwoRows)
{
    pick(5);
    pick(5);

    FetchFunctionData(f.context);
    FetchFunctionData(f.context);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("Ramp", "Ramp"));
}

TEST_F(FunctionInputs, NamedRowsStayWhenAFunctionIsAdded)
{
    f.form.InputsList.setText(1, 0, "XAtNode1");
    pick(5);

    FetchFunctionData(f.context);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("XAtNode1", "Ramp"));
    EXPECT_THAT(f.log(), Not(Contains("DEBUG: Blank row found in Input List and hence deleted")));
}

TEST_F(FunctionInputs, ABlankRowFurtherDownStays)
{
    f.form.InputsList.setText(1, 0, "XAtNode1");
    f.form.InputsList.AddItem("");
    pick(5);

    FetchFunctionData(f.context);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("XAtNode1", "", "Ramp"));
}

TEST_F(FunctionInputs, OneFunctionObjectServesTheWholeRun)
{
    pick(5);
    pick(12);

    FetchFunctionData(f.context);
    const femap::Function* const first = f.form.function.get();
    FetchFunctionData(f.context);

    EXPECT_NE(first, nullptr);
    EXPECT_EQ(f.form.function.get(), first);
    const std::vector<std::string> log = f.log();
    EXPECT_EQ(std::count(log.begin(), log.end(), "DEBUG: initialize function"), 1);
}

TEST_F(FunctionInputs, AFunctionWithoutTitleKeepsItsEmptyName)
{
    f.form.InputsList.setText(1, 0, "XAtNode1");
    define(7, "");
    pick(7);

    FetchFunctionData(f.context);

    EXPECT_EQ(f.form.InputsList.rowText(2), "\tX-Y Values\tFunction\t 7\t\t");
}

TEST_F(FunctionInputs, ATabInATitleDoesNotShiftTheCells)
{
    define(7, "Ramp\tup");
    pick(7);

    FetchFunctionData(f.context);

    EXPECT_THAT(f.rows(f.form.InputsList), ElementsAre("Ramp up\tX-Y Values\tFunction\t 7\t\t"));
}

struct Refusal
{
    ReturnCode code;
    std::string message;
};

class FunctionPickRefused : public testing::TestWithParam<Refusal>
{};

TEST_P(FunctionPickRefused, LeavesTheGridAndTellsTheEngineerWhy)
{
    FormFixture f;
    f.dialogs.answers.push_back({GetParam().code, {}});

    FetchFunctionData(f.context);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre(""));
    EXPECT_EQ(f.form.returnCode, static_cast<int>(GetParam().code));
    EXPECT_EQ(f.form.StatusLine.Caption, GetParam().message);
    EXPECT_THAT(
        f.femap.messages,
        ElementsAre(AllOf(
            testing::Field(&femap::embedded::Host::Message::colour, femap::MessageColour::Error),
            testing::Field(&femap::embedded::Host::Message::text, GetParam().message))));
    EXPECT_THAT(f.log(), ElementsAre("DEBUG: No Error found Start of fetching function data",
                                     "DEBUG: initialize function", "DEBUG: " + GetParam().message,
                                     "DEBUG: End of fetching function data"));
}

INSTANTIATE_TEST_SUITE_P(
    EachCode, FunctionPickRefused,
    testing::Values(Refusal{ReturnCode::Cancel, "Function selection cancelled..."},
                    Refusal{ReturnCode::NotExist, "No Function defined in model..."},
                    Refusal{ReturnCode::Fail, "Function selection failed..."},
                    Refusal{static_cast<ReturnCode>(3), "Function selection failed..."}),
    [](const auto& refusal) {
        return "Code" + std::to_string(static_cast<int>(refusal.param.code));
    });

TEST_F(FunctionInputs, AnErrorOfTheDialogGoesUpAndLeavesTheCodeOfSuccess)
{
    f.watchFemap().failAt("SelectID", "The dialog broke down");
    f.form.returnCode = 2;

    EXPECT_THROW(FetchFunctionData(f.context), sys::RuntimeError);

    EXPECT_EQ(f.form.returnCode, -1);
    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre(""));
}

TEST_F(FunctionInputs, WithoutFemapTheErrorGoesUp)
{
    f.context.application.reset();

    EXPECT_THROW(FetchFunctionData(f.context), sys::RuntimeError);

    EXPECT_EQ(f.form.function, nullptr);
}

}  // namespace selection
