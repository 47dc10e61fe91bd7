#include "Hand.h"
#include "OwnFormFixture.h"
#include "WindowFixture.h"
#include "app/Version.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using driver::Hand;
using driver::textOf;
using driver::visibleWindow;
using driver::waitUntil;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using window::AboutWindow;
using window::MainWindow;

namespace
{

struct Opened : window::Viewer
{
    std::vector<std::string> paths;
    std::string refusal;

    void open(const std::string& path) override
    {
        if (!refusal.empty())
            throw sys::RuntimeError(sys::ErrorNumber::FileError, refusal);
        paths.push_back(path);
    }
};

// What is opened, with a viewer of our own.
struct Commands : driver::OwnForm
{
    Opened viewer;

    void start(const std::string& arguments = "$form.log$DEBUG")
    {
        window.viewWith(viewer);
        ASSERT_TRUE(window.open(arguments, SW_SHOWNORMAL));
        form = visibleWindow(GetCurrentProcessId(), L"VelmarFemapInterface");
        ASSERT_NE(form, nullptr);
    }
    void chooseInMenu(int id) const { SendMessageW(form, WM_SYSCOMMAND, WPARAM(id), 0); }
    std::string folder() const { return windows::fromWide(files.folder().wstring()); }
};

TEST_F(Commands, StandInTheMenuOfTheWindow)
{
    start();
    std::vector<std::string> captions;
    const HMENU menu = GetSystemMenu(form, FALSE);
    for (const int id :
         {MainWindow::idGuide, MainWindow::idFolder, MainWindow::idLog, MainWindow::idAbout}) {
        wchar_t text[32]{};
        GetMenuStringW(menu, UINT(id), text, 32, MF_BYCOMMAND);
        captions.push_back(windows::fromWide(text));
    }

    EXPECT_THAT(captions, ElementsAre("Open guide", "Open folder", "Open log", "About"));
}

TEST_F(Commands, OpenTheFolderOfTheModelAndTheLog)
{
    start();

    chooseInMenu(MainWindow::idFolder);
    chooseInMenu(MainWindow::idLog);

    ASSERT_EQ(viewer.paths.size(), 2U);
    EXPECT_EQ(viewer.paths[0], folder() + "\\");
    EXPECT_THAT(viewer.paths[1], StartsWith(folder()));
    EXPECT_THAT(viewer.paths[1], EndsWith("form.log"));
}

TEST_F(Commands, OpenTheGuideBesideTheProgram)
{
    start();

    SendMessageW(form, WM_COMMAND, MainWindow::idGuide, 0);

    EXPECT_THAT(viewer.paths, ElementsAre(EndsWith("\\tests\\guide.html")));
}

TEST_F(Commands, TellWhatCannotBeOpenedUntilItCan)
{
    start();
    viewer.refusal = "no such program";

    chooseInMenu(MainWindow::idFolder);
    const std::string told = status();
    viewer.refusal.clear();
    chooseInMenu(MainWindow::idFolder);

    EXPECT_EQ(told,
              "The folder cannot be opened: no such program. See that the folder is still there: " +
                  folder() + "\\");
    EXPECT_THAT(viewer.paths, ElementsAre(folder() + "\\"));
    EXPECT_THAT(status(), IsEmpty());
}

TEST_F(Commands, TellThatAModelWithoutAFileHasNoFolder)
{
    femap.modelName.clear();
    start();

    chooseInMenu(MainWindow::idFolder);

    EXPECT_THAT(viewer.paths, IsEmpty());
    EXPECT_THAT(status(), HasSubstr("There is no folder to open"));
}

TEST_F(Commands, TellThatThereIsNoLogAndHowToHaveOne)
{
    start("");

    chooseInMenu(MainWindow::idLog);

    EXPECT_THAT(viewer.paths, IsEmpty());
    EXPECT_THAT(status(), HasSubstr("$$ALWAYS"));
}

TEST_F(Commands, WriteNothingIntoTheLog)
{
    start();
    const std::string before = files.log();

    chooseInMenu(MainWindow::idFolder);
    chooseInMenu(MainWindow::idLog);
    SendMessageW(form, WM_COMMAND, MainWindow::idGuide, 0);

    EXPECT_EQ(files.log(), before);
}

TEST(Viewer, OfWindowsTellsWhyAFileCannotBeOpened)
{
    try {
        window::WindowsViewer().open("C:\\no such folder\\guide.html");
        FAIL() << "it was opened";
    }
    catch (const sys::RuntimeError& error) {
        EXPECT_THAT(error.description(), StartsWith("0x8007"));
    }
}

// The same with real keys.
struct CommandKeys : driver::Window
{
    Hand hand;

