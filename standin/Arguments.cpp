#include "standin/Arguments.h"

#include "femap/com/Bstr.h"
#include "windows/Text.h"

#include <cmath>
#include <cstdint>
#include <type_traits>
#include <utility>
#include <variant>

namespace standin
{

using femap::com::fromBstr;
using femap::com::toBstr;

namespace
{

// COM's types of the enumerators of Type, in their order.
constexpr int variantTypes[] = {
    VT_I4,
    VT_R8,
    VT_BOOL,
    VT_BSTR,
    VT_VARIANT,
    VT_BYREF | VT_I4,
    VT_BYREF | VT_R8,
    VT_BYREF | VT_BOOL,
    VT_BYREF | VT_BSTR,
    VT_BYREF | VT_VARIANT,
    VT_BYREF | VT_DISPATCH,
};

bool isWhole(const VARIANT& value)
{
    return value.vt != VT_R8 || std::trunc(value.dblVal) == value.dblVal;
}

}  // namespace

bool Arguments::take(VARIANT& passed, Type type)
{
    const int wanted = variantTypes[static_cast<std::size_t>(type)];
    Variant value;
    if ((wanted & VT_BYREF) != 0) {
        // A view: VariantClear leaves what a reference refers to alone.
        if (passed.vt != wanted)
            return false;
        *value.raw() = passed;
    }
    else {
        Variant plain;
        if (FAILED(VariantCopyInd(plain.raw(), &passed)))
            return false;
        if (type == Type::Any)
            value = std::move(plain);
        else if ((type == Type::I4 && !isWhole(*plain.raw())) ||
                 FAILED(VariantChangeTypeEx(value.raw(), plain.raw(), LOCALE_INVARIANT, 0,
                                            static_cast<VARTYPE>(wanted))))
            return false;
    }
    values_.push_back(std::move(value));
    return true;
}

std::optional<int> Arguments::index() const
{
    return values_.empty() ? std::nullopt : std::optional(number(0));
}

void Arguments::fillFlag(std::size_t i, bool flag)
{
    *values_[i].raw()->pboolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
}

void Arguments::fillText(std::size_t i, const std::string& text)
{
    BSTR& target = *values_[i].raw()->pbstrVal;
    SysFreeString(std::exchange(target, toBstr(text)));
}

void Arguments::fillAny(std::size_t i, Variant value)
{
    VARIANT& target = *values_[i].raw()->pvarVal;
    VariantClear(&target);
    std::swap(target, *value.raw());
}

void Arguments::fillObject(std::size_t i, IDispatch* object)
{
    IDispatch*& target = *values_[i].raw()->ppdispVal;
    if (target != nullptr)
        target->Release();
    target = object;
}

Variant toVariant(const femap::Value& value)
{
    return std::visit(
        []<class Held>(const Held& held) {
            if constexpr (std::is_same_v<Held, std::monostate>)
                return Variant();
            else if constexpr (std::is_same_v<Held, std::int64_t>)
                return Variant(static_cast<int>(held));
            else if constexpr (std::is_same_v<Held, float>)
                return Variant(static_cast<double>(held));
            else
                return Variant(held);
        },
        value);
}

std::vector<VARIANT*> Arguments::filled()
{
    std::vector<VARIANT*> result;
    for (Variant& value : values_)
        if (value.raw()->vt == (VT_BYREF | VT_VARIANT))
            result.push_back(value.raw()->pvarVal);
    return result;
}

std::string Arguments::shown() const
{
    std::string result;
    for (const Variant& value : values_)
        result += (result.empty() ? "" : ", ") + standin::shown(value.raw());
    return result;
}

std::string shown(const VARIANT& value)
{
    if ((value.vt & VT_BYREF) != 0)
        return "out";
    if ((value.vt & VT_ARRAY) != 0)
        return "array";
    if (value.vt == VT_DISPATCH)
        return "object";
    if (value.vt == VT_BOOL)
        return value.boolVal != VARIANT_FALSE ? "True" : "False";
    VARIANT source = value;  // a view: COM's declaration wants it writable
    Variant text;
    if (FAILED(VariantChangeTypeEx(text.raw(), &source, LOCALE_INVARIANT, 0, VT_BSTR)))
        return "?";
    const std::string plain = fromBstr(text.raw()->bstrVal);
    return value.vt == VT_BSTR ? '"' + plain + '"' : plain;
}

}  // namespace standin
