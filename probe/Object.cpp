#include "probe/Object.h"

#include "probe/Codes.h"
#include "windows/ServerCodes.h"
#include "windows/Text.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

namespace probe
{

namespace
{

constexpr HRESULT busyResults[] = {RPC_E_CALL_REJECTED, RPC_E_SERVERCALL_RETRYLATER,
                                   RPC_E_SERVERCALL_REJECTED};
constexpr int mostTries = 300;
constexpr DWORD pauseOfBusy = 100;  // milliseconds

bool meansBusy(HRESULT result)
{
    return std::ranges::find(busyResults, result) != std::end(busyResults);
}

BSTR toBstr(const std::string& text)
{
    const std::wstring wide = windows::toWide(text);
    return SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

std::string takeText(BSTR text)
{
    std::string result;
    if (text != nullptr)
        result = windows::fromWide({text, SysStringLen(text)});
    SysFreeString(text);
    return result;
}

template <class Number>
void fill(VARIANT& variant, VARTYPE type, const std::vector<Number>& numbers)
{
    SAFEARRAY* const array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(numbers.size()));
    void* data = nullptr;
    if (array == nullptr || FAILED(SafeArrayAccessData(array, &data)))
        throw std::bad_alloc();
    std::ranges::copy(numbers, static_cast<Number*>(data));
    SafeArrayUnaccessData(array);
    variant.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    variant.parray = array;
}

// What a failing call says of itself, freed with this.
struct Exception
{
    EXCEPINFO info{};

    std::string takeReason()
    {
        if (info.pfnDeferredFillIn != nullptr)
            static_cast<void>(info.pfnDeferredFillIn(&info));
        const std::string source = takeText(std::exchange(info.bstrSource, nullptr));
        std::string text = takeText(std::exchange(info.bstrDescription, nullptr));
        static_cast<void>(takeText(std::exchange(info.bstrHelpFile, nullptr)));
        if (text.empty() && info.scode != 0)
            text = windows::describe(info.scode);
        return source.empty() ? text : source + ": " + text;
    }
};

}  // namespace

Argument::Argument(int number)
{
    value_.raw().vt = VT_I4;
    value_.raw().lVal = number;
}

Argument::Argument(double number)
{
    value_.raw().vt = VT_R8;
    value_.raw().dblVal = number;
}

Argument::Argument(bool flag)
{
    value_.raw().vt = VT_BOOL;
    value_.raw().boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
}

Argument::Argument(const std::string& text)
{
    value_.raw().vt = VT_BSTR;
    value_.raw().bstrVal = toBstr(text);
}

Argument::Argument(const std::vector<int>& numbers)
{
    fill(value_.raw(), VT_I4, std::vector<LONG>(numbers.begin(), numbers.end()));
}

Argument::Argument(const std::vector<double>& numbers)
{
    fill(value_.raw(), VT_R8, numbers);
}

Argument Argument::longNumber(long long number)
{
    Argument result;
    result.value_.raw().vt = VT_I8;
    result.value_.raw().llVal = number;
    return result;
}

Argument Argument::out(VARTYPE type)
{
    Argument result;
    result.filled_ = std::make_unique<Value>();
    VARIANT& raw = result.value_.raw();
    VARIANT& filled = result.filled_->raw();
    raw.vt = static_cast<VARTYPE>(VT_BYREF | type);
    if (type == VT_VARIANT) {
        raw.pvarVal = &filled;
    }
    else {
        filled.vt = type;
        raw.byref = &filled.llVal;
    }
    return result;
}

Value Argument::takeFilled()
{
    return filled_ == nullptr ? Value() : std::move(*filled_);
}

std::string Argument::shown() const
{
    if (isOut())
        return "&" + typeText(raw().vt & VT_TYPEMASK);
    if (raw().vt == VT_BSTR)
        return "text";
    if (value_.isArray())
        return typeText(raw().vt);
    if (raw().vt == VT_BOOL)
        return raw().boolVal != VARIANT_FALSE ? "True" : "False";
    return raw().vt == VT_R8 ? probe::shown(value_.real()) + " as R8"
                             : std::to_string(value_.number());
}

void Connection::make(Answer& answer, const std::function<HRESULT()>& call)
{
    const double start = seconds_();
    watch.begin();
    while (meansBusy(answer.result = call()) && ++answer.rejected < mostTries)
        Sleep(pauseOfBusy);
    answer.windows = watch.end();
    answer.milliseconds = 1000 * (seconds_() - start);
    if (windows::meansServerGone(answer.result))
        throw FemapGone(codeText(answer.result));
}

Object::Object(Connection& connection, IDispatch* object, std::string name)
    : connection_(connection), object_(object), name_(std::move(name))
{}

Object::Object(Object&& other) noexcept
    : connection_(other.connection_),
      object_(std::exchange(other.object_, nullptr)),
      name_(std::move(other.name_)),
      numbers_(std::move(other.numbers_))
{}

Object& Object::operator=(Object&& other) noexcept
{
    connection_ = other.connection_;
    std::swap(object_, other.object_);
    std::swap(name_, other.name_);
    std::swap(numbers_, other.numbers_);
    return *this;
}

Object::~Object()
{
    if (object_ != nullptr)
        object_->Release();
}

Answer Object::look(const std::string& member, DISPID& number) const
{
    Answer answer;
    number = DISPID_UNKNOWN;
    if (object_ == nullptr) {
        answer.result = E_POINTER;
        return answer;
    }
    std::wstring wide = windows::toWide(member);
    LPOLESTR name = wide.data();
    connection_.get().make(answer, [&] {
        return object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_SYSTEM_DEFAULT, &number);
    });
    if (answer.isDone())
        numbers_[member] = number;
    return answer;
}

