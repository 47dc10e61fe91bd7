// The table of the form's events and the procedures that they run.
#pragma once

#include "app/Session.h"

#include <span>
#include <string_view>

namespace app
{

struct Binding
{
    /// Control and event, such as "InputsButton_Click".
    std::string_view event;
    /// The argument is the key code or the code of FEMAP's event; else 0.
    void (*procedure)(Session& session, int argument);
    /// The procedure can do nothing without FEMAP.
    bool needsFemap;
    /// While another procedure runs, the event waits until it has ended. Others are dropped.
    bool waits;
    /// What the event does to the messages of former actions on the status line.
    enum class Messages
    {
        Stay,
        Go,
        GoOnDelete,  // when the argument is the Delete key
    } messages;

    /// The name of the control.
    std::string_view control() const { return event.substr(0, event.rfind('_')); }
};

std::span<const Binding> bindings();

/// Null when there is no such event.
const Binding* findBinding(std::string_view event);

/// Gives the combo boxes their handlers. A choice that a procedure makes itself runs the handler
/// within that procedure.
void bindComboBoxes(Session& session);

/// The event that stands for FEMAP's event message.
constexpr std::string_view femapEvent = "FE_EVENT_MESSAGE";

}  // namespace app
