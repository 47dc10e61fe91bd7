#include "femap/com/BusyFilter.h"

namespace femap::com
{

// Windows asks here before a rejected call comes back to its caller. Wine 8 never does: there the
// call ends with RPC_E_CALL_REJECTED, and Patience::whileBusy makes it again. The same way goes a
// call that FEMAP itself answers with such a result.
DWORD BusyFilter::RetryRejectedCall(HTASK, DWORD, DWORD)
{
    const std::optional<Patience::Duration> pause = patience_.rejected();
    return pause ? static_cast<DWORD>(pause->count()) : giveUp;
}

}  // namespace femap::com
