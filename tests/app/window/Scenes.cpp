// Brings the form into the states that the pictures of the documentation show. Each scene leaves a
// file NAME.shown with the window's place on the screen and goes on when the file is gone.
#include "ContrastColours.h"
#include "FormDriver.h"
#include "FormFiles.h"
#include "app/window/MainWindow.h"
#include "app/window/PreviewWindow.h"
#include "app/window/PropertyListWindow.h"
#include "standin/StandIn.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <thread>

using driver::FormDriver;
using driver::FormFiles;
using driver::Process;
using driver::StandIn;
using driver::waitUntil;
using window::PropertyListWindow;

namespace
{

struct Scene : testing::Test
{
    FormFiles files;
    StandIn femap{files.folder() / "panel.neu"};
    Process process{driver::programPath("VelmarFemapInterface.exe"), L"$form.log$DEBUG",
                    files.folder()};
    FormDriver form{process};

    void pick(const std::string& box, const std::string& kind, const std::string& picked)
    {
        form.choose(box, kind);
        femap.pick(picked);
        form.press(box == "InputSelection" ? "InputsButton" : "OutputsButton");
    }
    void add(const std::string& box, const std::string& kind, const std::string& picked,
             const std::vector<std::string>& items)
    {
        pick(box, kind, picked);
        form.add(items);
    }

    void fill()
    {
        add("InputSelection", "Nodes", "163 441", {"x", "y", "z"});
        add("InputSelection", "Materials", "1 2", {"Ex", "Density"});
        add("InputSelection", "Properties", "1", {"Thickness", "NS Mass/Len"});
        pick("InputSelection", "Functions", "1");
        form.settle();
        add("OutputSelection", "Nodes", "163 441", {"1 - Total Translation", "4 - T3 Translation"});
        form.choose("OutputSelection", "Mass Properties");
        form.press("OutputsButton");  // FEMAP has no dialog for these
        form.add({"Area", "MassTotal", "TotalCG"});
        form.selectRows("InputsList", 2, 4);
    }

    void resize(int width, int height)
    {
        SetWindowPos(form.window(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
        form.settle();
    }

    // A row has come since "Apply", a value was changed in its file, and the command line is
    // another one.
    void applyAndChange()
    {
        fill();
        form.press("GenerateButton");
        EXPECT_TRUE(waitUntil([&] { return files.has("panelControl.txt"); }));
        form.settle();
        std::string values = files.read("InputValues.txt");
        values.replace(values.find("70000"), 5, "69000");
        std::ofstream(files.folder() / "InputValues.txt", std::ios::binary) << values;
        form.setText("CommandLine", L"nastran.exe panel.dat memory=4gb");
        add("InputSelection", "Properties", "4", {"I1"});
        form.settle();
    }

    // By a command of the form; the window that is there then, at the right.
    HWND openBeside(int command, int height)
    {
        SetWindowPos(form.window(), nullptr, 0, 0, 480, height, SWP_NOZORDER);
        form.settle();
        PostMessageW(form.window(), WM_SYSCOMMAND, WPARAM(command), 0);
        HWND shown = nullptr;
        EXPECT_TRUE(waitUntil([&] {
            shown = driver::visibleWindow(process.id(), L"#32770");
            return shown != nullptr;
        }));
        SetWindowPos(shown, nullptr, 480, 0, 800, height, SWP_NOZORDER);
        form.settle();
        return shown;
    }

    // With another window of the form's process beside it, both.
    void show(HWND beside = nullptr)
    {
        constexpr std::chrono::milliseconds untilPainted(2000);
        std::this_thread::sleep_for(untilPainted);
        RECT place{};
        GetWindowRect(form.window(), &place);
        RECT other{};
        if (GetWindowRect(beside, &other) != FALSE)
            UnionRect(&place, &place, &other);
        const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
        {
            std::ofstream file(name + ".part");
            file << place.right - place.left << 'x' << place.bottom - place.top << '+' << place.left
                 << '+' << place.top << '\n';
        }
        std::filesystem::rename(name + ".part", name + ".shown");
        EXPECT_TRUE(waitUntil([&] { return !std::filesystem::exists(name + ".shown"); },
                              std::chrono::seconds(30)));
    }
};

TEST_F(Scene, empty)
{
    form.window();

    show();
}

TEST_F(Scene, filled)
{
    fill();

    show();
}

TEST_F(Scene, small)
{
    fill();
    resize(296, 700);

    show();
}

TEST_F(Scene, contrast)
{
    const driver::ContrastColours contrast;
    fill();
    resize(600, 700);

    show();
}

TEST_F(Scene, input)
{
    fill();
    pick("InputSelection", "Materials", "1 2");
    for (const int item : {0, 3, 6})
        form.tick(item);

    show();
    form.pressInDialog(PropertyListWindow::idCancel);
}

TEST_F(Scene, output)
{
    fill();
    pick("OutputSelection", "Elements", "130");
    form.dialog();

    show();
    form.pressInDialog(PropertyListWindow::idCancel);
}

TEST_F(Scene, findings)
{
    fill();
    add("InputSelection", "Properties", "4", {"I1"});

    show(openBeside(window::MainWindow::idFindings, 640));
}

// One value has changed since "Apply", and a row has come.
TEST_F(Scene, preview)
{
    applyAndChange();
    const HWND shown = openBeside(window::MainWindow::idPreview, 760);
    PostMessageW(GetDlgItem(shown, window::PreviewWindow::idFiles), WM_KEYDOWN, VK_DOWN, 0);
    form.settle();

    show(shown);
}

TEST_F(Scene, busy)
{
    fill();
    femap.beBusy();
    form.press("RefreshInputs");
    EXPECT_TRUE(
        waitUntil([&] { return form.text("StatusLine").find("Waiting") != std::string::npos; },
                  std::chrono::seconds(60)));

    show();
    process.kill();
    femap.kill();
}

}  // namespace
