#include "standin/Object.h"

#include "femap/com/Bstr.h"
#include "standin/Arrays.h"
#include "standin/Server.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

namespace standin
{

using femap::com::toBstr;
using windows::fromWide;

namespace
{

// The source that every error names.
constexpr std::string_view source = "femap-standin";

HRESULT fail(EXCEPINFO* exception, const std::string& description)
{
    if (exception == nullptr)
        return DISP_E_EXCEPTION;
    *exception = {};
    exception->bstrSource = toBstr(source);
    exception->bstrDescription = toBstr(description);
    exception->scode = E_FAIL;
    return DISP_E_EXCEPTION;
}

[[noreturn]] void refuse()
{
    throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "was told to raise here");
}

bool isControl(const library::Member& member)
{
    return member.name.starts_with("standin");
}

}  // namespace

Object::Object(Server& server, std::string_view kind) : server_(server), kind_(kind)
{
    ++server_.objectCount;
}

Object::~Object()
{
    --server_.objectCount;
}

HRESULT Object::QueryInterface(REFIID id, void** object)
{
    if (object == nullptr)
        return E_POINTER;
    const bool isKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch);
    *object = isKnown ? static_cast<IDispatch*>(this) : nullptr;
    if (!isKnown)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG Object::Release()
{
    const ULONG left = --references_;
    if (left == 0)
        unreferenced();
    return left;
}

