// What happens in the form, as a value: which control, and what happens to it.
#pragma once

#include <string>
#include <string_view>

namespace form
{

enum class What
{
    Click,         // of a button, or a choice in a box
    SelectedRows,  // the work of a button, on the selected rows alone
    KeyDown,
    Change,
    Resize,
    FemapMessage,
};

struct Event
{
    std::string_view control;  // its name, or "Form"; empty for FEMAP's message
    What what;

    /// Whether the engineer does it.
    bool isByHand() const
    {
        return what == What::Click || what == What::SelectedRows || what == What::KeyDown;
    }
    bool operator==(const Event&) const = default;
    /// As procedures and logs name it, such as "InputsButton_Click".
    std::string text() const;
};

constexpr Event click(std::string_view control)
{
    return {control, What::Click};
}

}  // namespace form
