#include "fake/GenerateFixture.h"
#include "generate/ControlFile.h"
#include "system/Memory.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <utility>

namespace generate
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace
{

const std::string blankInput(5, '\t');
const std::string blankOutput(4, '\t');

class ControlFile : public testing::Test
{
protected:
    GenerateFixture f;
    const std::string path = inWork("beamControl.txt");

    // Lines of the file, each a whole row.
    static std::string input(const std::string& name) { return name + "\t1\tNode\t1\tx\t"; }
    static std::string output(const std::string& name)
    {
        return name + "\t2\tMassTotal\t\tMassProperties";
    }

    void load(const std::string& content)
    {
        f.files.contents[path] = content;
        Load_Click(f.context, f.femap.modelName);
    }
};

}  // namespace

// A page that finds no memory for what it decodes.
class CodePageWithoutMemory : public sys::CodePage
{
public:
    bool encode(std::string_view, std::string&) const override { return true; }
    std::string decode(std::string_view) const override { throw std::bad_alloc(); }
};

TEST(ControlFileWithoutMemory, IsNamedAndCountsAsUnread)
{
    GenerateFixture f;
    const std::string path = inWork("beamControl.txt");
    const CodePageWithoutMemory codePage;
    sys::System system{f.files, codePage, f.system.localTime, f.system.monotonicSeconds,
                       f.system.environment};
    form::Context context(f.form, f.host, system);
    context.application = std::move(f.context.application);
    f.files.contents[path] = "Tr\xE4ger\t1\r\n";

    EXPECT_THAT(
        [&] { Load_Click(context, f.femap.modelName); },
        testing::ThrowsMessage<sys::RuntimeError>(std::string(sys::noMemory) + ": " + path));
    EXPECT_THAT(f.form.stored.readFiles, IsEmpty());
}

TEST_F(ControlFile, HoldsTheInputsAnEmptyLineAndTheOutputs)
{
    f.addInput({"ThicknessAtProp12", "0.25", "Prop", "12", "pval", "0"});
    f.addInput({"XAtNode5", "1.5", "Node", "5", "x"});
    f.addOutput({"TotalMass", "7.85", "MassTotal", "", "MassProperties"});

    Save_Config(f.context, f.progress);

    EXPECT_EQ(f.files.contents.at(path),
              "ThicknessAtProp12\t0.25\tProp\t12\tpval\t0\r\n"
              "XAtNode5\t1.5\tNode\t5\tx\t\r\n"
              "\r\n"
              "TotalMass\t7.85\tMassTotal\t\tMassProperties\r\n");
}

TEST_F(ControlFile, IsOneEmptyLineWhenBothGridsAreEmpty)
{
    Save_Config(f.context, f.progress);

    EXPECT_EQ(f.files.contents.at(path), "\r\n");
}

TEST_F(ControlFile, LeavesOutRowsWithoutAName)
{
    f.addInput({"first", "1", "Prop", "1", "pval", "0"});
    f.addInput({"", "2", "Prop", "1", "pval", "1"});
    f.addInput({"last", "3", "Prop", "1", "pval", "2"});
    f.form.OutputsList.setText(1, form::outputColumn::kind, "MassProperties");

    Save_Config(f.context, f.progress);

    EXPECT_THAT(f.written("beamControl.txt"),
                ElementsAre("first\t1\tProp\t1\tpval\t0", "last\t3\tProp\t1\tpval\t2", ""));
}

TEST_F(ControlFile, IsNamedAfterAModelWithoutAnExtension)
{
    f.femap.modelName = inWork("plate");

    Save_Config(f.context, f.progress);

    EXPECT_TRUE(f.exists("plateControl.txt"));
}

TEST_F(ControlFile, IsWrittenInTheCodePageAndReadBack)
{
    f.addInput({"Träger Ø12", "1", "Prop", "12", "pval", "0"});

    Save_Config(f.context, f.progress);
    f.form.InputsList.setText(1, 0, "");
    Load_Click(f.context, f.femap.modelName);

    EXPECT_THAT(f.files.contents.at(path), HasSubstr("Tr\xE4ger \xD8"
                                                     "12\t"));
    EXPECT_EQ(f.form.InputsList.text(1, 0), "Träger Ø12");
}

