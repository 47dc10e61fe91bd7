#pragma once

#include <windows.h>

#include <objidl.h>

namespace femap::com
{

/// Registered on this thread for as long as it lives: COM then asks it about calls that come in and
/// calls that are rejected. Takes every call and repeats none; who derives from it decides one of
/// the two anew. COM must be initialised before and stay so.
class MessageFilter : public IMessageFilter
{
public:
    MessageFilter();
    virtual ~MessageFilter();
    MessageFilter(const MessageFilter&) = delete;
    MessageFilter& operator=(const MessageFilter&) = delete;

    // The owner decides how long it lives, not COM.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD type, HTASK caller, DWORD elapsed,
                                               LPINTERFACEINFO info) override;
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK callee, DWORD elapsed, DWORD kind) override;
    DWORD STDMETHODCALLTYPE MessagePending(HTASK callee, DWORD elapsed, DWORD type) override;

    /// What RetryRejectedCall returns to let the call fail.
    static constexpr DWORD giveUp = static_cast<DWORD>(-1);

private:
    IMessageFilter* before_ = nullptr;
};

}  // namespace femap::com
