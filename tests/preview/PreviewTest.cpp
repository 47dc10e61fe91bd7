#include "fake/GenerateFixture.h"
#include "femap/Objects.h"
#include "generate/GenerationDriver.h"
#include "preview/Preview.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

namespace preview
{

using generate::inWork;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{

// A study with an input, a function and an output.
class PreviewOfApply : public testing::Test
{
protected:
    PreviewOfApply()
    {
        f.addFunction(5, "curve", {0, 1}, {2, 3});
        f.addInput({"T1", "0.25", "Prop", "1", "pval", "0"});
        f.addInput({"curve", "X-Y Values", "Function", " 5"});
        f.addOutput({"TotalMass", "7.85", "MassTotal", "", "MassProperties"});
    }

    void apply() { generate::GenerateButton_Click(f.context); }
    Preview made(std::string_view wanted = {}) { return previewOfApply(f.context, wanted); }
    // Of a file that is previewed.
    File file(std::string_view name)
    {
        const Preview preview = made();
        const File* const found = preview.find(name);
        EXPECT_NE(found, nullptr) << name;
        return found == nullptr ? File() : *found;
    }
    std::string& onDisk(std::string_view name) { return f.files.contents[inWork(name)]; }

    generate::GenerateFixture f;
};

}  // namespace

TEST_F(PreviewOfApply, TellsEveryFileOfTheTool)
{
    const Preview preview = made();

    std::vector<std::string> names;
    for (const File& each : preview.files)
        names.emplace_back(each.name());
    EXPECT_THAT(names, ElementsAre("CAEInput.txt", "InputValues.txt", "vELMARbeam.desc",
                                   "FDFemap.bat", "FunctionsInputvalues.txt", "CAEOutput.txt",
                                   "OutputValues.txt", "beamControl.txt"));
    EXPECT_THAT(preview.files, Each(Field(&File::mark, Mark::New)));
    EXPECT_THAT(preview.problem, IsEmpty());
    EXPECT_EQ(file("InputValues.txt").size, std::string("T1  0.25\r\n").size());
}

TEST_F(PreviewOfApply, LeadsToTheFirstFileThatIsNotAsItWas)
{
    EXPECT_EQ(Preview().firstToLookAt(), nullptr);
    EXPECT_EQ(made().firstToLookAt()->name(), "CAEInput.txt");

    apply();
    EXPECT_EQ(made().firstToLookAt()->name(), "CAEInput.txt") << "where all are the same";

    onDisk("FDFemap.bat") += "by hand\r\n";
    EXPECT_EQ(made().firstToLookAt()->name(), "FDFemap.bat");
}

TEST_F(PreviewOfApply, MarksWhatIsTheSame)
{
    apply();

    const Preview preview = made();

    EXPECT_THAT(preview.files,
                Each(AllOf(Field(&File::mark, Mark::Same), Field(&File::firstDifference, 0))));
}

TEST_F(PreviewOfApply, MarksWhatIsChangedWithItsFirstDifference)
{
    f.addInput({"T2", "0.5", "Prop", "2", "pval", "0"});
    apply();
    f.form.InputsList.setText(3, form::valueColumn, "0.625");

    const File changed = file("InputValues.txt");

    EXPECT_EQ(changed.mark, Mark::Changed);
    EXPECT_EQ(changed.firstDifference, 2U);
    EXPECT_EQ(changed.size, *changed.sizeBefore + 2);
    EXPECT_EQ(file("CAEInput.txt").mark, Mark::Same);
}

TEST_F(PreviewOfApply, FindsTheDifferenceWhereOneFileEnds)
{
    apply();
    const std::string whole = onDisk("InputValues.txt");

    onDisk("InputValues.txt") = whole + "more";
    EXPECT_EQ(file("InputValues.txt").firstDifference, 2U) << "it gets shorter";

    onDisk("InputValues.txt") = whole.substr(0, 3);
    EXPECT_EQ(file("InputValues.txt").firstDifference, 1U) << "it gets longer";

    onDisk("InputValues.txt") = "";
    EXPECT_EQ(file("InputValues.txt").firstDifference, 1U);
    EXPECT_EQ(file("InputValues.txt").mark, Mark::Changed);
}

TEST_F(PreviewOfApply, MarksWhatWouldFailWithWhatApplyWouldTell)
{
    f.files.irreplaceable = {inWork("CAEOutput.txt"), inWork("beamControl.txt")};
    f.files.failure = "it is a folder, not a file";
    std::string told;
    try {
        apply();
    }
    catch (const sys::RuntimeError& error) {
        told = error.description();
    }

    const Preview preview = made();

    EXPECT_THAT(told, StartsWith("it is a folder, not a file. CAEOutput.txt was not written."));
    EXPECT_EQ(preview.problem, told);
    EXPECT_EQ(preview.find("CAEOutput.txt")->reason, told);
    EXPECT_EQ(preview.find("CAEOutput.txt")->mark, Mark::WouldFail);
    EXPECT_THAT(preview.find("beamControl.txt")->reason, HasSubstr("beamControl.txt was not"));
    EXPECT_EQ(preview.find("CAEInput.txt")->mark, Mark::New) << "what could be written is told";
}

TEST_F(PreviewOfApply, TellsAFolderThatIsGone)
{
    f.files.missingFolders.insert(inWork("").substr(0, inWork("").size() - 1));

    const Preview preview = made();

    EXPECT_THAT(preview.files, Each(Field(&File::mark, Mark::WouldFail)));
    EXPECT_THAT(preview.problem, StartsWith("no such folder. CAEInput.txt was not written. See "));
}

TEST_F(PreviewOfApply, TellsWhatEndsApplyBetweenTwoFiles)
{
    f.beforeModelName([](int call) {
        if (call == 3)
            throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "FEMAP says no");
    });

