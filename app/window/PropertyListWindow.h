// The property list dialog on the screen, modal to the main form. Beside its own controls it has a
// line that tells what the list is for.
#pragma once

#include "app/window/DialogWindow.h"
#include "app/window/TickList.h"
#include "selection/PropertyListDialog.h"

#include <windows.h>

#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace window
{

class PropertyListWindow : public selection::PropertyListHost, private DialogWindow
{
public:
    // Fixed numbers of the dialog's controls.
    static constexpr int idHeading = 2001;
    static constexpr int idList = 2002;
    static constexpr int idSelect = 2003;
    static constexpr int idDeSelect = 2004;
    static constexpr int idAsked = 2005;
    static constexpr int idAdd = IDOK;         // Enter
    static constexpr int idCancel = IDCANCEL;  // Esc

    /// owner gives the window that the dialog belongs to; it is called when the dialog opens.
    explicit PropertyListWindow(std::function<HWND()> owner) : owner_(std::move(owner)) {}

    void showModal(selection::frmPropertyList& dialog) override;

    /// Ends the dialog as Cancel does, if it is open.
    void cancel();

    static constexpr int keyToTickAgain = VK_F3;  // what was ticked in the last list of this kind

private:
    INT_PTR answer(UINT message, WPARAM wParam, LPARAM lParam) override;
    void initialise() override;
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    void layOut() override;
    SIZE leastSize() const override;
    void createControls();
    void notify(const NMHDR& header);
    void say(const std::string& text);
    void tickAgain();
    void press(int id);
    void add();
    template <class Step>
    void guarded(Step&& step);

    std::exception_ptr mistake_;
    std::function<HWND()> owner_;
    selection::frmPropertyList* dialog_ = nullptr;  // while it is shown
    std::unique_ptr<TickList> list_;
    HWND tips_ = nullptr;
    bool restIsCancelled_ = false;                             // of the lists in this click
    std::map<std::string, std::set<std::string>> lastTicked_;  // by kind of list
};

}  // namespace window
