// Has COM repeat a call that a busy FEMAP rejected, until the retry policy gives up, and tells that
// policy of a call that FEMAP has taken and not answered yet.
#pragma once

#include "femap/com/MessageFilter.h"
#include "femap/com/RetryPolicy.h"

namespace femap::com
{

class BusyFilter : public MessageFilter
{
public:
    /// retryPolicy must outlive the filter.
    explicit BusyFilter(RetryPolicy& retryPolicy);
    ~BusyFilter() override;

    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK callee, DWORD elapsed, DWORD kind) override;
    DWORD STDMETHODCALLTYPE MessagePending(HTASK callee, DWORD elapsed, DWORD type) override;

private:
    static void CALLBACK wake(PTP_CALLBACK_INSTANCE, void* filter, PTP_TIMER);

    RetryPolicy& retryPolicy_;
    DWORD thread_;
    PTP_TIMER timer_;
};

}  // namespace femap::com
