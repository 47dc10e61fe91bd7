#include "standin/IncomingCallFilter.h"

#include "standin/Server.h"

namespace standin
{

// Not SERVERCALL_RETRYLATER: Wine carries such a call out all the same.
DWORD IncomingCallFilter::HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO)
{
    if (server_.rejectFor <= 0)
        return SERVERCALL_ISHANDLED;
    --server_.rejectFor;
    return SERVERCALL_REJECTED;
}

}  // namespace standin
