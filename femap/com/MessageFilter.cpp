#include "femap/com/MessageFilter.h"

#include <objbase.h>

namespace femap::com
{

MessageFilter::MessageFilter()
{
    // Without a filter COM has answers of its own, and rejected calls are still repeated.
    if (FAILED(CoRegisterMessageFilter(this, &before_)))
        before_ = nullptr;
}

MessageFilter::~MessageFilter()
{
    CoRegisterMessageFilter(before_, nullptr);
    if (before_ != nullptr)
        before_->Release();
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
