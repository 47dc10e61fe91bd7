#include "ClipboardText.h"
#include "KeysFixture.h"
#include "ListViews.h"
#include "OwnFormFixture.h"
#include "app/window/FindingsWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <commctrl.h>
#include <string>
#include <vector>

using driver::clipboardText;
using driver::textOf;
using driver::visibleWindow;
using driver::waitUntil;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using window::FindingsWindow;
using window::MainWindow;

namespace
{

HWND findingsOf(DWORD process)
{
    const HWND shown = visibleWindow(process, L"#32770");
    const bool isIt = shown != nullptr && GetDlgItem(shown, FindingsWindow::idWhole) != nullptr;
    return isIt ? shown : nullptr;
}

RECT boundsOf(HWND window)
{
    RECT bounds{};
    GetWindowRect(window, &bounds);
    return bounds;
}

// By messages, in this process.
struct Findings : driver::OwnForm
{
    HWND findings = nullptr;

    void show()
    {
        SendMessageW(form, WM_SYSCOMMAND, MainWindow::idFindings, 0);
        findings = findingsOf(GetCurrentProcessId());
        ASSERT_NE(findings, nullptr);
    }
    HWND list() const { return GetDlgItem(findings, FindingsWindow::idList); }
    std::string note() const { return textOf(GetDlgItem(findings, FindingsWindow::idNote)); }
    std::string cell(int item, int column) const { return driver::cellIn(list(), item, column); }
    std::vector<std::string> sentences() const
    {
        std::vector<std::string> all;
        for (int item = 0; item < ListView_GetItemCount(list()); ++item)
            all.push_back(cell(item, 2));
        return all;
    }
    void setCommandLine(const wchar_t* text) const { SetWindowTextW(control("CommandLine"), text); }
};

TEST_F(Findings, ListSeverityRowsSentenceAndCure)
{
    open();
    setCommandLine(L"");

    show();

    EXPECT_EQ(cell(0, 0), "error");
    EXPECT_EQ(cell(0, 1), "");
    EXPECT_THAT(cell(0, 2), StartsWith("The command line is empty"));
    EXPECT_THAT(cell(0, 3), StartsWith("Choose the solver again"));
}

TEST_F(Findings, OfFilesAndFemapAreThereUntilTheNextChange)
{
    open();

    show();
    EXPECT_THAT(note(), StartsWith("All is looked at"));
    EXPECT_THAT(sentences(), Contains(HasSubstr("is not in the model's folder")));

    SendMessageW(form, WM_COMMAND, MainWindow::idRefresh, 0);
    EXPECT_THAT(note(), StartsWith("Only rows and texts"));
    EXPECT_THAT(sentences(), Not(Contains(HasSubstr("is not in the model's folder"))));
}

TEST_F(Findings, FollowATextThatIsTyped)
{
    open();
    show();
    EXPECT_THAT(sentences(), Not(Contains(StartsWith("The command line is empty"))));

    setCommandLine(L"");
    SendMessageW(form, WM_TIMER, 1, 0);

    EXPECT_THAT(sentences(), Contains(StartsWith("The command line is empty")));
}

TEST_F(Findings, ShowAllOfTheOneThatIsSelected)
{
    open();
    setCommandLine(L"");
    show();
    const HWND whole = GetDlgItem(findings, FindingsWindow::idWhole);
    EXPECT_EQ(textOf(whole), cell(0, 2) + "\r\n" + cell(0, 3));

    ListView_SetItemState(list(), 1, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(textOf(whole), cell(1, 2) + "\r\n" + cell(1, 3));

    setCommandLine(L"nastran panel.dat");
    const std::string chosen = cell(1, 2);
    SendMessageW(form, WM_SYSCOMMAND, MainWindow::idFindings, 0);
    EXPECT_THAT(textOf(whole), StartsWith(chosen)) << "also when it has another place";
}

TEST_F(Findings, HaveRoomAtEachResolutionAndSize)
{
    open();
    show();
    for (const UINT dotsPerInch : {96U, 144U}) {
        for (const int width : {400, 1000}) {
            const RECT wanted{0, 0, width, 500};
            SendMessageW(findings, WM_DPICHANGED, MAKEWPARAM(dotsPerInch, dotsPerInch),
                         reinterpret_cast<LPARAM>(&wanted));
            const RECT all = boundsOf(findings);
            LONG above = all.top;
            for (const int id :
                 {FindingsWindow::idList, FindingsWindow::idWhole, FindingsWindow::idNote}) {
                const RECT place = boundsOf(GetDlgItem(findings, id));
                EXPECT_GE(place.left, all.left);
                EXPECT_LE(place.right, all.right);
                EXPECT_GE(place.top, above);
                EXPECT_LE(place.bottom, all.bottom);
                EXPECT_GE(place.bottom - place.top, 2 * LONG(dotsPerInch) / 7);
                above = place.bottom;
            }
        }
    }
}

TEST_F(Findings, GoWithTheForm)
{
    open();
    show();

    SendMessageW(form, WM_CLOSE, 0, 0);

    EXPECT_EQ(IsWindow(findings), FALSE);
}

// The same with real keys and the mouse.
struct FindingsKeys : driver::Keys
{
    HWND findings = nullptr;

    // With inputs of all nodes that are whole numbers.
    void openByKey()
    {
        form.choose("InputSelection", "Nodes");
        form.press("InputsButton");
        form.add({"defCSys"});
        form.settle();
        hand.awaitKeyboardAt(form.window());
        hand.key({"F8"});
        ASSERT_TRUE(waitUntil([&] {
            findings = findingsOf(process.id());
            return findings != nullptr && form.focus() == list();
        }));
        hand.awaitKeyboardAt(findings);
    }
    HWND list() const { return GetDlgItem(findings, FindingsWindow::idList); }
    std::string whole() const { return textOf(GetDlgItem(findings, FindingsWindow::idWhole)); }
    // Down to the finding of the rows.
    bool selectRowsFinding()
    {
        for (int i = 0; i < 10 && whole().find("whole numbers") == std::string::npos; ++i) {
            const std::string before = whole();
            hand.key({i == 0 ? "Home" : "Down"});
            waitUntil([&] { return whole() != before; }, std::chrono::seconds(1));
        }
        return whole().find("whole numbers") != std::string::npos;
    }
    bool goesTo(int item)
    {
        return waitUntil([&] {
            return form.selectedRows("InputsList") == std::vector<int>{item} &&
                   form.hasFocus("InputsList");
        });
    }
    bool returnsToList()
    {
        hand.key({"F8"});
        return waitUntil([&] { return form.focus() == list(); });
    }
};

TEST_F(FindingsKeys, EnterGoesToTheRowsOneAfterTheOther)
{
    openByKey();
    ASSERT_TRUE(selectRowsFinding());

    hand.key({"Return"});
    EXPECT_TRUE(goesTo(0));
    ASSERT_TRUE(returnsToList());
    hand.awaitKeyboardAt(findings);
    hand.key({"Return"});
    EXPECT_TRUE(goesTo(1));
}

TEST_F(FindingsKeys, CtrlCCopiesTheFinding)
{
    driver::putOnClipboard(L"before");
    openByKey();
    ASSERT_TRUE(selectRowsFinding());

    hand.key({"ctrl+c"});

    EXPECT_TRUE(waitUntil([&] { return clipboardText() != "before"; }));
    EXPECT_THAT(clipboardText(), StartsWith("warning\tinputs:1-"));
    EXPECT_THAT(clipboardText(), HasSubstr("whole numbers"));
}

TEST_F(FindingsKeys, EscapeClosesThemAndTheFormHasTheKeysAgain)
{
    openByKey();

    hand.key({"Escape"});

    EXPECT_TRUE(waitUntil([&] { return IsWindow(findings) == FALSE; }));
    hand.awaitKeyboardAt(form.window());
    hand.key({"F8"});
    EXPECT_TRUE(waitUntil([&] { return findingsOf(process.id()) != nullptr; }));
}

TEST_F(FindingsKeys, ADoubleClickGoesToTheRow)
{
    openByKey();
    ASSERT_TRUE(selectRowsFinding());
    const int item = ListView_GetNextItem(list(), -1, LVNI_SELECTED);

    hand.doubleClickAt(driver::placeIn(list(), driver::rowPlaceIn(list(), item)));

    EXPECT_TRUE(goesTo(0));
}

TEST_F(FindingsKeys, TabLeadsFromTheListToTheWholeTextAndBack)
{
    openByKey();

    hand.key({"Tab"});
    EXPECT_TRUE(
        waitUntil([&] { return form.focus() == GetDlgItem(findings, FindingsWindow::idWhole); }));
    hand.key({"Tab"});
    EXPECT_TRUE(waitUntil([&] { return form.focus() == list(); }));
}

TEST_F(FindingsKeys, TheStatusLineCountsThemAndSaysWhereTheyAre)
{
    openByKey();

    EXPECT_THAT(form.text("StatusLine"), HasSubstr("F8 shows"));
}

}  // namespace