bool Object::has(const std::string& member) const
{
    DISPID number = DISPID_UNKNOWN;
    return numbers_.contains(member) || look(member, number).isDone();
}

Answer Object::call(const std::string& member, std::vector<Argument> arguments) const
{
    return invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
}

Answer Object::put(const std::string& member, std::vector<Argument> arguments) const
{
    return invoke(member, DISPATCH_PROPERTYPUT, arguments);
}

Object Object::object(const std::string& member) const
{
    return {connection_, call(member).value.takeObject(), member};
}

Answer Object::invoke(const std::string& member, WORD flags, std::vector<Argument>& arguments) const
{
    const auto known = numbers_.find(member);
    DISPID number = known == numbers_.end() ? DISPID_UNKNOWN : known->second;
    Answer answer;
    if (known == numbers_.end()) {
        answer = look(member, number);
        if (!answer.isDone())
            return answer;
    }
    // The last argument comes first.
    std::vector<VARIANT> reversed;
    for (auto each = arguments.rbegin(); each != arguments.rend(); ++each)
        reversed.push_back(each->raw());
    const bool isPut = flags == DISPATCH_PROPERTYPUT;
    DISPID putName = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), isPut ? &putName : nullptr,
                          static_cast<UINT>(reversed.size()), isPut ? 1U : 0U};
    Exception exception;
    UINT wrong = 0;
    connection_.get().make(answer, [&] {
        return object_->Invoke(number, IID_NULL, LOCALE_SYSTEM_DEFAULT, flags, &parameters,
                               isPut ? nullptr : &answer.value.raw(), &exception.info, &wrong);
    });
    answer.reason = exception.takeReason();
    if (answer.result == DISP_E_TYPEMISMATCH && wrong < arguments.size())
        answer.reason = "argument " + std::to_string(arguments.size() - wrong);
    for (Argument& each : arguments)
        if (each.isOut())
            answer.filled.push_back(each.takeFilled());
    return answer;
}

std::string reasonOf(const Answer& answer)
{
    if (answer.isDone())
        return "status " + std::to_string(answer.value.number());
    const std::string words = codeText(answer.result);
    return answer.reason.empty() ? words : words + " (" + answer.reason + ')';
}

}  // namespace probe
