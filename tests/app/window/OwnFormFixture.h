#pragma once

#include "Everything.h"
#include "FormDriver.h"
#include "FormFiles.h"
#include "app/window/MainWindow.h"
#include "femap/embedded/Host.h"
#include "system/System.h"
#include "windows/Text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace driver
{

// The form in this process, on a FEMAP of our own with the example model open: for what no other
// process can ask of it, and for what Windows keeps for each process.
struct OwnForm : testing::Test
{
    FormFiles files;
    Everything dialogs;
    femap::embedded::Host femap{dialogs};
    sys::System system = sys::thisMachine();
    window::MainWindow window{femap, system};
    HWND form = nullptr;

    void SetUp() override
    {
        const std::string model = windows::fromWide((files.folder() / "panel.neu").wstring());
        femap.openNeutralFile(model);
        femap.modelName = model;
    }
    void open()
    {
        ASSERT_TRUE(window.open("$form.log$DEBUG", SW_SHOWNORMAL));
        form = visibleWindow(GetCurrentProcessId(), L"VelmarFemapInterface");
        ASSERT_NE(form, nullptr);
    }
    void TearDown() override
    {
        SendMessageW(form, WM_CLOSE, 0, 0);
        MSG message;  // the form that has gone ended the loop of messages that this test has not
        while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != FALSE) {
        }
    }

    HWND control(std::string_view name) const { return controlOf(form, name); }
    std::string status() const { return textOf(control("StatusLine")); }
};

}  // namespace driver
