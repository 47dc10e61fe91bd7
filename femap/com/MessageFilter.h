// A COM message filter, registered on this thread for as long as it lives: COM asks it about
// incoming and about rejected calls. It accepts every incoming call and repeats no rejected one; a
// derived class overrides one of the two answers. COM must be initialised while it lives.
#pragma once

#include <windows.h>

#include <objidl.h>

namespace femap::com
{

class MessageFilter : public IMessageFilter
{
public:
    MessageFilter();
    virtual ~MessageFilter();
    MessageFilter(const MessageFilter&) = delete;
    MessageFilter& operator=(const MessageFilter&) = delete;

    // References are not counted: the owner decides how long it lives.
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
    IMessageFilter* previous_ = nullptr;
};

}  // namespace femap::com
