#include "femap/com/standin/Doorkeeper.h"

#include "femap/com/standin/Server.h"

namespace femap::com::standin
{

// Wine carries out a call that is to be retried later, so this one says "rejected".
DWORD Doorkeeper::HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO)
{
    if (server_.rejectFor <= 0)
        return SERVERCALL_ISHANDLED;
    --server_.rejectFor;
    return SERVERCALL_REJECTED;
}

}  // namespace femap::com::standin