TEST_F(ControlFile, SavingLogsEachStep)
{
    const auto log = f.logOf([&] { Save_Config(f.context, f.progress); });

    EXPECT_THAT(
        log, ElementsAre("DEBUG: Position at At start of Save_Config",
                         "DEBUG: Opened file " + path + " to write", "DEBUG: Closed file " + path));
}

TEST_F(ControlFile, IsNotWrittenForAModelWithoutAFile)
{
    f.femap.modelName.clear();

    const auto log = f.logOf([&] { Save_Config(f.context, f.progress); });

    EXPECT_THAT(f.messages(), ElementsAre("Model must be saved in .MOD format first"));
    EXPECT_EQ(f.femap.messages.front().colour, femap::MessageColour::Error);
    EXPECT_THAT(log, ElementsAre("DEBUG: Position at At start of Save_Config",
                                 "DEBUG: Model must be saved in .MOD format first"));
    EXPECT_THAT(f.fileNames(), IsEmpty());
}

TEST_F(ControlFile, SavingRaisesWhenTheModelNameCannotBeRead)
{
    f.femap.model.reset();

    EXPECT_THROW(Save_Config(f.context, f.progress), sys::RuntimeError);
    EXPECT_THAT(f.fileNames(), IsEmpty());
}

TEST_F(ControlFile, SavingAndLoadingRaiseWhenTheOnlyPointLiesInAFolderName)
{
    f.femap.modelName = inWork("run.1") + sys::pathSeparator + "plate";

    EXPECT_THROW(Save_Config(f.context, f.progress), sys::RuntimeError);
    EXPECT_THROW(Load_Click(f.context, f.femap.modelName), sys::RuntimeError);
}

TEST_F(ControlFile, LoadingReproducesEveryCellOfEveryRow)
{
    f.addInput({"ThicknessAtProp12", "0.25", "Prop", "12", "pval", "0"});
    f.addInput({"Load history", "X-Y Values", "Function", " 5"});
    f.addInput({"EdgeLoadA_12_Fx", " 100", "LoadMesh", " 12", "0", "0"});
    f.addOutput({"Elem7VonMises", "1.5", "7", "7033", "Output"});
    f.addOutput({"TotalMass", "7.85", "MassTotal", "", "MassProperties"});
    const auto inputs = f.rows(f.form.InputsList);
    const auto outputs = f.rows(f.form.OutputsList);
    Save_Config(f.context, f.progress);
    f.addInput({"another", "1"});
    f.addOutput({"another", "1"});

    Load_Click(f.context, f.femap.modelName);

    EXPECT_EQ(f.rows(f.form.InputsList), inputs);
    EXPECT_EQ(f.rows(f.form.OutputsList), outputs);
}

TEST_F(ControlFile, LoadingLogsEachRowAndNoErrorWhenTheOutputsEndWithTheFile)
{
    const auto log = f.logOf([&] {
        load(input("a") + "\r\n" + input("b") + "\r\n\r\n" + output("x") + "\r\n" + output("y") +
             "\r\n");
    });

    EXPECT_THAT(log, ElementsAre("DEBUG: Position at At start of Load_Click",
                                 "DEBUG: fileBase=beam", "DEBUG: No Error found In the Load_Click",
                                 "DEBUG: Position at At start of ClearAll_Click",
                                 "DEBUG: Position at At end of ClearAll_Click",
                                 "DEBUG: Added " + input("a") + " to Input list",
                                 "DEBUG: Removed 1 from Input list",
                                 "DEBUG: Added " + input("b") + " to Input list",
                                 "DEBUG: Added " + output("x") + " to Output list",
                                 "DEBUG: Removed 1 from Output list",
                                 "DEBUG: Added " + output("y") + " to Output list"));
    EXPECT_THAT(f.messages(), IsEmpty());
}

