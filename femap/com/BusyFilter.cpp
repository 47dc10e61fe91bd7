#include "femap/com/BusyFilter.h"

namespace femap::com
{

namespace
{

constexpr DWORD wakePeriod = 250;                               // milliseconds
constexpr LONGLONG firstWake = -10'000 * LONGLONG{wakePeriod};  // from now on, in 100 ns

}  // namespace

// While a call waits for its answer, COM asks MessagePending when a message arrives. So that one
// does, a thread of Windows' posts one four times a second. Wine 8 gives up an abandoned call only
// when its answer comes.
BusyFilter::BusyFilter(RetryPolicy& retryPolicy)
    : retryPolicy_(retryPolicy),
      thread_(GetCurrentThreadId()),
      timer_(CreateThreadpoolTimer(wake, this, nullptr))
{
    if (timer_ == nullptr)
        return;  // other messages have to do
    ULARGE_INTEGER due{};
    due.QuadPart = static_cast<ULONGLONG>(firstWake);
    FILETIME time{due.LowPart, due.HighPart};
    SetThreadpoolTimer(timer_, &time, wakePeriod, 0);
}

BusyFilter::~BusyFilter()
{
    if (timer_ == nullptr)
        return;
    SetThreadpoolTimer(timer_, nullptr, 0, 0);
    WaitForThreadpoolTimerCallbacks(timer_, TRUE);
    CloseThreadpoolTimer(timer_);
}

void CALLBACK BusyFilter::wake(PTP_CALLBACK_INSTANCE, void* filter, PTP_TIMER)
{
    const auto* const self = static_cast<const BusyFilter*>(filter);
    if (self->retryPolicy_.isCalling())
        PostThreadMessageW(self->thread_, WM_NULL, 0, 0);
}

DWORD BusyFilter::MessagePending(HTASK, DWORD, DWORD)
{
    return retryPolicy_.pending() ? PENDINGMSG_CANCELCALL : PENDINGMSG_WAITDEFPROCESS;
}

// Windows calls this before a rejected call returns to its caller. Wine 8 never does: there the
// call returns RPC_E_CALL_REJECTED, and RetryPolicy::whileBusy makes it again, as it does when
// FEMAP itself returns such a result.
DWORD BusyFilter::RetryRejectedCall(HTASK, DWORD, DWORD)
{
    const std::optional<RetryPolicy::Duration> pause = retryPolicy_.rejected();
    return pause ? static_cast<DWORD>(pause->count()) : giveUp;
}

}  // namespace femap::com
