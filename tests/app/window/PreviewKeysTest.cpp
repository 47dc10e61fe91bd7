// The windows of preview and findings by real keys, beside the form and beside a pane of FEMAP's.
#include "ClipboardText.h"
#include "KeysFixture.h"
#include "ProductFixture.h"
#include "app/window/FindingsWindow.h"
#include "app/window/MainWindow.h"
#include "app/window/PreviewWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>

using driver::clipboardText;
using driver::textOf;
using driver::waitUntil;
using testing::HasSubstr;
using testing::StartsWith;
using window::FindingsWindow;
using window::MainWindow;
using window::PreviewWindow;

namespace
{

// The one of the process's dialogs that has this control; null: it is not shown.
HWND dialogWith(DWORD process, int id)
{
    HWND found = nullptr;
    for (HWND each = FindWindowExW(nullptr, nullptr, L"#32770", nullptr);
         each != nullptr && found == nullptr;
         each = FindWindowExW(nullptr, each, L"#32770", nullptr)) {
        DWORD owner = 0;
        GetWindowThreadProcessId(each, &owner);
        if (owner == process && IsWindowVisible(each) != FALSE && GetDlgItem(each, id) != nullptr)
            found = each;
    }
    return found;
}

HWND awaitDialogWith(DWORD process, int id)
{
    HWND found = nullptr;
    EXPECT_TRUE(waitUntil([&] {
        found = dialogWith(process, id);
        return found != nullptr;
    }));
    return found;
}

struct PreviewKeys : driver::Keys
{
    HWND preview = nullptr;

    void openByKey()
    {
        addMaterials({"Ex"});
        form.settle();
        hand.awaitKeyboardAt(form.window());
        hand.key({"F9"});
        preview = awaitDialogWith(process.id(), PreviewWindow::idFiles);
        ASSERT_TRUE(focusIsAt(PreviewWindow::idFiles));
        hand.awaitKeyboardAt(preview);
    }
    bool focusIsAt(int id)
    {
        return waitUntil([&] { return form.focus() == GetDlgItem(preview, id); });
    }
    std::string heading() const { return textOf(GetDlgItem(preview, PreviewWindow::idHeading)); }
    std::string note() const { return textOf(GetDlgItem(preview, PreviewWindow::idNote)); }
    bool headingBegins(const std::string& text) const
    {
        return waitUntil([&] { return heading().starts_with(text); });
    }
    std::string copied()
    {
        driver::putOnClipboard(L"before");
        hand.key({"ctrl+c"});
        EXPECT_TRUE(waitUntil([&] { return clipboardText() != "before"; }));
        return clipboardText();
    }
};

TEST_F(PreviewKeys, F9OpensItAndDownGoesToTheNextFile)
{
    openByKey();
    EXPECT_TRUE(headingBegins("CAEInput.txt is new: "));

    hand.key({"Down"});

    EXPECT_TRUE(headingBegins("InputValues.txt is new: 3 lines")) << heading();
    EXPECT_TRUE(focusIsAt(PreviewWindow::idFiles));
    EXPECT_FALSE(files.has("InputValues.txt"));
}

TEST_F(PreviewKeys, CtrlCCopiesFilesAndLines)
{
    openByKey();
    hand.key({"Down", "shift+Down"});
    EXPECT_TRUE(headingBegins("vELMARpanel.desc is new"));
    const std::string twoFiles = copied();
    EXPECT_THAT(twoFiles, StartsWith("new\tInputValues.txt\t"));
    EXPECT_THAT(twoFiles, HasSubstr("\r\nnew\tvELMARpanel.desc\t"));

    hand.key({"Up"});
    EXPECT_TRUE(headingBegins("InputValues.txt"));
    hand.key({"Tab"});
    EXPECT_TRUE(focusIsAt(PreviewWindow::idText));
    hand.key({"ctrl+a"});
    const std::string all = copied();
    EXPECT_THAT(all, StartsWith("ExAtMatl1  "));
    EXPECT_EQ(std::ranges::count(all, '\n'), 3);
    hand.key({"Tab"});
    EXPECT_TRUE(focusIsAt(PreviewWindow::idFiles)) << "Tab leads back";
}

TEST_F(PreviewKeys, F9LooksAnewFromTheFormAndFromTheWindow)
{
    openByKey();
    SetWindowPos(form.window(), nullptr, 0, 0, 480, 700, SWP_NOZORDER);
    SetWindowPos(preview, nullptr, 480, 0, 700, 700, SWP_NOZORDER);  // beside, also on low screens
    hand.clickAt(driver::middleOf(form.control("GenerateButton")));
    EXPECT_TRUE(waitUntil([&] { return note().starts_with("Out of date"); }));
    hand.awaitKeyboardAt(form.window());
    hand.key({"F9"});
    EXPECT_TRUE(waitUntil([&] { return note().starts_with("Nothing is written yet."); }));
    EXPECT_TRUE(headingBegins("CAEInput.txt stays as it is"));

    EXPECT_TRUE(focusIsAt(PreviewWindow::idFiles));
    hand.awaitKeyboardAt(preview);
    std::filesystem::remove(files.folder() / "CAEInput.txt");
    hand.key({"F9"});
    EXPECT_TRUE(headingBegins("CAEInput.txt is new"));
}

TEST_F(PreviewKeys, F8LeadsToTheFindings)
{
    openByKey();

    hand.key({"F8"});

    EXPECT_NE(awaitDialogWith(process.id(), FindingsWindow::idWhole), nullptr);
}

TEST_F(PreviewKeys, EscapeClosesItAndTheFormHasTheKeysAgain)
{
    openByKey();

    hand.key({"Escape"});

    EXPECT_TRUE(waitUntil([&] { return IsWindow(preview) == FALSE; }));
    hand.awaitKeyboardAt(form.window());
    hand.key({"F9"});
    EXPECT_NE(awaitDialogWith(process.id(), PreviewWindow::idFiles), nullptr);
}

// The menus have it behind the findings, and the study sheet behind that.
TEST_F(PreviewKeys, StandsInTheContextMenu)
{
    const auto isMenuOpen = [&] {
        return driver::visibleWindow(process.id(), L"#32768") != nullptr;
    };
    const HWND button = form.control("ClearAll");
    PostMessageW(button, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(button), MAKELPARAM(-1, -1));
    EXPECT_TRUE(waitUntil(isMenuOpen));
    hand.key({"Down", "Down", "Return"});
    preview = awaitDialogWith(process.id(), PreviewWindow::idFiles);
    hand.awaitKeyboardAt(preview);

    hand.key({"Escape"});
    hand.awaitKeyboardAt(form.window());
    PostMessageW(button, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(button), MAKELPARAM(-1, -1));
    EXPECT_TRUE(waitUntil(isMenuOpen));
    hand.key({"Down", "Down", "Down", "Return"});
    EXPECT_TRUE(waitUntil([&] { return !isMenuOpen(); }));
    form.press("GenerateButton");
    EXPECT_TRUE(waitUntil([&] { return files.has("panelStudy.json"); }));
}

TEST_F(PreviewKeys, StandsInTheMenuOfTheWindow)
{
    PostMessageW(form.window(), WM_SYSCOMMAND, MainWindow::idPreview, 0);

    EXPECT_NE(awaitDialogWith(process.id(), PreviewWindow::idFiles), nullptr);
}

// The form in a window of FEMAP's process.
struct WindowsBesidePane : driver::Product
{
    driver::Hand hand;

