// femap-standin.exe: a COM server that takes the place of FEMAP on a machine without FEMAP.
#include "femap/com/Apartment.h"
#include "standin/ApplicationObject.h"
#include "standin/IncomingCallFilter.h"
#include "standin/Registration.h"
#include "standin/SelectionWindow.h"
#include "standin/Server.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <windows.h>

#include <cstdio>
#include <exception>
#include <oleauto.h>
#include <string>

namespace
{

using femap::com::Apartment;
using standin::ApplicationObject;
using windows::describe;
using windows::fromWide;

constexpr const char* usage =
    R"text(usage: femap-standin [--classic|--modern] [--model FILE] [--calls FILE] [--no-rot]
       femap-standin /regserver | /unregserver

Takes the place of FEMAP ("femap.model") until it is told to quit.

  --classic       as FEMAP was before 2020.1
  --modern        as it is since then (the default)
  --model FILE    open this neutral file
  --calls FILE    write each call to this file
  --no-rot        run without being found by those who attach
  /regserver      register for good, so that COM can start it
  /unregserver    take the registration away
)text";

struct Options
{
    bool isClassic = false;
    bool isFound = true;
    bool wasStartedByCOM = false;
    bool registers = false;
    bool unregisters = false;
    std::string model;
    std::string calls;
};

// False when the arguments make no sense.
bool parse(int argc, wchar_t* argv[], Options& options)
{
    for (int i = 1; i < argc; ++i) {
        const std::string argument = fromWide(argv[i]);
        const bool hasNext = i + 1 < argc;
        if (argument == "--classic")
            options.isClassic = true;
        else if (argument == "--modern")
            options.isClassic = false;
        else if (argument == "--no-rot")
            options.isFound = false;
        else if (argument == "-Embedding" || argument == "/Embedding")
            options.wasStartedByCOM = true;
        else if (argument == "/regserver")
            options.registers = true;
        else if (argument == "/unregserver")
            options.unregisters = true;
        else if (argument == "--model" && hasNext)
            options.model = fromWide(argv[++i]);
        else if (argument == "--calls" && hasNext)
            options.calls = fromWide(argv[++i]);
        else
            return false;
    }
    return true;
}

// COM starts a server without arguments; environment variables stand for them.
void readEnvironment(Options& options)
{
    const auto variable = [](const wchar_t* name) {
        const wchar_t* const value = _wgetenv(name);
        return value == nullptr ? std::string() : fromWide(value);
    };
    options.isClassic = variable(L"FEMAP_STANDIN_GENERATION") == "classic";
    options.model = variable(L"FEMAP_STANDIN_MODEL");
    options.calls = variable(L"FEMAP_STANDIN_CALLS");
}

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
    Announcement(ApplicationObject& application, const Options& options)
        : application_(application), factory_(application)
    {
        demand(CoRegisterClassObject(standin::standinClass, &factory_, CLSCTX_LOCAL_SERVER,
                                     REGCLS_MULTIPLEUSE, &class_),
               "The class cannot be offered");
        if (options.isFound)
            demand(RegisterActiveObject(
                       &application, standin::standinClass,
                       options.wasStartedByCOM ? ACTIVEOBJECT_WEAK : ACTIVEOBJECT_STRONG, &active_),
                   "The object cannot be offered");
    }
    ~Announcement()
    {
        revoke();
        CoDisconnectObject(&application_, 0);
    }
    Announcement(const Announcement&) = delete;
    Announcement& operator=(const Announcement&) = delete;

    void revoke()
    {
        if (active_ != 0)
            RevokeActiveObject(active_, nullptr);
        CoRevokeClassObject(class_);
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
    standin::Registration registration_;
    bool isTemporary_;
};

void serve(const Options& options)
{
    const OwnRegistration registration;
    standin::Server server(options.isClassic);
    server.selections.ask = standin::selectionWindow(server);
    if (!options.calls.empty())
        server.recordTo(options.calls);
    if (!options.model.empty())
        server.host.openNeutralFile(options.model);

    const standin::IncomingCallFilter callFilter(server);
    ApplicationObject application(server);
    {
        Announcement announcement(application, options);
        server.beforeDeath = [&] {
            announcement.revoke();
            registration.remove();
        };
        if (options.wasStartedByCOM)
            application.endWithLastClient();
        std::puts("ready");
        static_cast<void>(std::fflush(stdout));  // does not matter when nobody reads it
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

int run(const Options& options)
{
    SetProcessDPIAware();
    const Apartment apartment;
    if (options.registers)
        standin::Registration().add();
    else if (options.unregisters)
        standin::Registration().remove();
    else
        serve(options);
    return EXIT_SUCCESS;
}

}  // namespace

int wmain(int argc, wchar_t* argv[])
{
    try {
        Options options;
        if (!parse(argc, argv, options)) {
            static_cast<void>(std::fputs(usage, stderr));
            return 2;
        }
        if (options.wasStartedByCOM)
            readEnvironment(options);
        return run(options);
    }
    catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "femap-standin: %s\n", error.what()));
        return EXIT_FAILURE;
    }
}
