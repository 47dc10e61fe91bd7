// A window beside the form that lists what is found in the study; it follows the form until it is
// closed.
#pragma once

#include "app/window/BesideWindow.h"
#include "findings/Finding.h"

#include <windows.h>

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace window
{

class FindingsWindow : public BesideWindow
{
public:
    // Fixed numbers of its controls, in the order of Tab.
    static constexpr int idList = 2201;
    static constexpr int idWhole = 2202;  // the whole text of the finding that is selected
    static constexpr int idNote = 2203;

    /// onGo gets the number of a finding in the list. It runs while Windows' own code waits, so
    /// nothing may be raised.
    explicit FindingsWindow(std::function<void(std::size_t)> onGo);
    ~FindingsWindow() override { close(); }

    /// Lists these; the finding that is selected stays so while it is there, else the first one is.
    /// note: what they go by.
    void show(std::span<const findings::Finding> found, const std::string& note);

private:
    void createControls() override;
    void resolutionChanged() override;
    void layOut() override;
    void command(int id) override;
    bool pressed(HWND control, WPARAM letter) override;
    LRESULT notify(const NMHDR& header) override;
    void forget() override { rows_.clear(); }
    void fill();
    int selected() const;
    void goTo(int finding);
    void showWhole();
    void copySelected() const;

    // A finding as the list shows it.
    using Cells = std::vector<std::string>;

    std::function<void(std::size_t)> onGo_;
    std::vector<Cells> rows_;
};

}  // namespace window