TEST_F(ControlFile, LoadingReportsAnErrorThatWasPendingBefore)
{
    f.context.error.attempt(
        [] { throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "left over"); });

    const auto log = f.logOf([&] { Load_Click(f.context, f.femap.modelName); });

    EXPECT_THAT(log, Contains("DEBUG: Error occured In the Load_Click"));
    EXPECT_THAT(log, Contains("ERROR: left over"));
}

TEST_F(ControlFile, LoadingWithoutAControlFileLeavesTheGridsAndOneQuietLineInTheLog)
{
    f.addInput({"kept", "1"});
    f.addOutput({"kept too", "1"});

    const auto log = f.logOf([&] { Load_Click(f.context, f.femap.modelName); });

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("kept"));
    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("kept too"));
    EXPECT_THAT(log, Contains("DEBUG: No selection to load: " + path +
                              " could not be opened: No such file or directory"));
    EXPECT_THAT(log, Not(Contains(HasSubstr("ERROR"))));
    EXPECT_FALSE(f.context.error.isPending());
    EXPECT_THAT(f.messages(), IsEmpty());
}

TEST_F(ControlFile, ThatCannotBeReadIsNamedWhereTheEngineerLooks)
{
    f.addInput({"kept", "1"});
    f.files.deniedReads = 1;

    load("a\t1\r\n\r\nb\t2\r\n");

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("kept"));
    const std::string told =
        "The stored selection cannot be read, and \"Apply\" does not replace it until it can: "
        "File not opened: Permission denied: " +
        path;
    EXPECT_EQ(f.form.StatusLine.Caption, told);
    EXPECT_THAT(
        f.log(),
        Contains("DEBUG: No selection to load: File not opened: Permission denied: " + path));
    EXPECT_THAT(f.log(), Contains("DEBUG: " + told));
    EXPECT_THAT(f.messages(), ElementsAre(told));
}

TEST_F(ControlFile, LoadingForAModelWithoutAFileOnlySaysSo)
{
    f.femap.modelName.clear();
    f.addInput({"kept", "1"});

    const auto log = f.logOf([&] { Load_Click(f.context, f.femap.modelName); });

    EXPECT_THAT(f.messages(), ElementsAre("Model must be saved in .MOD format first"));
    EXPECT_THAT(log, ElementsAre("DEBUG: Position at At start of Load_Click",
                                 "DEBUG: Model must be saved in .MOD format first"));
    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("kept"));
}

TEST_F(ControlFile, OfTwoEmptyGridsGivesAnEmptyInputRowAndStopsAtTheEndOfTheFile)
{
    f.addInput({"old", "1"});

    const auto log = f.logOf([&] { load("\r\n"); });

    EXPECT_THAT(f.rows(f.form.InputsList), ElementsAre(blankInput));
    EXPECT_THAT(f.rows(f.form.OutputsList), ElementsAre(blankOutput));
    EXPECT_THAT(log, Contains("DEBUG: Added  to Input list"));
    EXPECT_THAT(log, Contains("DEBUG: Removed 1 from Input list"));
    EXPECT_THAT(log, Contains("DEBUG: Error occured At end of Load_Click"));
    EXPECT_THAT(log, Contains("ERROR: The control file ends before its selection is complete"));
    EXPECT_THAT(f.messages(), IsEmpty());
}

TEST_F(ControlFile, WithoutInputsAddsAnEmptyFirstRowAndTakesTheOutputsForInputs)
{
    load("\r\nTotalMass\t7.85\tMassTotal\t\tMassProperties\r\n");

    EXPECT_THAT(f.rows(f.form.InputsList),
                ElementsAre(blankInput, "TotalMass\t7.85\tMassTotal\t\tMassProperties\t"));
    EXPECT_THAT(f.rows(f.form.OutputsList), ElementsAre(blankOutput));
}

