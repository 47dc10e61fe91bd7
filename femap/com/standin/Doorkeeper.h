#pragma once

#include "femap/com/MessageFilter.h"

namespace femap::com::standin
{

class Server;

/// Decides for COM whether a call comes in. A FEMAP that is at work rejects calls in this way,
/// before any of its objects sees them.
class Doorkeeper : public MessageFilter
{
public:
    explicit Doorkeeper(Server& server) : server_(server) {}

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD type, HTASK caller, DWORD elapsed,
                                               LPINTERFACEINFO info) override;

private:
    Server& server_;
};

}  // namespace femap::com::standin
