#include "fake/GenerateFixture.h"
#include "form/FormProcedures.h"
#include "generate/ControlFile.h"
#include "generate/GenerationDriver.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace generate
{

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{

const std::string stored = "old\t1\tNode\t1\tx\t\r\n\r\n";
const std::string changed = "other\t1\tNode\t1\tx\t\r\n\r\n";

// A selection lies beside the model that this run has not read; the form has a row.
class PreviousSelection : public testing::Test
{
protected:
    PreviousSelection()
    {
        f.files.contents[control] = stored;
        f.addInput({"new", "1", "Node", "2", "x", ""});
    }

    GenerateFixture f;
    const std::string control = inWork("beamControl.txt");
    const std::string copy = inWork("beamControl.previous.txt");
    const std::string told = "The selection that was stored there before is kept as ";
};

}  // namespace

TEST_F(PreviousSelection, IsKeptBeforeItIsReplaced)
{
    GenerateButton_Click(f.context);

    EXPECT_EQ(f.files.contents.at(copy), stored);
    EXPECT_EQ(f.files.contents.at(control), "new\t1\tNode\t2\tx\t\r\n\r\n");
    EXPECT_THAT(f.form.StatusLine.Caption, HasSubstr(told + "beamControl.previous.txt"));
}

TEST_F(PreviousSelection, IsNotKeptWhenThisRunWroteIt)
{
    Save_Config(f.context, f.progress);
    f.files.contents.erase(copy);
    f.form.status.clear();

    Save_Config(f.context, f.progress);

    EXPECT_THAT(f.fileNames(), ElementsAre("beamControl.txt"));
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST_F(PreviousSelection, IsNotKeptWhenThisRunReadItWhole)
{
    Load_Click(f.context, f.femap.modelName);

    Save_Config(f.context, f.progress);

    EXPECT_THAT(f.fileNames(), ElementsAre("beamControl.txt"));
}

TEST_F(PreviousSelection, IsKeptWhenAnotherRunWroteItMeanwhile)
{
    Load_Click(f.context, f.femap.modelName);
    f.files.contents[control] = changed;

    Save_Config(f.context, f.progress);

    EXPECT_EQ(f.files.contents.at(copy), changed);
}

TEST_F(PreviousSelection, GetsANumberBesideADifferentOne)
{
    f.files.contents[copy] = "a";
    f.files.contents[inWork("beamControl.previous2.txt")] = "b";

    Save_Config(f.context, f.progress);

    EXPECT_EQ(f.files.contents.at(copy), "a");
    EXPECT_EQ(f.files.contents.at(inWork("beamControl.previous2.txt")), "b");
    EXPECT_EQ(f.files.contents.at(inWork("beamControl.previous3.txt")), stored);
    EXPECT_EQ(f.form.StatusLine.Caption, told + "beamControl.previous3.txt");
}

TEST_F(PreviousSelection, IsNotKeptTwice)
{
    f.files.contents[copy] = stored;

    Save_Config(f.context, f.progress);

    EXPECT_THAT(f.fileNames(), ElementsAre("beamControl.previous.txt", "beamControl.txt"));
    EXPECT_EQ(f.form.StatusLine.Caption, told + "beamControl.previous.txt");
}

TEST_F(PreviousSelection, StaysWhenItCannotBeCopied)
{
    for (int operation = 1; operation <= 5; ++operation) {
        SCOPED_TRACE(operation);
        f.files.failingOperation = f.files.operations + operation;

        try {
            Save_Config(f.context, f.progress);
            FAIL() << "no error was raised";
        }
        catch (const sys::RuntimeError& error) {
            EXPECT_THAT(error.description(),
                        AllOf(StartsWith("The selection was not stored, for what was stored "
                                         "before cannot be copied: "),
                              EndsWith(": " + copy)));
        }

        EXPECT_EQ(f.files.contents.at(control), stored);
        EXPECT_THAT(f.fileNames(), ElementsAre("beamControl.txt"));
    }
}

TEST_F(PreviousSelection, StaysWhenItCannotBeRead)
{
    f.files.deniedReads = 1;
    Load_Click(f.context, f.femap.modelName);
    f.files.deniedReads = 1;

    EXPECT_THROW(Save_Config(f.context, f.progress), sys::RuntimeError);

    EXPECT_EQ(f.files.contents.at(control), stored);
    EXPECT_THAT(f.fileNames(), ElementsAre("beamControl.txt"));
}

TEST_F(PreviousSelection, LeavesNoWordInTheLog)
{
    const auto log = f.logOf([&] { Save_Config(f.context, f.progress); });

    EXPECT_THAT(log, Not(Contains(HasSubstr("previous"))));
}

// A model that became the current one.
class TakenOverSelection : public testing::Test
{
protected:
    TakenOverSelection() { f.files.contents[inWork("beamControl.txt")] = stored; }

    GenerateFixture f;

    std::vector<std::string> namesAfterTakingOver()
    {
        takeOverSelection(f.context, f.femap.modelName);
        return f.names(f.form.InputsList);
    }
};

TEST_F(TakenOverSelection, FillsEmptyGrids)
{
    EXPECT_THAT(namesAfterTakingOver(), ElementsAre("old"));
}

TEST_F(TakenOverSelection, LeavesRowsThatAreThere)
{
    f.addOutput({"mine", "1", "MassTotal", "", "MassProperties"});

    EXPECT_THAT(namesAfterTakingOver(), ElementsAre(""));
    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("mine"));
}

TEST_F(TakenOverSelection, IsReadOnceInARun)
{
    namesAfterTakingOver();
    form::ClearAll_Click(f.context);

    EXPECT_THAT(namesAfterTakingOver(), ElementsAre(""));
}

TEST_F(TakenOverSelection, IsReadLaterWhenItCouldNotBeRead)
{
    f.files.deniedReads = 1;
    ASSERT_THAT(namesAfterTakingOver(), ElementsAre(""));

    EXPECT_THAT(namesAfterTakingOver(), ElementsAre("old"));
}

TEST_F(TakenOverSelection, IsNoneOfAModelWithoutAFile)
{
    f.femap.modelName.clear();

    EXPECT_THAT(namesAfterTakingOver(), ElementsAre(""));
    EXPECT_THAT(f.messages(), testing::IsEmpty());
}

}  // namespace generate
