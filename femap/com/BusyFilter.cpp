#include "femap/com/BusyFilter.h"

namespace femap::com
{

// Windows calls this before a rejected call returns to its caller. Wine 8 never does: there the
// call returns RPC_E_CALL_REJECTED, and RetryPolicy::whileBusy makes it again, as it does when
// FEMAP itself returns such a result.
DWORD BusyFilter::RetryRejectedCall(HTASK, DWORD, DWORD)
{
    const std::optional<RetryPolicy::Duration> pause = retryPolicy_.rejected();
    return pause ? static_cast<DWORD>(pause->count()) : giveUp;
}

}  // namespace femap::com
