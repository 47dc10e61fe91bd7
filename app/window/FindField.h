// The field in which a name is looked for: a line below one of the lists, there while it is used.
#pragma once

#include "app/window/Controls.h"
#include "form/ParameterGrid.h"

#include <windows.h>

#include <string>

namespace window
{

class FindField
{
public:
    /// It takes so much of the list's height, in twips.
    static constexpr int height = 390;
    static constexpr int idLabel = 1101;  // beyond those of the form's controls
    static constexpr int idText = 1102;

    // What WM_COMMAND tells the parent of the field beside Windows' own: the keys Enter and Esc.
    static constexpr int entered = 1;
    static constexpr int left = 2;

    /// Its windows; they are not shown yet.
    void create(HWND parent);
    HWND labelWindow() const { return label_; }
    HWND textWindow() const { return text_; }
    /// Where they are, in twips, as of the form's controls.
    const form::Control& labelPlace() const { return labelPlace_; }
    const form::Control& textPlace() const { return textPlace_; }

    std::string text() const { return windowText(text_); }
    /// The list that it is for; null while it is not there.
    form::ParameterGrid* list() const { return list_; }
    /// Shows it for the list, which has this window, and gives it the focus.
    void open(form::ParameterGrid& list, HWND window);
    void close();
    /// Takes the last line of its list's place.
    void layOut();

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR data);
    void show(bool isShown) const;

    HWND label_ = nullptr;
    HWND text_ = nullptr;
    form::Control labelPlace_;
    form::Control textPlace_;
    form::ParameterGrid* list_ = nullptr;
};

}  // namespace window
