#include "fake/GenerateFixture.h"
#include "generate/GenerationDriver.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace generate
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ResultOfApply, IsTheNumberOfFilesAndTheirFolder)
{
    for (const char* const tool : {"Velmar", "Ombra"}) {
        GenerateFixture f;
        f.form.Optimizer.Text = tool;

        GenerateButton_Click(f.context);

        EXPECT_EQ(f.form.StatusLine.Caption,
                  std::to_string(f.fileNames().size()) + " files are written into " + inWork(""));
        EXPECT_THAT(f.messages(), IsEmpty());
    }
    GenerateFixture f;
    f.form.Optimizer.Text = "other";

    GenerateButton_Click(f.context);

    EXPECT_EQ(f.form.StatusLine.Caption, "1 file is written into " + inWork(""));
}

TEST(ResultOfApply, StandsInPlaceOfTheFunctionsThatWereWritten)
{
    GenerateFixture f;
    f.addFunction(5, "curve", {}, {});
    f.addInput({"curve", "X-Y Values", "Function", " 5"});

    GenerateButton_Click(f.context);

    EXPECT_THAT(f.messages(), ElementsAre("curve is selected"));
    EXPECT_EQ(f.form.StatusLine.Caption, "8 files are written into " + inWork(""));
}

TEST(ResultOfApply, IsNotToldWhenAFileFails)
{
    GenerateFixture f;
    f.files.failingOperation = f.files.operations + 8;

    EXPECT_THROW(GenerateButton_Click(f.context), sys::RuntimeError);

    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST(ResultOfApply, DoesNotReplaceTheMessageOfAFunctionThatIsGone)
{
    GenerateFixture f;
    f.addFunction(5, "there", {}, {});
    f.addInput({"gone", "X-Y Values", "Function", " 99"});
    f.addInput({"there", "X-Y Values", "Function", " 5"});

    GenerateButton_Click(f.context);

    EXPECT_EQ(f.form.StatusLine.Caption, "Unable to fetch the value for function id =  99");
}

}  // namespace
}  // namespace generate
