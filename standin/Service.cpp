#include "standin/Service.h"

#include "standin/ApplicationObject.h"
#include "standin/Registration.h"
#include "standin/Server.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <windows.h>

#include <cstdio>
#include <oleauto.h>
#include <string>
#include <utility>

namespace standin
{

using windows::describe;

namespace
{

// Gives clients that create a FEMAP the same application as those that attach.
class Factory : public IClassFactory
{
public:
    explicit Factory(ApplicationObject& application) : application_(application) {}
    virtual ~Factory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool isKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
        *object = isKnown ? static_cast<IClassFactory*>(this) : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    // References are not counted: it lives as long as its Announcement.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override
    {
        return outer == nullptr ? application_.QueryInterface(id, object) : CLASS_E_NOAGGREGATION;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    ApplicationObject& application_;
};

void demand(HRESULT result, const std::string& what)
{
    if (FAILED(result))
        throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, what + ": " + describe(result));
}

// Announces the server to COM; withdraws that when it is destroyed.
class Announcement
{
public:
    Announcement(ApplicationObject& application, const Offer& offer)
        : application_(application), factory_(application)
    {
        demand(CoRegisterClassObject(standinClass, &factory_, CLSCTX_LOCAL_SERVER,
                                     REGCLS_MULTIPLEUSE, &class_),
               "The class cannot be offered");
        if (offer.isFound && offer.foundAfter == 0)
            letFind(offer);
    }
    ~Announcement()
    {
        revoke();
        CoDisconnectObject(&application_, 0);
    }
    Announcement(const Announcement&) = delete;
    Announcement& operator=(const Announcement&) = delete;

    /// From now on those who attach find the application.
    void letFind(const Offer& offer)
    {
        demand(RegisterActiveObject(&application_, standinClass,
                                    offer.wasStartedByCOM ? ACTIVEOBJECT_WEAK : ACTIVEOBJECT_STRONG,
                                    &active_),
               "The object cannot be offered");
    }

    void revoke()
    {
        if (active_ != 0)
            RevokeActiveObject(active_, nullptr);
        withdrawClass();
    }

    void withdrawClass()
    {
        if (class_ != 0)
            CoRevokeClassObject(std::exchange(class_, 0));
    }

private:
    ApplicationObject& application_;
    Factory factory_;
    DWORD class_ = 0;
    DWORD active_ = 0;
};

// Registers femap.model for this run, unless it is registered for good.
class OwnRegistration
{
public:
    OwnRegistration() : isTemporary_(!registration_.isThere())
    {
        if (isTemporary_)
            registration_.add();
    }
    ~OwnRegistration() { remove(); }
    OwnRegistration(const OwnRegistration&) = delete;
    OwnRegistration& operator=(const OwnRegistration&) = delete;

    void remove() const
    {
        if (isTemporary_)
            registration_.remove();
    }

private:
    Registration registration_;
    bool isTemporary_;
};

}  // namespace

void serve(Server& server, ApplicationObject& application, const Offer& offer)
{
    const OwnRegistration registration;
    Announcement announcement(application, offer);
    server.beforeDeath = [&] {
        announcement.revoke();
        registration.remove();
    };
    server.withdrawClass = [&] { announcement.withdrawClass(); };
    if (offer.wasStartedByCOM)
        application.endWithLastClient();
    std::puts("ready");
    static_cast<void>(std::fflush(stdout));  // does not matter when nobody reads it
    const UINT_PTR late =
        offer.foundAfter > 0 ? SetTimer(nullptr, 0, offer.foundAfter, nullptr) : 0;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (late != 0 && message.message == WM_TIMER && message.wParam == late) {
            KillTimer(nullptr, late);
            announcement.letFind(offer);
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace standin
