// The form in this process, over a model host that tells of each call.
#pragma once

#include "FormDriver.h"
#include "FormFiles.h"
#include "app/window/MainWindow.h"
#include "fake/FakeConnector.h"
#include "system/System.h"
#include "windows/Text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace driver
{

struct FormHere : testing::Test
{
    struct FirstOne : femap::SelectionDialogs
    {
        femap::Selection answer(femap::EntityType, const std::string&, bool,
                                const std::vector<int>& available) override
        {
            return {femap::ReturnCode::Ok, {available.front()}};
        }
    };
    static constexpr WPARAM newModel = 2;  // FEMAP's event

    FormFiles files;
    FirstOne dialogs;
    femap::embedded::Host host{dialogs};
    fake::FakeConnector femap{host};
    sys::System system = sys::thisMachine();
    window::MainWindow window{femap, system};
    HWND form = nullptr;

    void SetUp() override
    {
        // Two inputs, as an earlier "Apply" left them.
        std::ofstream(files.folder() / "panelControl.txt", std::ios::binary)
            << "ExAtMatl1\t70000\tMatl\t1\tEx\t\r\nExAtMatl2\t210000\tMatl\t2\tEx\t\r\n\r\n";
        const std::filesystem::path model = files.folder() / "panel.neu";
        host.openNeutralFile(windows::fromWide(model.wstring()));
        host.modelName = windows::fromWide(model.wstring());
        ASSERT_TRUE(window.open("$form.log$DEBUG", SW_SHOWNORMAL));
        form = visibleWindow(GetCurrentProcessId(), L"VelmarFemapInterface");
        ASSERT_NE(form, nullptr);
        handleMessages();
    }
    void TearDown() override
    {
        femap.beforeCall = [](const std::string&) {};
        handleMessages();
        window.unload();
        MSG message{};  // the form that has gone ended the loop of messages that this test has not
        while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != FALSE) {
        }
    }

    HWND control(std::string_view name) const { return controlOf(form, name); }
    int rowCount(std::string_view grid) const
    {
        return static_cast<int>(SendMessageW(control(grid), LVM_GETITEMCOUNT, 0, 0));
    }
    void press(std::string_view button) const { SendMessageW(control(button), BM_CLICK, 0, 0); }
    /// Handles everything that waits in the queue of messages.
    static void handleMessages()
    {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    /// What happens during the first call to FEMAP from now on.
    void duringFirstCall(const std::function<void()>& what)
    {
        femap.beforeCall = [this, what, isFirst = true](const std::string&) mutable {
            if (std::exchange(isFirst, false))
                what();
        };
    }
};

}  // namespace driver
