// Has COM repeat a call that a busy FEMAP rejected, until the retry policy gives up.
#pragma once

#include "femap/com/MessageFilter.h"
#include "femap/com/RetryPolicy.h"

namespace femap::com
{

class BusyFilter : public MessageFilter
{
public:
    /// retryPolicy must outlive the filter.
    explicit BusyFilter(RetryPolicy& retryPolicy) : retryPolicy_(retryPolicy) {}

    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK callee, DWORD elapsed, DWORD kind) override;

private:
    RetryPolicy& retryPolicy_;
};

}  // namespace femap::com