    const Preview preview = made();

    EXPECT_EQ(preview.problem, "FEMAP says no");
    EXPECT_EQ(preview.find("FDFemap.bat")->mark, Mark::New);
    EXPECT_EQ(preview.find("CAEInput.txt")->mark, Mark::WouldFail);
    EXPECT_EQ(preview.find("CAEInput.txt")->reason, "FEMAP says no");
}

TEST_F(PreviewOfApply, TellsAFileThatCannotBeRead)
{
    apply();
    f.files.deniedReads = 1;

    const Preview preview = made();

    const File& unread = preview.files[0];
    EXPECT_EQ(unread.mark, Mark::Changed);
    EXPECT_EQ(unread.firstDifference, 0U);
    EXPECT_THAT(unread.reason, StartsWith("File not opened: Permission denied: "));
}

TEST_F(PreviewOfApply, HasTheCopyOfASelectionThatThisRunDoesNotKnow)
{
    onDisk("beamControl.txt") = "old\t1\tNode\t1\tx\t\r\n\r\n";

    const Preview preview = made();

    EXPECT_EQ(preview.find("beamControl.previous.txt")->mark, Mark::New);
    EXPECT_EQ(preview.find("beamControl.txt")->mark, Mark::Changed);
    apply();
    EXPECT_EQ(made().find("beamControl.previous.txt"), nullptr) << "this run wrote it";
}

TEST_F(PreviewOfApply, TellsACopyThatCannotBeMade)
{
    onDisk("beamControl.txt") = "old";
    f.files.irreplaceable = {inWork("beamControl.previous.txt")};

    const Preview preview = made();

    EXPECT_THAT(preview.problem, StartsWith("The selection was not stored, for what was stored"));
    EXPECT_EQ(preview.find("beamControl.txt")->mark, Mark::WouldFail);
    EXPECT_EQ(preview.find("CAEInput.txt")->mark, Mark::New);
}

TEST_F(PreviewOfApply, TellsAModelWithoutAFile)
{
    f.femap.modelName = "";

    const Preview preview = made();

    EXPECT_THAT(preview.files, IsEmpty());
    EXPECT_EQ(preview.problem, "Model must be saved in .MOD format first");
}

TEST_F(PreviewOfApply, TellsThatThereIsNoFemap)
{
    f.context.application.reset();

    const Preview preview = made();

    EXPECT_THAT(preview.files, IsEmpty());
    EXPECT_THAT(preview.problem, StartsWith("FEMAP is not connected."));
}

