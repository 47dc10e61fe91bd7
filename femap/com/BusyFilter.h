#pragma once

#include "femap/com/MessageFilter.h"
#include "femap/com/Patience.h"

namespace femap::com
{

/// Has COM repeat a call that a busy FEMAP rejected, as long as the patience lasts.
class BusyFilter : public MessageFilter
{
public:
    /// patience must outlive the filter.
    explicit BusyFilter(Patience& patience) : patience_(patience) {}

    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK callee, DWORD elapsed, DWORD kind) override;

private:
    Patience& patience_;
};

}  // namespace femap::com
