// The controls of the main form as plain data, with lengths in twips (1440 an inch). The window
// copies them to the screen; scripts and tests use them as they are.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace form
{

constexpr int pointerDefault = 0;
constexpr int pointerHourglass = 11;

struct Control
{
    bool Enabled = true;
    bool Visible = true;
    int MousePointer = pointerDefault;
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

struct PictureBox : Control
{};

struct ScrollBar : Control
{
    int Value = 0;
    int Max = 0;
    int LargeChange = 0;
    int SmallChange = 0;
};

struct HScrollBar : ScrollBar
{};

struct VScrollBar : ScrollBar
{};

struct Frame : Control
{
    std::string Caption;
};

struct Label : Control
{
    std::string Caption;
};

/// A label that tells how things are.
struct StatusText : Label
{};

struct Button : Control
{
    std::string Caption;
};

struct TextBox : Control
{
    std::string Text;
};

/// A drop-down list into which any other text can be typed.
struct ComboBox : Control
{
    std::vector<std::string> List;
    int ListIndex = -1;  // -1: the text is not in the list
    std::string Text;
    /// The handler of a choice; empty for a box without one.
    std::function<void()> Click;

    /// Chooses an item and runs the handler. An index beyond the list leaves the box with no
    /// selection and empty text, and runs none.
    void setListIndex(int index);
    /// Types a text and leaves the box, which runs the handler.
    void enterText(const std::string& text);
};

}  // namespace form
