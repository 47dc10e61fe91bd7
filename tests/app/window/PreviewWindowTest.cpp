// The window of the preview by messages, in this process.
#include "ListViews.h"
#include "OwnFormFixture.h"
#include "app/window/PreviewWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <commctrl.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

using driver::cellIn;
using driver::textOf;
using driver::visibleWindow;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using window::MainWindow;
using window::PreviewWindow;

namespace
{

struct PreviewShown : driver::OwnForm
{
    HWND preview = nullptr;

    void SetUp() override
    {
        OwnForm::SetUp();
        std::ofstream(files.folder() / "panelControl.txt", std::ios::binary)
            << "ExAtMatl1\t70000\tMatl\t1\tEx\t\r\nExAtMatl2\t210000\tMatl\t2\tEx\t\r\n\r\n";
    }
    void show()
    {
        SendMessageW(form, WM_COMMAND, MainWindow::idPreview, 0);
        preview = visibleWindow(GetCurrentProcessId(), L"#32770");
        ASSERT_NE(GetDlgItem(preview, PreviewWindow::idFiles), nullptr);
    }
    void apply() const { SendMessageW(control("GenerateButton"), BM_CLICK, 0, 0); }
    HWND part(int id) const { return GetDlgItem(preview, id); }
    HWND list() const { return part(PreviewWindow::idFiles); }
    HWND lines() const { return part(PreviewWindow::idText); }
    std::string note() const { return textOf(part(PreviewWindow::idNote)); }
    std::string heading() const { return textOf(part(PreviewWindow::idHeading)); }
    std::vector<std::string> column(int column) const
    {
        std::vector<std::string> all;
        for (int item = 0; item < ListView_GetItemCount(list()); ++item)
            all.push_back(cellIn(list(), item, column));
        return all;
    }
    // The row of a file, its cells parted by "|".
    std::string rowOf(const std::string& name) const
    {
        for (int item = 0; item < ListView_GetItemCount(list()); ++item)
            if (cellIn(list(), item, 1) == name)
                return cellIn(list(), item, 0) + '|' + cellIn(list(), item, 2) + '|' +
                       cellIn(list(), item, 3) + '|' + cellIn(list(), item, 4);
        return "none";
    }
    void choose(const std::string& name) const
    {
        const auto names = column(1);
        const auto item = static_cast<int>(std::ranges::find(names, name) - names.begin());
        ListView_SetItemState(list(), item, LVIS_FOCUSED | LVIS_SELECTED,
                              LVIS_FOCUSED | LVIS_SELECTED);
        handlePosted();
    }
    void handlePosted() const
    {
        MSG message;
        while (PeekMessageW(&message, preview, 0, 0, PM_REMOVE) != FALSE)
            DispatchMessageW(&message);
    }
    // "+2 text" for each line.
    std::vector<std::string> shownLines() const
    {
        std::vector<std::string> all;
        for (int item = 0; item < ListView_GetItemCount(lines()); ++item)
            all.push_back(cellIn(lines(), item, 0) + cellIn(lines(), item, 1) + ' ' +
                          cellIn(lines(), item, 2));
        return all;
    }
    std::filesystem::path pathOf(const char* name) const { return files.folder() / name; }
    void append(const char* name, const char* text) const
    {
        std::ofstream(pathOf(name), std::ios::binary | std::ios::app) << text;
    }
    // What lies in the folder: texts by names.
    std::map<std::string, std::string> folderNow() const
    {
        std::map<std::string, std::string> texts;
        for (const auto& each : std::filesystem::recursive_directory_iterator(files.folder())) {
            const std::string name = each.path().lexically_relative(files.folder()).string();
            texts[name] = each.is_regular_file() ? files.read(name) : "folder";
        }
        return texts;
    }
};

TEST_F(PreviewShown, MarksFilesThatAreNewTheSameChangedAndThatWouldFail)
{
    open();
    show();
    EXPECT_THAT(rowOf("InputValues.txt"), StartsWith("new|"));
    EXPECT_THAT(column(0), Contains("new"));

    apply();
    append("FDFemap.bat", "rem by hand\r\n");
    std::filesystem::remove(pathOf("CAEOutput.txt"));
    std::filesystem::create_directory(pathOf("CAEOutput.txt"));
    show();

    const auto size = std::filesystem::file_size(pathOf("FDFemap.bat"));
    const std::string text = files.read("FDFemap.bat");
    const auto lineCount = std::ranges::count(text, '\n');
    EXPECT_EQ(rowOf("InputValues.txt"), "same|37|37|");
    EXPECT_EQ(rowOf("FDFemap.bat"), "changed|" + std::to_string(size - 13) + '|' +
                                        std::to_string(size) + "|line " +
                                        std::to_string(lineCount));
    EXPECT_THAT(rowOf("CAEOutput.txt"), StartsWith("would fail|"));
    EXPECT_THAT(rowOf("CAEOutput.txt"), HasSubstr("it is a folder"));
    EXPECT_THAT(note(), StartsWith("\"Apply\" would tell: "));
    EXPECT_THAT(note(), HasSubstr("CAEOutput.txt was not written"));
}

TEST_F(PreviewShown, ShowsTheTextOfAFileWithItsChanges)
{
    open();
    apply();
    std::ofstream(pathOf("InputValues.txt"), std::ios::binary)
        << "ExAtMatl1  70000\r\nBy\xE4Hand  1\r\n";

    show();

    EXPECT_THAT(shownLines(),
                ElementsAre(" 1 ExAtMatl1  70000", "-2 By\u00e4Hand  1", "+2 ExAtMatl2  210000"));
    EXPECT_EQ(heading(), "InputValues.txt: 1 line removed (-), 1 line added (+)");
}

TEST_F(PreviewShown, GoesToTheFileThatIsChosen)
{
    open();
    apply();
    append("FDFemap.bat", "rem by hand\r\n");
    show();
    EXPECT_THAT(heading(), StartsWith("FDFemap.bat: 1 line removed (-), 0 lines added (+)"));

    choose("InputValues.txt");
    EXPECT_EQ(heading(), "InputValues.txt stays as it is: 2 lines");
    EXPECT_THAT(shownLines(), SizeIs(2));

    show();
    EXPECT_THAT(heading(), StartsWith("InputValues.txt")) << "also when it is looked anew";
}

TEST_F(PreviewShown, TellsWhatAFileIsThatHasNoTextToShow)
{
    open();
    apply();
    std::ofstream(pathOf("InputValues.txt"), std::ios::binary) << std::string(10'000'001, 'x');
    show();
    EXPECT_EQ(heading(),
              "InputValues.txt is too long to be shown; the list tells where it differs "
              "first");
    EXPECT_THAT(shownLines(), IsEmpty());
    EXPECT_EQ(rowOf("InputValues.txt"), "changed|37|10000001|line 1");

    std::filesystem::remove(pathOf("InputValues.txt"));
    show();
    EXPECT_EQ(heading(), "InputValues.txt is new: 2 lines");
}

TEST_F(PreviewShown, WritesLogsAndTellsNothing)
{
    open();
    apply();
    append("FDFemap.bat", "rem by hand\r\n");
    std::filesystem::remove(pathOf("InputValues.txt"));
    const auto folder = folderNow();
    const std::size_t messages = femap.messages.size();
    const std::string told = status();

    show();
    choose("CAEInput.txt");
    show();

    EXPECT_THAT(column(0), Contains("new"));
    EXPECT_EQ(folderNow(), folder) << "the log is in it";
    EXPECT_EQ(femap.messages.size(), messages);
    EXPECT_EQ(status(), told);
}

TEST_F(PreviewShown, IsOutOfDateAfterAnActionAndATypedTextUntilF9)
{
    open();
    show();
    EXPECT_THAT(note(),
                StartsWith("Nothing is written yet. \"Apply\" would have written this at "));
    EXPECT_THAT(note(), EndsWith("; F9 looks anew."));

    SendMessageW(control("InputsList"), WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_THAT(note(), StartsWith("Nothing is written yet."));

    apply();
    EXPECT_THAT(note(), StartsWith("Out of date: "));
    EXPECT_THAT(rowOf("InputValues.txt"), StartsWith("new|")) << "it is not made again by itself";

    show();
    EXPECT_THAT(note(), StartsWith("Nothing is written yet."));
    EXPECT_THAT(column(0), Each("same"));

    SetWindowTextW(control("CommandLine"), L"solve it");
    SendMessageW(form, WM_TIMER, 1, 0);
    EXPECT_THAT(note(), StartsWith("Out of date: "));

    show();
    EXPECT_THAT(rowOf("FDFemap.bat"), StartsWith("changed|"));
}

TEST_F(PreviewShown, TellsWhyNoFileWouldBeWritten)
{
    femap.modelName.clear();
    open();

    show();

    EXPECT_THAT(column(0), IsEmpty());
    EXPECT_THAT(heading(), IsEmpty());
    EXPECT_EQ(note(), "\"Apply\" would tell: Model must be saved in .MOD format first");
}

TEST_F(PreviewShown, HasRoomAtEachResolutionAndSize)
{
    open();
    show();
    for (const UINT dotsPerInch : {96U, 144U}) {
        for (const int width : {400, 1000}) {
            const RECT wanted{0, 0, width, 700};
            SendMessageW(preview, WM_DPICHANGED, MAKEWPARAM(dotsPerInch, dotsPerInch),
                         reinterpret_cast<LPARAM>(&wanted));
            const form::ScreenPlace all = window::placeOf(preview);
            int above = all.top;
            for (const int id : {PreviewWindow::idFiles, PreviewWindow::idHeading,
                                 PreviewWindow::idText, PreviewWindow::idNote}) {
                const form::ScreenPlace place = window::placeOf(part(id));
                EXPECT_GE(place.left, all.left);
                EXPECT_LE(place.right, all.right);
                EXPECT_GE(place.top, above);
                EXPECT_LE(place.bottom, all.bottom);
                EXPECT_GE(place.bottom - place.top, 2 * int(dotsPerInch) / 7);
                above = place.bottom;
            }
        }
    }
}

TEST_F(PreviewShown, GoesWithTheForm)
{
    open();
    show();

    SendMessageW(form, WM_CLOSE, 0, 0);

    EXPECT_EQ(IsWindow(preview), FALSE);
}

// The item that lets "Apply" write the study sheet.
struct StudySheetItem : PreviewShown
{
    bool hasTick() const
    {
        const UINT state =
            GetMenuState(GetSystemMenu(form, FALSE), MainWindow::idStudySheet, MF_BYCOMMAND);
        return state != UINT(-1) && (state & MF_CHECKED) != 0;
    }
    void press() const { SendMessageW(form, WM_SYSCOMMAND, MainWindow::idStudySheet, 0); }
};

TEST_F(StudySheetItem, HasATickWhileApplyWritesTheSheet)
{
    open();
    EXPECT_FALSE(hasTick());

    press();
    EXPECT_TRUE(hasTick());
    EXPECT_FALSE(files.has("panelStudy.json"));
    apply();
    EXPECT_TRUE(files.has("panelStudy.json"));

    std::filesystem::remove(pathOf("panelStudy.json"));
    press();
    EXPECT_FALSE(hasTick());
    apply();
    EXPECT_FALSE(files.has("panelStudy.json"));
}

TEST_F(StudySheetItem, IsToldInThePreview)
{
    open();
    show();
    EXPECT_THAT(note(), Not(HasSubstr("study sheet")));

    press();
    EXPECT_THAT(note(), StartsWith("Out of date: "));
    show();
    EXPECT_THAT(note(), EndsWith(" The study sheet comes besides."));
}

}  // namespace
