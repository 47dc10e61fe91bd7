#pragma once

#include "app/Program.h"
#include "app/win32/Controls.h"
#include "app/win32/EventHook.h"
#include "app/win32/GridView.h"
#include "app/win32/PropertyListWindow.h"

#include <windows.h>

#include <array>
#include <exception>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace win32
{

/// The main form on the screen. Its controls mirror those of form::MainForm; what the engineer does
/// goes to the program, and what changed there is shown afterwards.
class MainWindow : public form::FormHost
{
public:
    /// Everything given here must outlive the window.
    MainWindow(femap::Connector& connector, logging::System& system);
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    /// Creates the window, starts the program and shows the form. False: no FEMAP is to be had.
    bool open(const std::string& arguments, int showCommand = SW_SHOWNORMAL);
    /// Handles messages until the form is unloaded; the program's exit code.
    int run();
    /// Tells the watcher what is done with the form; it must outlive the window.
    void watch(app::Watcher& watcher) { program_.watch(watcher); }
    const form::MainForm& form() { return program_.form(); }
    /// A word to the engineer while a procedure waits for FEMAP.
    void showStatus(const std::string& text);

    /// The fixed number of a control, the same in every version of the window: 1000 and the place
    /// in the form's list of controls.
    static constexpr int firstControlID = 1000;

    std::intptr_t windowHandle() override { return reinterpret_cast<std::intptr_t>(window_); }
    void hookEvents() override { hook_.install(window_); }
    void unhookEvents() override { hook_.restore(); }
    void showProgress() override;
    void unload() override;

private:
    static LRESULT CALLBACK frameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK panelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static MainWindow* of(HWND window, UINT message, LPARAM lParam);

    LRESULT handleFrame(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handlePanel(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    // In pixels.
    struct Place
    {
        int left = 0;
        int top = 0;
        int width = -1;
        int height = -1;
        bool operator==(const Place&) const = default;
    };

    void createControls();
    void createScrollBars();
    void createTips();
    HWND create(form::Control& control, const wchar_t* windowClass, std::string_view text,
                DWORD style, DWORD extendedStyle = 0);
    HWND panel(form::Control& control, HWND parent);
    int idOf(const form::Control& control);
    const form::MainForm::NamedControl* named(int id);

    void takeStartPlace(UINT dotsPerInch);
    void applyResolution(UINT dotsPerInch);
    void resized();
    void place();
    void placeScrollBar(const form::ScrollBar& bar, int viewport);
    void scroll(form::ScrollBar& bar, std::string_view event, int request);
    void scrollTo(form::ScrollBar& bar, std::string_view event, int value);
    void turnWheel(int delta);
    void followFocus();

    void command(int id, int notification);
    void pressKey(int id);
    void pressEnter();
    void press(const form::MainForm::NamedControl& button);
    void comboCommand(form::ComboBox& box, int notification);
    void commitTexts();
    void raise(std::string_view event, int argument = 0);
    void beforeEvent(std::string_view event);
    std::string clickOf(const form::Control& control);
    void afterEvent();
    void mirror();
    void mirrorCombo(const form::ComboBox& box);
    void leaveDisabledControl();
    void restoreFocus();
    bool takesKeys(HWND control) const;
    void showPointer();
    bool isBusy();
    void destroyed();
    std::array<form::ComboBox*, 4> comboBoxes();

    template <class Step>
    LRESULT guarded(Step&& step);

    static constexpr const wchar_t* panelClass = L"VelmarFemapInterfacePanel";

    std::exception_ptr mistake_;  // passed to run(), for it must not cross Windows' own code
    PropertyListWindow propertyList_;
    app::Program program_;
    EventHook hook_;
    HWND window_ = nullptr;
    std::map<const form::Control*, HWND> windows_;
    std::map<const form::Control*, Place> places_;  // where the windows are
    std::unique_ptr<GridView> inputs_;
    std::unique_ptr<GridView> outputs_;
    std::unique_ptr<Font> font_;
    Pixels pixels_{USER_DEFAULT_SCREEN_DPI};
    SIZE sizeSeen_{};          // of the window's inside
    std::string waitingText_;  // on the status line while a procedure waits for FEMAP
    std::string textBefore_;   // that stood there
    const form::ComboBox* typing_ = nullptr;  // its text is not taken over yet
    HWND focusBefore_ = nullptr;              // while another program has the keyboard
    HWND focusSeen_ = nullptr;
    bool mirroring_ = false;
    bool ready_ = false;  // all controls are there
};

}  // namespace win32
