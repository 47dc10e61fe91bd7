// Messages that another thread sends keep it waiting, and as long as it waits COM refuses every
// call. What needs FEMAP is then done later, on a message that the main window posts to itself.
#pragma once

#include <windows.h>

namespace window
{

// What the main window posts to itself.
constexpr UINT femapEventMessage = WM_APP + 1;  // with the event's code
constexpr UINT takeTextsMessage = WM_APP + 2;

/// Whether the message that is handled now keeps its sender waiting.
inline bool senderWaits()
{
    return (InSendMessageEx(nullptr) & (ISMEX_SEND | ISMEX_REPLIED)) == ISMEX_SEND;
}

}  // namespace window