    void SetUp() override
    {
        start();
        femap.dock();
        ASSERT_TRUE(
            waitUntil([&] { return GetAncestor(form->window(), GA_ROOT) != form->window(); }));
        form->settle();
        femap.pick("all");
        form->choose("InputSelection", "Nodes");
        form->press("InputsButton");
        form->add({"defCSys"});
        form->settle();
        takeKeyboard();
    }
    void takeKeyboard()
    {
        hand.clickAt(driver::middleOf(form->control("CommandLine")));
        ASSERT_TRUE(waitUntil([&] { return form->hasFocus("CommandLine"); }));
    }
    bool hasGone(HWND window)
    {
        return waitUntil([&] { return IsWindow(window) == FALSE; });
    }
};

TEST_F(WindowsBesidePane, OpenByTheirKeysAndCloseByEscape)
{
    hand.key({"F8"});
    const HWND findings = awaitDialogWith(process->id(), FindingsWindow::idWhole);
    hand.awaitKeyboardAt(findings);
    hand.key({"Escape"});
    EXPECT_TRUE(hasGone(findings));

    takeKeyboard();
    hand.key({"F9"});
    const HWND preview = awaitDialogWith(process->id(), PreviewWindow::idFiles);
    hand.awaitKeyboardAt(preview);
    hand.key({"Down"});
    EXPECT_TRUE(waitUntil([&] {
        return textOf(GetDlgItem(preview, PreviewWindow::idHeading)).starts_with("InputValues.txt");
    }));
    hand.key({"Escape"});
    EXPECT_TRUE(hasGone(preview));
    EXPECT_TRUE(IsWindow(form->window()));
    EXPECT_EQ(femap.dockHeard(), 0);
}

TEST_F(WindowsBesidePane, LeadFromAFindingToItsRow)
{
    hand.key({"F8"});
    const HWND findings = awaitDialogWith(process->id(), FindingsWindow::idWhole);
    hand.awaitKeyboardAt(findings);
    const auto isThere = [&] {
        return textOf(GetDlgItem(findings, FindingsWindow::idWhole))
                   .find("whole numbers in FEMAP") != std::string::npos;
    };
    for (int i = 0; i < 10 && !waitUntil(isThere, std::chrono::milliseconds(500)); ++i)
        hand.key({"Down"});
    ASSERT_TRUE(isThere());

    hand.key({"Return"});

    EXPECT_TRUE(waitUntil([&] { return form->hasFocus("InputsList"); }));
    EXPECT_THAT(form->selectedRows("InputsList"), testing::ElementsAre(0));
}

TEST_F(WindowsBesidePane, KeepHelpAndWheelFromFemapsWindows)
{
    hand.key({"F9"});
    const HWND preview = awaitDialogWith(process->id(), PreviewWindow::idFiles);
    for (const HWND window : {preview, GetDlgItem(preview, PreviewWindow::idFiles),
                              GetDlgItem(preview, PreviewWindow::idText)}) {
        HELPINFO info{sizeof info, HELPINFO_WINDOW, 0, window, 0, {}};
        SendMessageW(window, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
        SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    }

    EXPECT_EQ(femap.dockHeard(), 0);
}

TEST_F(WindowsBesidePane, GoWithFemap)
{
    hand.key({"F9"});
    const HWND preview = awaitDialogWith(process->id(), PreviewWindow::idFiles);

    femap.kill();

    EXPECT_TRUE(hasGone(preview));
    EXPECT_TRUE(process->isRunning());
}

}  // namespace