TEST_F(ControlFile, WithoutASeparatorKeepsTheRowsReadUntilThen)
{
    const auto log = f.logOf([&] { load("a\t1\r\nb\t2\r\n"); });

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("a", "b"));
    EXPECT_THAT(f.rows(f.form.OutputsList), ElementsAre(blankOutput));
    EXPECT_THAT(log, Contains("DEBUG: Error occured At end of Load_Click"));
}

TEST_F(ControlFile, WithoutOutputsKeepsTheInputs)
{
    const auto log = f.logOf([&] { load(input("a") + "\r\n\r\n"); });

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("a"));
    EXPECT_THAT(f.rows(f.form.OutputsList), ElementsAre(blankOutput));
    EXPECT_THAT(log, Contains("DEBUG: Error occured At end of Load_Click"));
    EXPECT_THAT(f.messages(), IsEmpty());
}

TEST_F(ControlFile, WithoutAnythingEmptiesBothGrids)
{
    f.addInput({"old", "1"});
    f.addOutput({"old", "1"});

    load("");

    EXPECT_THAT(f.rows(f.form.InputsList), ElementsAre(blankInput));
    EXPECT_THAT(f.rows(f.form.OutputsList), ElementsAre(blankOutput));
}

TEST_F(ControlFile, EndsTheOutputsAtAnEmptyLine)
{
    const auto log = f.logOf([&] { load("a\t1\r\n\r\nx\t2\r\ny\t3\r\n\r\nz\t4\r\n"); });

    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("x", "y"));
    EXPECT_THAT(log, Not(Contains(HasSubstr("Error occured"))));
}

TEST_F(ControlFile, TakesAnEmptyFirstOutputLineAsARow)
{
    load("a\t1\r\n\r\n\r\nx\t2\r\n");

    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("", "x"));
}

TEST_F(ControlFile, IsReadWithLineFeedsAloneAndWithoutALastLineEnd)
{
    load("a\t1\nb\t2\n\nx\t3");

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("a", "b"));
    EXPECT_THAT(f.rows(f.form.OutputsList), ElementsAre("x\t3\t\t\t"));
}

TEST_F(ControlFile, DropsSurplusCellsAndLeavesMissingOnesEmpty)
{
    load("a\t1\t2\t3\t4\t5\t6\t7\r\nb\r\n\r\nx\t1\t2\t3\t4\t5\r\n");

    EXPECT_THAT(f.rows(f.form.InputsList), ElementsAre("a\t1\t2\t3\t4\t5", "b\t\t\t\t\t"));
    EXPECT_THAT(f.rows(f.form.OutputsList), ElementsAre("x\t1\t2\t3\t4"));
}

TEST_F(ControlFile, GivesABlankForEachStrayControlCharacter)
{
    using namespace std::string_literals;

    load("a\rb\0c\x1A\x7F\t1\r\r\n\r\nx\r"s);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("a b c  "));
    EXPECT_EQ(f.form.InputsList.text(1, 1), "1 ");
    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("x"));
}

TEST_F(ControlFile, OfAnyBytesIsReadAndStaysAsItIs)
{
    std::mt19937 random(20240307);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<std::size_t> length(0, 400);
    constexpr std::string_view likely = "\t\t\r\n\n\0a";

    for (int run = 0; run < 500; ++run) {
        std::string content(length(random), ' ');
        for (char& c : content) {
            const auto pick = static_cast<std::size_t>(byte(random));
            c = pick < 100 ? likely[pick % likely.size()] : static_cast<char>(byte(random));
        }
        load(content);

        EXPECT_EQ(f.files.contents.at(path), content);
        for (const std::string& row : f.rows(f.form.InputsList))
            EXPECT_EQ(std::count(row.begin(), row.end(), '\t'), 5);
        for (const std::string& row : f.rows(f.form.OutputsList))
            EXPECT_EQ(std::count(row.begin(), row.end(), '\t'), 4);
        EXPECT_FALSE(f.context.error.isPending());
    }
}

}  // namespace generate
