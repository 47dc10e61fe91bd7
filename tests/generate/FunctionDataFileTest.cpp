#include "fake/GenerateFixture.h"
#include "generate/FunctionDataFile.h"
#include "generate/GenerationDriver.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace generate
{

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;

namespace
{

const std::string fileName = "FunctionsInputvalues.txt";

}  // namespace

class RefusedFunction : public testing::TestWithParam<const char*>
{};

TEST_P(RefusedFunction, IsTreatedAsOneThatIsGone)
{
    GenerateFixture f;
    f.addFunction(5, "there", {}, {});
    f.addFunction(6, "refused", {1}, {2});
    f.addInput({"refused", "X-Y Values", "Function", " 6"});
    f.addInput({"there", "X-Y Values", "Function", " 5"});
    const std::string refusal = "FEMAP refused the " + std::string(GetParam());
    f.watchFemap().failAt("Function." + std::string(GetParam()) + " 6", refusal);

    const auto log = f.logOf([&] { GenerateButton_Click(f.context); });

    const std::string message = "Unable to fetch the value for function id =  6";
    EXPECT_THAT(f.messages(), ElementsAre(message, "there is selected"));
    EXPECT_EQ(f.form.StatusLine.Caption, message);
    EXPECT_THAT(log, Contains("ERROR: " + refusal));
    EXPECT_THAT(log, Contains("DEBUG: " + message));
    EXPECT_THAT(f.written(fileName), ElementsAre("Function Definition", " 5 ", "there", " 0"));
    EXPECT_TRUE(f.exists("beamControl.txt"));
    EXPECT_EQ(f.femap.lockCount, 0);
}

INSTANTIATE_TEST_SUITE_P(WhateverOfIt, RefusedFunction,
                         testing::Values("Get", "GetFunctionList", "title"),
                         [](const auto& each) { return std::string(each.param); });

TEST(WriteFunctionInputs, WritesABlockForEachFunctionRowInGridOrder)
{
    GenerateFixture f;
    f.addFunction(5, "Load history", {0, -1, 0.5}, {1.5, 2, -0.25});
    f.addFunction(12, "Träger", {1e20}, {1.2345e-05});
    f.addInput({"Träger", "X-Y Values", "Function", " 12"});
    f.addInput({"ThicknessAtProp5", "0.25", "Prop", "5", "pval", "0"});
    f.addInput({"Load history", "X-Y Values", "Function", " 5"});

    WriteFunctionInputs(f.context, f.progress);

    EXPECT_EQ(f.files.contents.at(inWork(fileName)),
              "Function Definition\r\n"
              " 12 \r\n"
              "Tr\xE4ger\r\n"
              " 1\r\n"
              " 1E+20_ 1.2345E-05\r\n"
              "Function Definition\r\n"
              " 5 \r\n"
              "Load history\r\n"
              " 3\r\n"
              " 0_ 1.5\r\n"
              "-1_ 2\r\n"
              " .5_-.25\r\n");
}

struct FunctionCase
{
    const char* name;
    int id;
    const char* title;
    std::vector<double> x;
    std::vector<double> y;
    std::vector<std::string> block;
};

class FunctionBlock : public testing::TestWithParam<FunctionCase>
{};

TEST_P(FunctionBlock, HasIdTitleCountAndPoints)
{
    const FunctionCase& function = GetParam();
    GenerateFixture f;
    f.addFunction(function.id, function.title, function.x, function.y);
    f.addInput({function.title, "X-Y Values", "Function", " " + std::to_string(function.id)});

    WriteFunctionInputs(f.context, f.progress);

    EXPECT_THAT(f.written(fileName), ElementsAreArray(function.block));
}

INSTANTIATE_TEST_SUITE_P(
    Each, FunctionBlock,
    testing::Values(
        FunctionCase{
            "WithoutPoints", 6, "none", {}, {}, {"Function Definition", " 6 ", "none", " 0"}},
        FunctionCase{
            "WithAnEmptyTitle", 7, "", {1}, {2}, {"Function Definition", " 7 ", "", " 1", " 1_ 2"}},
        FunctionCase{
            "OfTheLowestId", 1, "first", {}, {}, {"Function Definition", " 1 ", "first", " 0"}}),
    [](const auto& each) { return each.param.name; });

TEST(WriteFunctionInputs, WritesTheTitleThatFemapHasNow)
{
    GenerateFixture f;
    f.addFunction(6, "renamed", {}, {});
    f.addInput({"as it was", "X-Y Values", "Function", " 6"});

    WriteFunctionInputs(f.context, f.progress);

    EXPECT_THAT(f.written(fileName), Contains("renamed"));
}

TEST(WriteFunctionInputs, WritesTheSameFunctionTwiceForTwoRows)
{
    GenerateFixture f;
    f.addFunction(6, "twice", {}, {});
    f.addInput({"twice", "X-Y Values", "Function", " 6"});
    f.addInput({"twice", "X-Y Values", "Function", " 6"});

    WriteFunctionInputs(f.context, f.progress);

    EXPECT_EQ(f.written(fileName).size(), 8U);
}

TEST(WriteFunctionInputs, CreatesAnEmptyFileWithoutFunctionRows)
{
    GenerateFixture f;

    WriteFunctionInputs(f.context, f.progress);

    EXPECT_EQ(f.files.contents.at(inWork(fileName)), "");
    EXPECT_EQ(f.form.function, nullptr);
}

TEST(WriteFunctionInputs, SaysWhichFunctionFemapLacksAndWritesTheOthers)
{
    GenerateFixture f;
    f.addFunction(5, "there", {}, {});
    f.addInput({"gone", "X-Y Values", "Function", " 99"});
    f.addInput({"there", "X-Y Values", "Function", " 5"});

    const auto log = f.logOf([&] { WriteFunctionInputs(f.context, f.progress); });

    EXPECT_THAT(f.messages(), ElementsAre("Unable to fetch the value for function id =  99",
                                          "there is selected"));
    EXPECT_EQ(f.femap.messages.front().colour, femap::MessageColour::Error);
    EXPECT_THAT(log, Contains("DEBUG: Unable to fetch the value for function id =  99"));
    EXPECT_THAT(log, Not(Contains("DEBUG: At the End of data fetching for gone")));
    EXPECT_THAT(f.written(fileName), ElementsAre("Function Definition", " 5 ", "there", " 0"));
}

TEST(WriteFunctionInputs, KeepsFemapsAnswerToTheLastFunction)
{
    GenerateFixture f;
    f.addFunction(5, "there", {}, {});
    f.addInput({"there", "X-Y Values", "Function", " 5"});
    WriteFunctionInputs(f.context, f.progress);
    const int afterSuccess = f.form.returnCode;
    f.addInput({"gone", "X-Y Values", "Function", " 99"});

    WriteFunctionInputs(f.context, f.progress);

    EXPECT_EQ(afterSuccess, static_cast<int>(femap::ReturnCode::Ok));
    EXPECT_NE(f.form.returnCode, static_cast<int>(femap::ReturnCode::Ok));
}

TEST(WriteFunctionInputs, TakesAnIdThatIsNoNumberForAMissingFunction)
{
    GenerateFixture f;
    f.addInput({"odd", "X-Y Values", "Function", "five"});
    f.addInput({"odd too", "X-Y Values", "Function", ""});

    WriteFunctionInputs(f.context, f.progress);

    EXPECT_THAT(f.messages(), ElementsAre("Unable to fetch the value for function id = five",
                                          "Unable to fetch the value for function id = "));
    EXPECT_EQ(f.files.contents.at(inWork(fileName)), "");
}

TEST(WriteFunctionInputs, TakesTheIdZeroForAMissingFunction)
{
    GenerateFixture f;
    f.addFunction(5, "there", {}, {});
    f.addInput({"there", "X-Y Values", "Function", " 5"});
    f.addInput({"none", "X-Y Values", "Function", " 0"});

    WriteFunctionInputs(f.context, f.progress);

    EXPECT_THAT(f.written(fileName), ElementsAre("Function Definition", " 5 ", "there", " 0"));
    EXPECT_THAT(f.messages(), Contains("Unable to fetch the value for function id =  0"));
}

TEST(WriteFunctionInputs, TakesOnlyRowsWhoseKindIsExactlyFunction)
{
    GenerateFixture f;
    f.addFunction(5, "there", {}, {});
    f.addInput({"Function", "Function", "function", " 5", "Function"});

    WriteFunctionInputs(f.context, f.progress);

    EXPECT_THAT(f.messages(), IsEmpty());
    EXPECT_EQ(f.files.contents.at(inWork(fileName)), "");
}

TEST(WriteFunctionInputs, LogsEachStepAndHoldsTheLockMeanwhile)
{
    GenerateFixture f;
    f.addFunction(5, "curve", {0}, {1});
    f.addInput({"name of the row", "X-Y Values", "Function", " 5"});
    int locksDuringTheWalk = 0;
    f.femap.messageShown = [&](const auto&) { locksDuringTheWalk = f.femap.lockCount; };

    const auto log = f.logOf([&] { WriteFunctionInputs(f.context, f.progress); });

    EXPECT_THAT(
        log, ElementsAre("DEBUG: Before writing function data",
                         "DEBUG: Opened file " + inWork(fileName) + " to write the function values",
                         "DEBUG: Execution of WriteFunctionInputs started",
                         "DEBUG: Acquired Femap lock before functions data",
                         "DEBUG: Start iteration over InputsList",
                         "DEBUG: At the Start of data fetching for name of the row",
                         "DEBUG: Start iterating to fetch X-Y values for curve",
                         "DEBUG: X-Y values iteration complete", "DEBUG: After X-Y value iteration",
                         "DEBUG: At the End of data fetching for name of the row",
                         "DEBUG: End iteration over InputsList",
                         "DEBUG: Released Femap lock before functions data",
                         "DEBUG: After writing function data"));
    EXPECT_EQ(locksDuringTheWalk, 1);
    EXPECT_EQ(f.femap.lockCount, 0);
    EXPECT_EQ(f.context.lockDepth, 0);
}

TEST(WriteFunctionInputs, TellsTheEngineerWhichFunctionItWritesWithoutALogLine)
{
    GenerateFixture f;
    f.addFunction(5, "curve", {}, {});
    f.addInput({"curve", "X-Y Values", "Function", " 5"});

    const auto log = f.logOf([&] { WriteFunctionInputs(f.context, f.progress); });

    EXPECT_THAT(f.messages(), ElementsAre("curve is selected"));
    EXPECT_EQ(f.femap.messages.front().colour, femap::MessageColour::Normal);
    EXPECT_EQ(f.form.StatusLine.Caption, "curve is selected");
    EXPECT_THAT(log, Not(Contains("DEBUG: curve is selected")));
}

TEST(WriteFunctionInputs, UsesTheFunctionObjectThatTheFormHasAlready)
{
    GenerateFixture f;
    f.addFunction(5, "curve", {}, {});
    f.addInput({"curve", "X-Y Values", "Function", " 5"});
    f.form.function = f.context.femap().feFunction();
    const femap::Function* const before = f.form.function.get();

    WriteFunctionInputs(f.context, f.progress);

    EXPECT_EQ(f.form.function.get(), before);
}

TEST(WriteFunctionInputs, LeavesTheOldFileWhenNoModelIsOpen)
{
    GenerateFixture f;
    f.files.contents[inWork(fileName)] = "old";
    f.femap.model.reset();

    EXPECT_THROW(WriteFunctionInputs(f.context, f.progress), sys::RuntimeError);
    EXPECT_EQ(f.files.contents.at(inWork(fileName)), "old");
}

}  // namespace generate
