// A window beside the form that shows what "Apply" would write: a list of the files, and the text
// of one with its changes.
#pragma once

#include "app/window/BesideWindow.h"
#include "app/window/DifferenceView.h"
#include "preview/Preview.h"

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace window
{

class PreviewWindow : public BesideWindow
{
public:
    // Fixed numbers of its controls, from above; Tab leads from the list to the text.
    static constexpr int idFiles = 2401;
    static constexpr int idHeading = 2402;  // what the text below is
    static constexpr int idText = 2403;
    static constexpr int idNote = 2404;

    /// onChoose gets the name of a file whose text is wanted. It runs while Windows' own code
    /// waits, so nothing may be raised. The code page is that of the files and must outlive this.
    PreviewWindow(const sys::CodePage& codePage, std::function<void(const std::string&)> onChoose);
    ~PreviewWindow() override { close(); }

    /// The file of which the preview has the texts; empty: none.
    void show(preview::Preview made, std::string_view name);
    /// On the line at the bottom.
    void tell(const std::string& note) { setWindowText(control(idNote), note); }
    /// The file whose text is shown; empty: none.
    const std::string& shownFile() const { return shownFile_; }

private:
    // A file as the list shows it.
    using Cells = std::vector<std::string>;

    void createControls() override;
    void resolutionChanged() override;
    void layOut() override;
    bool pressed(HWND control, WPARAM letter) override;
    LRESULT notify(const NMHDR& header) override;
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    void forget() override;

    void fill();
    void focusOn(int item);
    int focused() const;
    std::string headingOf(const preview::Preview& made, const preview::File* file) const;
    void copyFiles() const;

    const sys::CodePage& codePage_;
    std::function<void(const std::string&)> onChoose_;
    std::vector<Cells> rows_;
    std::string shownFile_;
    std::unique_ptr<DifferenceView> text_;
    bool isFilling_ = false;
};

}  // namespace window
