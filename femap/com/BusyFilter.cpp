#include "femap/com/BusyFilter.h"

#include <objbase.h>

namespace femap::com
{

BusyFilter::BusyFilter(Patience& patience) : patience_(patience)
{
    // Without the filter the calls themselves are still repeated.
    if (FAILED(CoRegisterMessageFilter(this, &before_)))
        before_ = nullptr;
}

BusyFilter::~BusyFilter()
{
    CoRegisterMessageFilter(before_, nullptr);
    if (before_ != nullptr)
        before_->Release();
}

HRESULT BusyFilter::QueryInterface(REFIID id, void** object)
{
    const bool isKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IMessageFilter);
    *object = isKnown ? static_cast<IMessageFilter*>(this) : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
}

DWORD BusyFilter::HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO)
{
    return SERVERCALL_ISHANDLED;
}

// Windows asks here before a rejected call comes back to its caller. Wine 8 never does: there the
// call ends with RPC_E_CALL_REJECTED, and Patience::whileBusy makes it again. The same way goes a
// call that FEMAP itself answers with such a result.
DWORD BusyFilter::RetryRejectedCall(HTASK, DWORD, DWORD)
{
    constexpr DWORD giveUp = static_cast<DWORD>(-1);
    const std::optional<Patience::Duration> pause = patience_.rejected();
    return pause ? static_cast<DWORD>(pause->count()) : giveUp;
}

DWORD BusyFilter::MessagePending(HTASK, DWORD, DWORD)
{
    return PENDINGMSG_WAITDEFPROCESS;
}

}  // namespace femap::com
