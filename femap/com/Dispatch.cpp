#include "femap/com/Dispatch.h"

#include "femap/Objects.h"
#include "femap/com/Bstr.h"
#include "system/RuntimeError.h"
#include "windows/ServerCodes.h"
#include "windows/Text.h"

#include <vector>

namespace femap::com
{

using sys::ErrorNumber;
using sys::RuntimeError;
using windows::describe;
using windows::toWide;

namespace
{

// Whether FEMAP itself gave this answer; otherwise the call did not come through. Servers tell in
// several ways that they lack a name.
bool isAnswerOfServer(HRESULT result)
{
    const auto facility = HRESULT_FACILITY(result);
    return facility != FACILITY_RPC && facility != FACILITY_WIN32;
}

// The reason that a failing call gives.
class ExceptionInfo
{
public:
    ExceptionInfo() = default;
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;
    ~ExceptionInfo()
    {
        SysFreeString(info_.bstrSource);
        SysFreeString(info_.bstrDescription);
        SysFreeString(info_.bstrHelpFile);
    }

    EXCEPINFO* address() { return &info_; }

    std::string reason(HRESULT result)
    {
        if (result != DISP_E_EXCEPTION)
            return describe(result);
        if (info_.pfnDeferredFillIn != nullptr)
            info_.pfnDeferredFillIn(&info_);
        std::string description = fromBstr(info_.bstrDescription);
        if (!description.empty())
            return description;
        return info_.wCode == 0 ? describe(info_.scode)
                                : "error " + std::to_string(info_.wCode) + " of FEMAP's";
    }

private:
    EXCEPINFO info_{};
};

}  // namespace

void letToFront(DWORD process)
{
    AllowSetForegroundWindow(process);
}

void Connection::demandAlive() const
{
    if (!alive_)
        throw ConnectionLost("FEMAP has ended or cannot be reached");
}

void Connection::learn(HRESULT result)
{
    alive_ = !windows::meansServerGone(result);
    if (!alive_)
        throw ConnectionLost("FEMAP has ended or cannot be reached: " + describe(result));
}

Dispatch::Dispatch(IDispatch* object, std::string kind, std::shared_ptr<Connection> connection)
    : object_(object), kind_(std::move(kind)), connection_(std::move(connection))
{
    if (object_ == nullptr)
        throw RuntimeError(ErrorNumber::ObjectNotSet, "FEMAP handed out no " + kind_);
}

Dispatch::Dispatch(Dispatch&& other) noexcept
    : object_(std::exchange(other.object_, nullptr)),
      kind_(std::move(other.kind_)),
      connection_(std::move(other.connection_))
{}

Dispatch::~Dispatch()
{
    if (object_ != nullptr)
        object_->Release();
}

bool Dispatch::has(const std::string& name)
{
    return find(name).has_value();
}

bool Dispatch::shows(const std::string& name)
{
    DISPID number = DISPID_UNKNOWN;
    return SUCCEEDED(lookUp(name, number));
}

Dispatch Dispatch::as(std::string kind) &&
{
    return {std::exchange(object_, nullptr), std::move(kind), connection_};
}

std::optional<std::size_t> Dispatch::placesIn(const std::string& member)
{
    const auto [known, isNew] = connection_->places.try_emplace({kind_, member});
    if (!isNew)
        return known->second;
    try {
        const std::size_t size = call(member).reals().size();
        if (size > 0)
            known->second = size;
    }
    catch (const RuntimeError&) {
        // Then nobody knows.
    }
    return known->second;
}

Dispatch Dispatch::object(const std::string& name)
{
    return adopt(call(name).takeObject(), name);
}

Dispatch Dispatch::adopt(IDispatch* object, const std::string& kind) const
{
    return {object, kind, connection_};
}

HRESULT Dispatch::lookUp(const std::string& name, DISPID& number)
{
    std::wstring wide = toWide(name);
    LPOLESTR pointer = wide.data();
    return connection_->make({kind_, name}, [&] {
        return object_->GetIDsOfNames(IID_NULL, &pointer, 1, LOCALE_SYSTEM_DEFAULT, &number);
    });
}

std::optional<DISPID> Dispatch::find(const std::string& name)
{
    auto& names = connection_->names(kind_);
    const auto known = names.find(name);
    if (known != names.end())
        return known->second;

    DISPID number = DISPID_UNKNOWN;
    const HRESULT result = lookUp(name, number);
    if (FAILED(result) && !isAnswerOfServer(result))
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "FEMAP's " + kind_ + "." + name + " failed: " + describe(result));
    return names[name] = SUCCEEDED(result) ? std::optional(number) : std::nullopt;
}

Variant Dispatch::invoke(const std::string& name, WORD flags, Variant* arguments, std::size_t count,
                         bool showsDialog)
{
    const std::optional<DISPID> number = find(name);
    if (!number)
        throw RuntimeError(ErrorNumber::NoSuchMember,
                           "FEMAP's " + kind_ + " has no member " + name);

    // Views of the arguments, the last one first as COM wants it; the callers own the values.
    std::vector<VARIANT> list(count);
    for (std::size_t i = 0; i < count; ++i)
        list[count - 1 - i] = *arguments[i].raw();
    DISPID putName = DISPID_PROPERTYPUT;
    const bool isPut = flags == DISPATCH_PROPERTYPUT;
    DISPPARAMS parameters{list.data(), isPut ? &putName : nullptr, static_cast<UINT>(count),
                          isPut ? 1U : 0U};
    Variant returned;
    ExceptionInfo exception;
    UINT wrongArgument = 0;
    const HRESULT result = connection_->make({kind_, name, showsDialog}, [&] {
        return object_->Invoke(*number, IID_NULL, LOCALE_SYSTEM_DEFAULT, flags, &parameters,
                               isPut ? nullptr : returned.raw(), exception.address(),
                               &wrongArgument);
    });
    if (FAILED(result))
        throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP's " + kind_ + "." + name +
                                                          " failed: " + exception.reason(result));
    return returned;
}

}  // namespace femap::com