    void SetUp() override { hand.awaitKeyboardAt(form.window()); }
    HWND about()
    {
        HWND shown = nullptr;
        EXPECT_TRUE(waitUntil([&] {
            shown = visibleWindow(process.id(), L"#32770");
            return shown != nullptr && GetDlgItem(shown, AboutWindow::idClose) != nullptr;
        }));
        return shown;
    }
    bool isMenuOpen() { return visibleWindow(process.id(), L"#32768") != nullptr; }
};

TEST_F(CommandKeys, F5ReadsBothListsAgainAndNothingElse)
{
    addMaterials({"Ex"});
    hand.clickAt(driver::placeIn(form.control("InputsList"), form.rowPlace("InputsList", 0)));
    EXPECT_TRUE(waitUntil([&] { return form.hasFocus("InputsList"); }));
    form.settle();
    const std::size_t before = files.log().size();

    hand.key({"F5"});

    const auto added = [&] { return files.log().substr(before); };
    EXPECT_TRUE(
        waitUntil([&] { return added().find("RefreshOutputs_Click") != std::string::npos; }));
    form.settle();
    EXPECT_THAT(added(), HasSubstr("At the start of RefreshInputs_Click"));
    EXPECT_THAT(added(), HasSubstr("At the start of RefreshOutputs_Click"));
    EXPECT_THAT(added(), Not(HasSubstr("KeyDown")));
}

TEST_F(CommandKeys, F1AsksForTheGuideAlsoInAField)
{
    hand.clickAt(driver::middleOf(form.control("CommandLine")));
    EXPECT_TRUE(waitUntil([&] { return form.hasFocus("CommandLine"); }));

    hand.key({"F1"});

    EXPECT_TRUE(waitUntil([&] {
        return form.text("StatusLine").starts_with("The guide cannot be opened: ");
    })) << form.text("StatusLine");
}

TEST_F(CommandKeys, AboutTellsVersionAndLogAndIsClosedByEscape)
{
    PostMessageW(form.window(), WM_SYSCOMMAND, MainWindow::idAbout, 0);
    const HWND shown = about();
    const std::string version = textOf(GetDlgItem(shown, AboutWindow::idVersion));
    const std::string log = textOf(GetDlgItem(shown, AboutWindow::idLog));

    hand.awaitKeyboardAt(shown);
    hand.key({"Escape"});

    EXPECT_TRUE(waitUntil([&] { return IsWindow(shown) == FALSE; }));
    EXPECT_EQ(version, "Velmar-Femap Interface " + std::string(app::version()));
    EXPECT_THAT(log, EndsWith("form.log"));
    EXPECT_TRUE(waitUntil([&] { return IsWindowEnabled(form.window()) != FALSE; }));
}

TEST_F(CommandKeys, AboutGoesWithTheForm)
{
    constexpr WPARAM shutdown = 4;
    PostMessageW(form.window(), WM_SYSCOMMAND, MainWindow::idAbout, 0);
    about();

    form.sendEvent(shutdown);

    EXPECT_EQ(process.exitCode(), 0U);
}

TEST_F(CommandKeys, AContextMenuHasTheSame)
{
    const HWND button = form.control("ClearAll");
    PostMessageW(button, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(button), MAKELPARAM(-1, -1));
    const bool hasButtonOne = waitUntil([&] { return isMenuOpen(); });
    hand.key({"Up", "Return"});

    EXPECT_TRUE(hasButtonOne);
    EXPECT_NE(about(), nullptr);
}

}  // namespace
