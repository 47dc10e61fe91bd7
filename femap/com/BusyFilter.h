#pragma once

#include "femap/com/Patience.h"

#include <windows.h>

#include <objidl.h>

namespace femap::com
{

/// Registered on this thread for as long as it lives: COM then asks it what to do with a call that
/// a busy FEMAP rejected. COM must be initialised before and stay so.
class BusyFilter : public IMessageFilter
{
public:
    /// patience must outlive the filter.
    explicit BusyFilter(Patience& patience);
    virtual ~BusyFilter();
    BusyFilter(const BusyFilter&) = delete;
    BusyFilter& operator=(const BusyFilter&) = delete;

    // The owner decides how long it lives, not COM.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD type, HTASK caller, DWORD elapsed,
                                               LPINTERFACEINFO info) override;
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK callee, DWORD elapsed, DWORD kind) override;
    DWORD STDMETHODCALLTYPE MessagePending(HTASK callee, DWORD elapsed, DWORD type) override;

private:
    Patience& patience_;
    IMessageFilter* before_ = nullptr;
};

}  // namespace femap::com
