// The table of the form's events and the procedures that they run.
#pragma once

#include "app/Session.h"
#include "form/Event.h"

#include <span>

namespace app
{

/// What a procedure that the engineer starts may do with rows.
enum class WithRows
{
    Nothing,
    TakesAway,
    TakesAwayAndAdds,
    ReadsAgain,
};

struct Binding
{
    form::Event event;
    /// The argument is the key code or the code of FEMAP's event; else 0.
    void (*procedure)(Session& session, int argument) = nullptr;
    /// The procedure can do nothing without FEMAP.
    bool needsFemap = false;
    WithRows withRows = WithRows::Nothing;
};

std::span<const Binding> bindings();

/// Null when there is no such event.
const Binding* findBinding(const form::Event& event);

/// Gives the combo boxes their handlers. A choice that a procedure makes itself runs the handler
/// within that procedure.
void bindComboBoxes(Session& session);

/// The event that stands for FEMAP's event message.
constexpr form::Event femapEvent{"", form::What::FemapMessage};

}  // namespace app
