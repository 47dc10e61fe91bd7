#include "probe/Value.h"

#include "windows/Text.h"

#include <array>
#include <cstdio>

namespace probe
{

namespace
{

struct TypeName
{
    VARTYPE type;
    std::string_view name;
};

// clang-format off
constexpr TypeName typeNames[] = {
    {VT_EMPTY,    "empty"},
    {VT_NULL,     "null"},
    {VT_I2,       "I2"},
    {VT_I4,       "I4"},
    {VT_R4,       "R4"},
    {VT_R8,       "R8"},
    {VT_BSTR,     "BSTR"},
    {VT_DISPATCH, "DISP"},
    {VT_ERROR,    "error"},
    {VT_BOOL,     "BOOL"},
    {VT_VARIANT,  "VAR"},
    {VT_UNKNOWN,  "unknown object"},
    {VT_I1,       "I1"},
    {VT_UI1,      "UI1"},
    {VT_UI2,      "UI2"},
    {VT_UI4,      "UI4"},
    {VT_I8,       "I8"},
    {VT_UI8,      "UI8"},
    {VT_INT,      "INT"},
    {VT_UINT,     "UINT"},
    {VT_VOID,     "nothing"},
    {VT_HRESULT,  "HRESULT"},
};
// clang-format on

constexpr std::size_t mostShown = 12;  // elements of an array

std::string textOf(BSTR text)
{
    return text == nullptr ? std::string() : windows::fromWide({text, SysStringLen(text)});
}

// Converted by COM, without the user's region; false when COM cannot.
bool convert(const VARIANT& from, VARTYPE type, VARIANT& to)
{
    VariantInit(&to);
    return SUCCEEDED(VariantChangeTypeEx(&to, const_cast<VARIANT*>(&from), LOCALE_INVARIANT,
                                         VARIANT_NOVALUEPROP, type));
}

double realOf(const VARIANT& value)
{
    VARIANT converted{};
    return convert(value, VT_R8, converted) ? converted.dblVal : 0;
}

// Calls with each element of an array, or with the one value.
template <class Take>
void forEach(const VARIANT& value, const Take& take)
{
    if ((value.vt & VT_ARRAY) == 0) {
        take(value);
        return;
    }
    LONG first = 0;
    LONG last = -1;
    const VARTYPE type = value.vt & VT_TYPEMASK;
    if (value.parray == nullptr || SafeArrayGetDim(value.parray) != 1 ||
        FAILED(SafeArrayGetLBound(value.parray, 1, &first)) ||
        FAILED(SafeArrayGetUBound(value.parray, 1, &last)))
        return;
    for (LONG i = first; i <= last; ++i) {
        VARIANT element{};
        VariantInit(&element);
        void* const place = type == VT_VARIANT ? static_cast<void*>(&element) : &element.llVal;
        if (FAILED(SafeArrayGetElement(value.parray, &i, place)))
            return;
        if (type != VT_VARIANT)
            element.vt = type;
        take(element);
        VariantClear(&element);
    }
}

bool isNumber(VARTYPE type)
{
    return type == VT_I4 || type == VT_R8 || type == VT_I2 || type == VT_R4 || type == VT_BOOL ||
           type == VT_I8 || type == VT_UI4 || type == VT_INT || type == VT_UINT || type == VT_UI1;
}

std::string shownElement(const VARIANT& value,
                         const std::function<std::string(const std::string&)>& show)
{
    if (value.vt == VT_BSTR)
        return show(textOf(value.bstrVal));
    if (value.vt == VT_R8 || value.vt == VT_R4)
        return shown(realOf(value));
    VARIANT whole{};
    if (isNumber(value.vt) && convert(value, VT_I8, whole))
        return std::to_string(whole.llVal);
    return typeText(value.vt);
}

std::string boundsOf(const VARIANT& array)
{
    std::string text;
    const UINT dimensions = array.parray == nullptr ? 0 : SafeArrayGetDim(array.parray);
    for (UINT i = 1; i <= dimensions; ++i) {
        LONG first = 0;
        LONG last = 0;
        if (SUCCEEDED(SafeArrayGetLBound(array.parray, i, &first)) &&
            SUCCEEDED(SafeArrayGetUBound(array.parray, i, &last)))
            text += '[' + std::to_string(first) + ".." + std::to_string(last) + ']';
    }
    return text;
}

}  // namespace

bool Value::isNumeric() const
{
    const VARTYPE type = raw_.vt & VT_TYPEMASK;
    return isNumber(type) || (isArray() && type == VT_VARIANT);
}

std::vector<double> Value::numbers() const
{
    std::vector<double> result;
    if (isNumeric())
        forEach(raw_, [&](const VARIANT& element) { result.push_back(realOf(element)); });
    return result;
}

std::vector<int> Value::wholeNumbers() const
{
    std::vector<int> result;
    for (const double number : numbers())
        result.push_back(static_cast<int>(number));
    return result;
}

std::vector<std::string> Value::texts() const
{
    std::vector<std::string> result;
    forEach(raw_, [&](const VARIANT& element) {
        if (element.vt == VT_BSTR)
            result.push_back(textOf(element.bstrVal));
    });
    return result;
}

int Value::number() const
{
    return static_cast<int>(real());
}

double Value::real() const
{
    return isNumber(raw_.vt) ? realOf(raw_) : 0;
}

std::string Value::text() const
{
    return raw_.vt == VT_BSTR ? textOf(raw_.bstrVal) : std::string();
}

IDispatch* Value::takeObject()
{
    if (raw_.vt != VT_DISPATCH)
        return nullptr;
    raw_.vt = VT_EMPTY;
    return std::exchange(raw_.pdispVal, nullptr);
}

std::string typeText(VARTYPE type)
{
    std::string text = (type & VT_ARRAY) != 0 ? "array of " : "";
    if ((type & VT_BYREF) != 0)
        text.insert(0, "&");
    for (const TypeName& each : typeNames)
        if (each.type == (type & VT_TYPEMASK))
            return text + std::string(each.name);
    return text + "type " + std::to_string(type & VT_TYPEMASK);
}

std::string shown(double number)
{
    std::array<char, 32> text{};
    static_cast<void>(std::snprintf(text.data(), text.size(), "%.9g", number));
    return text.data();
}

std::string shown(const Value& value, const std::function<std::string(const std::string&)>& show)
{
    const VARIANT& raw = value.raw();
    std::string text = typeText(raw.vt);
    if (!value.isArray())
        return raw.vt == VT_BSTR || isNumber(raw.vt) ? text + ' ' + shownElement(raw, show) : text;
    text += ' ' + boundsOf(raw);
    std::size_t count = 0;
    forEach(raw, [&](const VARIANT& element) {
        if (count < mostShown)
            text += ' ' + shownElement(element, show);
        ++count;
    });
    return count > mostShown ? text + " …" : text;
}

}  // namespace probe