TEST_F(PreviewOfApply, LetsALostFemapBeKnown)
{
    f.beforeModelName([](int) { throw femap::ConnectionLost("gone"); });

    EXPECT_THROW(made(), femap::ConnectionLost);
}

TEST_F(PreviewOfApply, HasTheTextsOfTheFileThatIsAskedFor)
{
    onDisk("InputValues.txt") = "T1  0.5\r\n";

    EXPECT_EQ(made("InputValues.txt").texts->before, "T1  0.5\r\n");
    EXPECT_EQ(made("InputValues.txt").texts->after, "T1  0.25\r\n");
    EXPECT_EQ(made("OutputValues.txt").texts->before, "");
    EXPECT_FALSE(made().texts);
    EXPECT_FALSE(made("none.txt").texts);
}

TEST_F(PreviewOfApply, HasNoTextsOfALongFileButItsFirstDifference)
{
    constexpr int rows = 1'100;
    const std::string longName(10'000, 'x');
    std::vector<std::string> texts;
    for (int row = 1; row <= rows; ++row)
        texts.push_back(longName + std::to_string(row) + "\t0.25\tProp\t1\tpval\t0");
    f.form.Optimizer.Text = "KORVA";  // which gets the control file alone
    f.form.InputsList.replaceRows(std::move(texts));
    apply();
    f.form.InputsList.setText(rows, form::valueColumn, "1");

    const Preview preview = made("beamControl.txt");

    const File& file = *preview.find("beamControl.txt");
    EXPECT_GT(file.size, mostBytes);
    EXPECT_EQ(file.mark, Mark::Changed);
    EXPECT_EQ(file.firstDifference, rows);
    EXPECT_FALSE(preview.texts);
}

TEST_F(PreviewOfApply, HasNoTextsWhereALongFileIsReplaced)
{
    onDisk("FDFemap.bat").assign(mostBytes + 1, 'x');
    EXPECT_FALSE(made("FDFemap.bat").texts);

    onDisk("FDFemap.bat").assign(mostLines + 1, '\n');
    EXPECT_FALSE(made("FDFemap.bat").texts);
}

// Neither on the disk nor in the log, in FEMAP or in the form.
TEST_F(PreviewOfApply, LeavesNoTrace)
{
    onDisk("beamControl.txt") = "old";
    f.addInput({"gone", "X-Y Values", "Function", " 9"});  // which FEMAP does not have
    f.form.commandLineIsDue = true;
    f.form.CommandLine.Text = "";
    f.form.status.tellResult("4 rows");
    const auto disk = f.files.contents;
    const int operations = f.files.operations;
    const auto log = f.log();
    fake::CallWatch& watch = f.watchFemap();
    const std::uint64_t applied = f.form.stored.applied.changes();

    const Preview preview = made("InputValues.txt");

    EXPECT_EQ(preview.problem, "Unable to fetch the value for function id =  9");
    EXPECT_EQ(f.files.contents, disk);
    EXPECT_EQ(f.files.operations, operations);
    EXPECT_THAT(f.files.demanded, IsEmpty());
    EXPECT_THAT(f.files.locked, IsEmpty());
    EXPECT_EQ(f.log(), log);
    EXPECT_THAT(f.messages(), IsEmpty());
    for (const char* const call : {"feAppLock", "feAppUnlock", "feAppMessage", "feAppStatusShow"})
        EXPECT_EQ(watch.count(call), 0U) << call;
    EXPECT_EQ(f.host.progressShown, 0);
    EXPECT_EQ(f.form.StatusLine.Caption, "4 rows");
    EXPECT_EQ(f.form.CommandLine.Text, "");
    EXPECT_TRUE(f.form.commandLineIsDue);
    EXPECT_FALSE(f.form.openModel);
    EXPECT_TRUE(fake::pointersAreDefault(f.form));
    EXPECT_EQ(f.form.function, nullptr);
    EXPECT_EQ(f.form.returnCode, 0);
    EXPECT_EQ(f.form.stored.applied.changes(), applied);
    EXPECT_THAT(f.form.stored.knownFiles, IsEmpty());
    EXPECT_FALSE(f.context.error.isPending());
    EXPECT_EQ(f.context.lockDepth, 0);
}

}  // namespace preview
