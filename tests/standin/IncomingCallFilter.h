// Decides for COM whether a call comes in. A FEMAP at work rejects calls in this way.
#pragma once

#include "femap/com/MessageFilter.h"

namespace standin
{

class Server;

class IncomingCallFilter : public femap::com::MessageFilter
{
public:
    explicit IncomingCallFilter(Server& server) : server_(server) {}

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD type, HTASK caller, DWORD elapsed,
                                               LPINTERFACEINFO info) override;

private:
    Server& server_;
};

}  // namespace standin
