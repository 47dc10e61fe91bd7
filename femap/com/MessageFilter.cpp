#include "femap/com/MessageFilter.h"

#include <objbase.h>

namespace femap::com
{

MessageFilter::MessageFilter()
{
    // When this fails, COM answers by itself and RetryPolicy still repeats rejected calls.
    if (FAILED(CoRegisterMessageFilter(this, &previous_)))
        previous_ = nullptr;
}

MessageFilter::~MessageFilter()
{
    CoRegisterMessageFilter(previous_, nullptr);
    if (previous_ != nullptr)
        previous_->Release();
}

HRESULT MessageFilter::QueryInterface(REFIID id, void** object)
{
    const bool isKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IMessageFilter);
    *object = isKnown ? static_cast<IMessageFilter*>(this) : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
}

DWORD MessageFilter::HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO)
{
    return SERVERCALL_ISHANDLED;
}

DWORD MessageFilter::RetryRejectedCall(HTASK, DWORD, DWORD)
{
    return giveUp;
}

DWORD MessageFilter::MessagePending(HTASK, DWORD, DWORD)
{
    return PENDINGMSG_WAITDEFPROCESS;
}

}  // namespace femap::com
