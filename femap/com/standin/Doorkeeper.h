#pragma once

#include <windows.h>

#include <objidl.h>

namespace femap::com::standin
{

class Server;

/// Decides for COM whether a call comes in. A FEMAP that is at work rejects calls in this way,
/// before any of its objects sees them. Registered on this thread for as long as it lives.
class Doorkeeper : public IMessageFilter
{
public:
    explicit Doorkeeper(Server& server);
    virtual ~Doorkeeper();
    Doorkeeper(const Doorkeeper&) = delete;
    Doorkeeper& operator=(const Doorkeeper&) = delete;

    // The owner decides how long it lives, not COM.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD type, HTASK caller, DWORD elapsed,
                                               LPINTERFACEINFO info) override;
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK callee, DWORD elapsed, DWORD kind) override;
    DWORD STDMETHODCALLTYPE MessagePending(HTASK callee, DWORD elapsed, DWORD type) override;

private:
    Server& server_;
};

}  // namespace femap::com::standin
