// The main form on the screen. Its controls show those of form::MainForm; what the engineer does
// goes to the program, and what changed there is shown afterwards.
#pragma once

#include "app/ModelLine.h"
#include "app/Program.h"
#include "app/window/AboutWindow.h"
#include "app/window/Controls.h"
#include "app/window/EventHook.h"
#include "app/window/FindField.h"
#include "app/window/FindingsWindow.h"
#include "app/window/GridView.h"
#include "app/window/InputBlock.h"
#include "app/window/KeptPlaces.h"
#include "app/window/PaneOwner.h"
#include "app/window/PreviewWindow.h"
#include "app/window/PropertyListWindow.h"
#include "app/window/StatusView.h"
#include "app/window/Viewer.h"
#include "form/Layout.h"

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace window
{

class MainWindow : public form::FormHost
{
public:
    // Fixed numbers of what the form does beyond its controls. They are none of a control's, and of
    // those in its menu Windows keeps the last four bits to itself.
    static constexpr int idRefresh = 0x800;
    static constexpr int idGuide = 0x810;
    static constexpr int idFolder = 0x820;
    static constexpr int idLog = 0x830;
    static constexpr int idAbout = 0x840;
    static constexpr int idFind = 0x850;
    static constexpr int idFindNext = 0x860;
    static constexpr int idMoreInputs = 0x870;
    static constexpr int idMoreOutputs = 0x880;
    static constexpr int idCopy = 0x890;
    static constexpr int idCopyWithHeadings = 0x8A0;
    static constexpr int idSelectAll = 0x8B0;
    static constexpr int idRemove = 0x8C0;
    static constexpr int idRefreshRows = 0x8D0;
    static constexpr int idFindInList = 0x8E0;
    static constexpr int idFindings = 0x8F0;
    static constexpr int idPreview = 0x900;
    static constexpr int idStudySheet = 0x910;

    /// Everything given here must outlive the window.
    MainWindow(femap::Connector& connector, sys::System& system);
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    /// Creates the window, starts the program and shows the form. False: there is no FEMAP.
    bool open(const std::string& arguments, int showCommand = SW_SHOWNORMAL);
    const std::string& femapFailure() const { return program_.femapFailure(); }
    std::string whereLogIs() const { return program_.whereLogIs(); }
    /// Handles messages until the form is unloaded; the program's exit code.
    int run();
    /// Tells the observer what is done with the form; it must outlive the window.
    void observe(app::ActionObserver& observer) { program_.observe(observer); }
    /// Guide, folder and log are opened by this one, which must outlive the window, in place of
    /// Windows' viewer.
    void viewWith(Viewer& viewer) { viewer_ = &viewer; }
    const form::MainForm& form() { return program_.form(); }
    /// What the list of inputs gets of the height of both lists, in thousandths.
    int inputShare() const { return inputShare_; }
    void shareLists(int inputShare);
    /// Shows this text while a procedure waits for FEMAP.
    void showStatus(const std::string& text);
    /// Whether the engineer ends the wait for FEMAP: by Esc, or by closing the form, which then is
    /// done when the procedure has ended.
    bool endsWait();

    std::intptr_t windowHandle() override { return reinterpret_cast<std::intptr_t>(window_); }
    void hookEvents() override { hook_.install(window_); }
    void unhookEvents() override { hook_.restore(); }
    void show() override;
    void showProgress() override;
    void unload() override;

    static constexpr int idModelLine = 1100;  // beyond those of the form's controls

private:
    static LRESULT CALLBACK frameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK panelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static MainWindow* instanceOf(HWND window, UINT message, LPARAM lParam);

    LRESULT handleFrame(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handlePanel(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    // In pixels.
    struct Bounds
    {
        int left = 0;
        int top = 0;
        int width = -1;
        int height = -1;
        bool operator==(const Bounds&) const = default;
    };

    void findKept();
    void takeKeptPlace();
    void takeKeptWidths();
    void keepPlaces();
    void bringBackKept();
    void createWindow();
    void takeIntoUse();
    void createControls();
    HWND create(const form::NamedControl& control, HWND parent);
    HWND createPanel(HWND parent, int id);
    HWND createGrid(form::ParameterGrid& grid, HWND parent, int id);
    void addTips();
    void lookForFemap();
    const form::NamedControl* controlWithID(int id);

    void setStartBounds(UINT dotsPerInch);
    void applyResolution(UINT dotsPerInch);
    void resolutionChanged(UINT dotsPerInch, const RECT& bounds);
    void resized();
    void layOut();
    Bounds pixelsOf(const form::Control& control) const;
    bool placeBox(const form::Control& control, HWND window, const Bounds& bounds, int dropDown);
    static Bounds centred(const Bounds& bounds, int height);
    bool place(const form::Control& control, HWND window, const Bounds& wanted);
    void layOutScrollBar(const form::ScrollBar& bar, int viewport);
    void scroll(form::ScrollBar& bar, int request);
    void scrollTo(form::ScrollBar& bar, int value);
    void turnWheel(UINT message, int delta);
    void followFocus();

    // What the form does beyond its controls.
    struct Command
    {
        int id;
        BYTE modifiers;            // that are held with the key, as of ACCEL
        WORD key;                  // 0: none
        std::string_view caption;  // in the menu of the window; empty: not there
        void (MainWindow::*run)();
        bool (app::Program::*isOn)() const = nullptr;  // has a tick then; null: never
    };
    static const Command commands[];
    // What the menu of a list has besides.
    struct ListCommand
    {
        int id;
        std::string_view caption;
        bool (MainWindow::*canRun)(const form::ParameterGrid& grid);
        void (MainWindow::*run)(form::ParameterGrid& grid);
    };
    static const ListCommand listCommands[];
    static std::vector<ACCEL> keysOfCommands();
    void addCommands(HMENU menu) const;
    static bool isCommand(WPARAM id);
    void runCommand(WPARAM id);
    void showMenu(HWND where, POINT place);
    void addListCommands(HMENU menu, const form::ParameterGrid& grid);
    void runListCommand(int id, form::ParameterGrid& grid);
    form::ParameterGrid* gridAt(HWND window);
    bool hasSelection(const form::ParameterGrid& grid);
    bool hasRows(const form::ParameterGrid& grid);
    bool canRemove(const form::ParameterGrid& grid);
    bool canRefresh(const form::ParameterGrid& grid);
    void copyRows(form::ParameterGrid& grid);
    void copyRowsWithHeadings(form::ParameterGrid& grid);
    void selectAllRows(form::ParameterGrid& grid);
    void removeRows(form::ParameterGrid& grid);
    void refreshRows(form::ParameterGrid& grid);
    void findIn(form::ParameterGrid& grid);
    void openFind();
    void find(bool further);
    void findNext() { find(true); }
    void findCommand(int notification);
    form::ParameterGrid& gridToSearch();
    std::vector<MarkRule> marksOf(const form::ParameterGrid& grid);
    std::vector<MarkRule> marksOfFindings(const form::ParameterGrid& grid);
    findings::Place placeIn(const form::ParameterGrid& grid, int row);
    std::string tipOf(const form::ParameterGrid& grid, int row);
    void showFindings();
    void listFindings();
    void goToFinding(std::size_t number);
    void showPreview();
    preview::Preview previewNow(const std::string& name);
    preview::Preview previewOf(std::string& name);
    void listPreview(preview::Preview made, const std::string& name);
    std::string noteOf(const preview::Preview& made) const;
    void choosePreviewed(const std::string& name);
    void followPreview();
    void toggleStudySheet();
    void showNewRows();
    void giveMoreToInputs();
    void giveMoreToOutputs();
    bool isOnDivider(HWND window, POINT place);
    bool moveDivider(HWND window, UINT message, LPARAM lParam);
    void refreshBoth();
    void openGuide();
    void openFolder();
    void openLog();
    void view(const std::string& path, std::string_view failure, std::string_view cure);
    void tellItself(const std::string& text);
    void showAbout();
    void closeWindows();

    void command(int id, int notification);
    void pressKey(int id);
    void pressEnter();
    bool isStepBack(const MSG& message) const;
    bool takeStepBack(const MSG& message);
    void press(const form::NamedControl& button);
    void comboCommand(form::ComboBox& box, int notification);
    void listClosed(form::ComboBox& box);
    void listLeft(const form::ComboBox& box);
    void commitTexts(HWND entered = nullptr);
    void takeText(form::ComboBox& box, const std::string& typed);
    void carryOut(const std::function<app::Ended()>& start);
    void pressInGrid(const form::ParameterGrid& grid, int key);
    void raiseFemapEvent(WPARAM code);
    void raise(const form::Event& event, int argument = 0);
    bool removesNothing(const form::Event& event, int argument);
    void tellNothingSelected();
    void beforeEvent(const form::Event& event);
    form::Event eventOf(const form::Control& control, form::What what);
    void afterEvent();
    void mirror();
    bool isUsable(const form::Control& control) const;
    void showColours();
    void takeColours();
    void showModelLine();
    void mirrorCombo(const form::ComboBox& box);
    void leaveDisabledControl();
    void restoreFocus();
    bool takesKeys(HWND control) const;
    void showPointer();
    bool isBusy();
    void closeByHand();
    void destroyed();
    void windowIsGone();

    template <class Step>
    LRESULT guarded(Step&& step);
    void tellNoMemory();

    static constexpr const wchar_t* panelClass = L"VelmarFemapInterfacePanel";

    std::exception_ptr mistake_;  // rethrown by run(): it must not pass through Windows' code
    PropertyListWindow propertyList_;
    AboutWindow about_;
    FindingsWindow findings_;
    findings::Place goneTo_{};                // from the list of findings
    std::optional<std::uint64_t> looksSeen_;  // that the list shows
    PreviewWindow preview_;
    std::optional<std::uint64_t> previewed_;  // the changes of the study that the preview goes by
    WindowsViewer windowsViewer_;
    Viewer* viewer_ = &windowsViewer_;
    std::string told_;  // by the window itself, not by a procedure
    app::Program program_;
    sys::System& system_;
    std::string dataFolder_;  // of the user, with a separator at the end; empty: nothing is kept
    KeptPlaces placesKept_;
    EventHook hook_;
    PaneOwner paneOwner_;
    HWND window_ = nullptr;
    HWND tips_ = nullptr;
    std::map<const form::Control*, HWND> windows_;
    std::map<const form::Control*, Bounds> bounds_;  // of the windows, as they are now
    std::map<const form::ParameterGrid*, std::unique_ptr<GridView>> grids_;
    std::unique_ptr<StatusView> status_;
    std::unique_ptr<StatusView> modelLineView_;
    FindField findField_;
    form::ParameterGrid* searched_ = nullptr;  // the latest list in which a name was looked for
    std::string sought_;                       // the latest text
    int inputShare_ = form::evenShare;
    std::optional<int>
        dividerGrip_;  // where the mouse holds it, below the list of inputs, in pixels
    app::ModelLine modelLine_;
    std::unique_ptr<Font> font_;
    Pixels pixels_{USER_DEFAULT_SCREEN_DPI};
    UINT dotsPerInch_ = USER_DEFAULT_SCREEN_DPI;
    int boxHeight_ = 0;                         // of a closed combo box, in pixels
    bool resolutionIsTold_ = false;             // by the message that is handled now
    SIZE sizeSeen_{};                           // of the window's inside
    const form::ComboBox* typing_ = nullptr;    // the box whose typed text is not taken over yet
    const form::ComboBox* choosing_ = nullptr;  // the box in whose list an item was gone to
    HWND focusBefore_ = nullptr;                // had the focus before another program took it
    HWND focusSeen_ = nullptr;
    std::optional<InputBlock> block_;  // while a procedure runs
    bool mirroring_ = false;
    bool ready_ = false;     // all controls are there
    bool starting_ = false;  // no control can be used yet
    bool isShown_ = false;
    int showCommand_ = SW_SHOWNORMAL;
};

}  // namespace window
