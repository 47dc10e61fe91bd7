#include "femap/com/standin/Doorkeeper.h"

#include "femap/com/standin/Server.h"

#include <objbase.h>

namespace femap::com::standin
{

Doorkeeper::Doorkeeper(Server& server) : server_(server)
{
    CoRegisterMessageFilter(this, nullptr);
}

Doorkeeper::~Doorkeeper()
{
    CoRegisterMessageFilter(nullptr, nullptr);
}

HRESULT Doorkeeper::QueryInterface(REFIID id, void** object)
{
    const bool isKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IMessageFilter);
    *object = isKnown ? static_cast<IMessageFilter*>(this) : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
}

// Wine carries out a call that is to be retried later, so this one says "rejected".
DWORD Doorkeeper::HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO)
{
    if (server_.rejectFor <= 0)
        return SERVERCALL_ISHANDLED;
    --server_.rejectFor;
    return SERVERCALL_REJECTED;
}

// The stand-in calls nobody.
DWORD Doorkeeper::RetryRejectedCall(HTASK, DWORD, DWORD)
{
    return static_cast<DWORD>(-1);
}

DWORD Doorkeeper::MessagePending(HTASK, DWORD, DWORD)
{
    return PENDINGMSG_WAITDEFPROCESS;
}

}  // namespace femap::com::standin
