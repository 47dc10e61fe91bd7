#include "standin/Arguments.h"

#include "femap/TypeLibrary.h"
#include "femap/com/Bstr.h"
#include "windows/Text.h"

#include <algorithm>
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

struct LetterOfType
{
    char letter;
    VARTYPE type;
};

// clang-format off
constexpr LetterOfType lettersOfTypes[] = {
    {'i', VT_I4},
    {'l', VT_I8},
    {'d', VT_R8},
    {'b', VT_BOOL},
    {'s', VT_BSTR},
    {'v', VT_VARIANT},
    {'o', VT_DISPATCH},
};
// clang-format on

// COM's type for a letter of the type libraries.
VARTYPE typeOf(char letter)
{
    const bool isFilled = femap::library::isFilled(letter);
    const char plain = isFilled ? static_cast<char>(letter - 'A' + 'a') : letter;
    const auto found = std::ranges::find(lettersOfTypes, plain, &LetterOfType::letter);
    return static_cast<VARTYPE>(found->type | (isFilled ? VT_BYREF : 0));
}

bool isIndex(const VARIANT& value, const Modes& modes)
{
    return value.vt != VT_R8 ||
           (!modes[Mode::StrictIndices] && std::trunc(value.dblVal) == value.dblVal);
}

// The VARIANT becomes one of the type; what is returned refers to its value.
VARIANT viewInto(VARIANT& any, VARTYPE wanted)
{
    VariantClear(&any);
    any.vt = static_cast<VARTYPE>(wanted & ~VT_BYREF);
    any.llVal = 0;
    VARIANT view{};
    view.vt = wanted;
    view.byref = &any.llVal;
    return view;
}

}  // namespace

bool Arguments::take(VARIANT& passed, char type, const Modes& modes)
{
    const VARTYPE wanted = typeOf(type);
    Variant value;
    if ((wanted & VT_BYREF) != 0) {
        // A view: VariantClear leaves what a reference refers to alone.
        if (passed.vt == wanted)
            *value.raw() = passed;
        else if (modes[Mode::LooseResults] && passed.vt == (VT_BYREF | VT_VARIANT))
            *value.raw() = viewInto(*passed.pvarVal, wanted);
        else
            return false;
    }
    else {
        Variant plain;
        if (FAILED(VariantCopyInd(plain.raw(), &passed)))
            return false;
        if (wanted == VT_VARIANT)
            value = std::move(plain);
        else if ((wanted == VT_I4 && !isIndex(*plain.raw(), modes)) ||
                 FAILED(VariantChangeTypeEx(value.raw(), plain.raw(), LOCALE_INVARIANT, 0, wanted)))
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