HRESULT Object::GetTypeInfoCount(UINT* count)
{
    if (count == nullptr)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

// A newer FEMAP may have what it replaced, too.
template <class Matches>
std::optional<Object::Found> Object::findMember(const Matches& matches) const
{
    const std::optional<Found> found = findOf(server_.version(), matches);
    if (found || !server_.hasSuperseded())
        return found;
    return findOf(library::old, [&](const library::Member& member) {
        return matches(member) && isSuperseded(member);
    });
}

bool Object::isSuperseded(const library::Member& member) const
{
    return library::find(declared(), member.name, server_.version()) == nullptr;
}

template <class Matches>
std::optional<Object::Found> Object::findOf(unsigned version, const Matches& matches) const
{
    for (const library::Member& member : declared()) {
        if ((member.versions & version) == 0 || !matches(member))
            continue;
        const std::optional<std::size_t> row = rowOf(member.name);
        if (row && faultOf(nameOf(*row)) != Fault::Missing)
            return Found{&member, *row};
    }
    return std::nullopt;
}

std::optional<std::size_t> Object::rowOf(std::string_view name) const
{
    for (std::size_t row = 0; row < memberCount(); ++row)
        if (femap::isSameName(nameOf(row), name))
            return row;
    return std::nullopt;
}

std::optional<Fault> Object::faultOf(std::string_view member) const
{
    return server_.faults.of(kind_, member);
}

// Serves a member, with the fault that a test gave it and the ways of this FEMAP.
Variant Object::serveAsTold(const Found& member, Arguments& arguments)
{
    const std::optional<Fault> fault = faultOf(arguments.member());
    if (fault == Fault::Fails)
        return static_cast<int>(ReturnCode::Fail);
    if (fault == Fault::Ignored && member.declaration->kind == library::Kind::Method)
        return static_cast<int>(ReturnCode::Ok);
    if (fault == Fault::Raises)
        refuse();
    if (fault == Fault::Stalls)
        server_.stall();
    Variant returned = serve(member.row, arguments);
    if (fault) {
        spoil(*returned.raw(), *fault);
        for (VARIANT* const filled : arguments.filled())
            spoil(*filled, *fault);
    }
    if (fault == Fault::Dies)
        server_.die();
    reshapeAll(returned, arguments);
    return returned;
}

// The same for a property that is written.
void Object::putAsTold(std::size_t row, Arguments& arguments)
{
    const std::optional<Fault> fault = faultOf(arguments.member());
    if (fault == Fault::Raises || fault == Fault::Refused)
        refuse();
    if (fault == Fault::Stalls)
        server_.stall();
    if (fault != Fault::Ignored)
        put(row, arguments);
    if (fault == Fault::Dies)
        server_.die();
}

void Object::reshapeAll(Variant& returned, Arguments& arguments) const
{
    reshape(*returned.raw(), server_.modes, returnsColumns());
    for (VARIANT* const filled : arguments.filled())
        reshape(*filled, server_.modes, returnsColumns());
}

HRESULT Object::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers)
{
    if (names == nullptr || numbers == nullptr || count == 0)
        return E_INVALIDARG;
    const std::string name = fromWide(names[0]);
    for (UINT i = 0; i < count; ++i)
        numbers[i] = DISPID_UNKNOWN;
    const std::optional<Found> found = findMember(
        [&](const library::Member& member) { return femap::isSameName(member.name, name); });
    if (found)
        numbers[0] = found->declaration->number;
    // FEMAP's members take no named arguments, whose names would follow.
    return numbers[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT Object::Invoke(DISPID number, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                       VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument)
{
    if (parameters == nullptr)
        return E_INVALIDARG;
    const std::optional<Found> member =
        findMember([&](const library::Member& one) { return one.number == number; });
    if (!member)
        return DISP_E_MEMBERNOTFOUND;
    if (!isControl(*member->declaration)) {
        const Admission admission = server_.admit();
        if (admission == Admission::Busy)
            return RPC_E_SERVERCALL_RETRYLATER;
        if (admission == Admission::Fails)
            return fail(exception, "FEMAP was told to fail here");
        if (isSuperseded(*member->declaration))
            server_.supersededCalls.push_back(std::string(kind_) + '.' +
                                              std::string(nameOf(member->row)));
    }
    AddRef();  // the call may give back the last reference
    const HRESULT code = call(*member, flags, *parameters, result, exception, wrongArgument);
    Release();
    return code;
}

HRESULT Object::call(const Found& member, WORD flags, DISPPARAMS& parameters, VARIANT* result,
                     EXCEPINFO* exception, UINT* wrongArgument)
{
    const bool isMethod = member.declaration->kind == library::Kind::Method;
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const WORD needed = isMethod ? DISPATCH_METHOD : DISPATCH_PROPERTYGET;
    if (isPut ? !canBePut(member.row) : (flags & needed) == 0)
        return DISP_E_MEMBERNOTFOUND;
    if (parameters.cNamedArgs != (isPut ? 1U : 0U) ||
        (isPut && parameters.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT))
        return DISP_E_NONAMEDARGS;
    std::string types(member.declaration->arguments);
    if (isPut)
        types += member.declaration->returned;
    if (parameters.cArgs != types.size())
        return DISP_E_BADPARAMCOUNT;

    Arguments arguments(nameOf(member.row));
    for (std::size_t i = 0; i < parameters.cArgs; ++i) {
        const UINT index = parameters.cArgs - 1 - static_cast<UINT>(i);  // the last comes first
        if (arguments.take(parameters.rgvarg[index], types[i], server_.modes))
            continue;
        if (wrongArgument != nullptr)
            *wrongArgument = index;
        return DISP_E_TYPEMISMATCH;
    }
    return carryOut(member, isPut, arguments, result, exception);
}

HRESULT Object::carryOut(const Found& member, bool isPut, Arguments& arguments, VARIANT* result,
                         EXCEPINFO* exception)
{
    const std::string call =
        std::string(kind_) + '.' + std::string(arguments.member()) + '(' + arguments.shown() + ')';
    try {
        Variant returned;
        if (isPut)
            putAsTold(member.row, arguments);
        else
            returned = serveAsTold(member, arguments);
        server_.record(call + " = " + (isPut ? "put" : shown(*returned.raw())));
        if (result != nullptr)
            std::swap(*result, *returned.raw());
        return S_OK;
    }
    catch (const sys::RuntimeError& error) {
        server_.record(call + " raised " + error.description());
        return fail(exception, error.description());
    }
    catch (const std::exception& error) {  // nothing may leave through COM
        server_.record(call + " failed: " + error.what());
        return fail(exception, error.what());
    }
}

}  // namespace standin
