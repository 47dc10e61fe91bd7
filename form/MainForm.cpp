#include "form/MainForm.h"

#include <algorithm>

namespace form
{

MainForm::MainForm()
{
    for (const ControlRow& row : controlTable) {
        const auto take = [&](auto member) {
            auto& control = this->*member;
            if constexpr (requires { control.Caption; })
                control.Caption = row.caption;
            if constexpr (requires { control.List; })
                control.List.assign(row.items.begin(), row.items.end());
            controls_.push_back({row, &control});
        };
        std::visit(take, row.member);
    }
}

const NamedControl& MainForm::named(const Control& control) const
{
    return *std::ranges::find(controls_, &control, &NamedControl::control);
}

void MainForm::setMousePointers(int pointer)
{
    for (const NamedControl& each : controls_)
        each.control->MousePointer = pointer;
    if (pointersChanged)
        pointersChanged();
}

void MainForm::setEnabled(bool enabled)
{
    for (const NamedControl& each : controls_)
        each.control->Enabled = enabled;
}

}  // namespace form
