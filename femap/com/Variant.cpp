#include "femap/com/Variant.h"

#include "femap/com/Bstr.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <new>

namespace femap::com
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

[[noreturn]] void failConversion(VARTYPE type)
{
    throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP returned a value of an unexpected kind (" +
                                                      std::to_string(type) + ")");
}

// The value converted to a type, the way COM does, in the neutral locale.
Variant changed(const VARIANT& raw, VARTYPE type)
{
    VARIANT source = raw;  // a view: COM's declaration wants it writable
    Variant result;
    if (FAILED(VariantChangeTypeEx(result.raw(), &source, LOCALE_INVARIANT, 0, type)))
        failConversion(raw.vt);
    return result;
}

// Gives access to the elements of an array for as long as it lives.
class LockedArray
{
public:
    explicit LockedArray(SAFEARRAY* array) : array_(array)
    {
        if (SafeArrayGetDim(array_) != 1 || FAILED(SafeArrayAccessData(array_, &data_)))
            throw RuntimeError(ErrorNumber::ObjectFailed,
                               "FEMAP returned an array of a wrong shape");
    }
    ~LockedArray() { SafeArrayUnaccessData(array_); }
    LockedArray(const LockedArray&) = delete;
    LockedArray& operator=(const LockedArray&) = delete;

    std::size_t size() const
    {
        LONG lower = 0;
        LONG upper = -1;
        if (FAILED(SafeArrayGetLBound(array_, 1, &lower)) ||
            FAILED(SafeArrayGetUBound(array_, 1, &upper)))
            throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP returned an array without bounds");
        return static_cast<std::size_t>(std::int64_t{upper} - lower + 1);
    }

    template <class Element>
    const Element* elements() const
    {
        return static_cast<const Element*>(data_);
    }

private:
    SAFEARRAY* array_;
    void* data_ = nullptr;
};

// Copies an array, or nothing when FEMAP returned nothing. copy gets the elements and their type.
template <class Result, class Copy>
std::vector<Result> copyArray(const VARIANT& raw, Copy copy)
{
    std::vector<Result> result;
    if (raw.vt == VT_EMPTY || raw.vt == VT_NULL)
        return result;
    if ((raw.vt & VT_ARRAY) == 0 || (raw.vt & VT_BYREF) != 0)
        failConversion(raw.vt);
    if (raw.parray == nullptr)
        return result;
    const LockedArray array(raw.parray);
    result.reserve(array.size());
    copy(array, static_cast<VARTYPE>(raw.vt & VT_TYPEMASK), result);
    return result;
}

template <class Element, class Result, class Convert>
void append(const LockedArray& array, std::vector<Result>& result, Convert convert)
{
    const Element* const elements = array.elements<Element>();
    std::transform(elements, elements + array.size(), std::back_inserter(result), convert);
}

int wholeNumber(double number)
{
    if (!(number >= INT_MIN && number <= INT_MAX) || number != std::floor(number))
        failConversion(VT_R8);
    return static_cast<int>(number);
}

// Numbers of whatever type; one of a VARIANT is converted by COM.
template <class Result, class Convert>
std::vector<Result> copyNumbers(const VARIANT& raw, Convert convert)
{
    return copyArray<Result>(raw, [&](const LockedArray& array, VARTYPE type, auto& result) {
        switch (type) {
        case VT_I2:
        case VT_BOOL:
            return append<SHORT>(array, result, convert);
        case VT_I4:
        case VT_INT:
            return append<LONG>(array, result, convert);
        case VT_I8:
            return append<LONGLONG>(array, result, convert);
        case VT_R4:
            return append<float>(array, result, convert);
        case VT_R8:
            return append<double>(array, result, convert);
        case VT_VARIANT:
            return append<VARIANT>(array, result, [&](const VARIANT& element) {
                return convert(changed(element, VT_R8).real());
            });
        default:
            failConversion(raw.vt);
        }
    });
}

// An array that holds a copy of the elements; the caller owns it.
template <VARTYPE type, class Element, class Source, class Convert>
SAFEARRAY* newArray(const std::vector<Source>& elements, Convert convert)
{
    SAFEARRAY* const array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(elements.size()));
    if (array == nullptr)
        throw std::bad_alloc();
    void* data = nullptr;
    if (FAILED(SafeArrayAccessData(array, &data)))
        throw std::bad_alloc();
    std::transform(elements.begin(), elements.end(), static_cast<Element*>(data), convert);
    SafeArrayUnaccessData(array);
    return array;
}

}  // namespace

Variant::Variant(std::string_view text) : Variant()
{
    set(VT_BSTR).bstrVal = toBstr(text);
}

Variant::Variant(const std::vector<int>& numbers) : Variant()
{
    set(VT_ARRAY | VT_I4).parray =
        newArray<VT_I4, LONG>(numbers, [](int number) { return static_cast<LONG>(number); });
}

Variant::Variant(const std::vector<double>& numbers) : Variant()
{
    set(VT_ARRAY | VT_R8).parray =
        newArray<VT_R8, double>(numbers, [](double number) { return number; });
}

Variant::Variant(const std::vector<std::string>& texts) : Variant()
{
    set(VT_ARRAY | VT_BSTR).parray =
        newArray<VT_BSTR, BSTR>(texts, [](const std::string& text) { return toBstr(text); });
}

Value Variant::value() const
{
    switch (raw_.vt) {
    case VT_EMPTY:
    case VT_NULL:
        return std::monostate();
    case VT_BOOL:
        return raw_.boolVal != VARIANT_FALSE;
    case VT_R4:
        return raw_.fltVal;
    case VT_R8:
        return raw_.dblVal;
    case VT_BSTR:
        return fromBstr(raw_.bstrVal);
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_INT:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UINT:
        return static_cast<std::int64_t>(changed(raw_, VT_I8).raw_.llVal);
    default:
        failConversion(raw_.vt);
    }
}

int Variant::number() const
{
    return static_cast<int>(changed(raw_, VT_I4).raw_.lVal);
}

double Variant::real() const
{
    return changed(raw_, VT_R8).raw_.dblVal;
}

std::string Variant::text() const
{
    return fromBstr(changed(raw_, VT_BSTR).raw_.bstrVal);
}

IDispatch* Variant::takeObject()
{
    if (raw_.vt != VT_DISPATCH)
        failConversion(raw_.vt);
    raw_.vt = VT_EMPTY;
    return std::exchange(raw_.pdispVal, nullptr);
}

std::vector<double> Variant::reals() const
{
    return copyNumbers<double>(raw_, [](auto number) { return static_cast<double>(number); });
}

std::vector<int> Variant::numbers() const
{
    return copyNumbers<int>(raw_,
                            [](auto number) { return wholeNumber(static_cast<double>(number)); });
}

std::vector<std::string> Variant::texts() const
{
    return copyArray<std::string>(
        raw_, [this](const LockedArray& array, VARTYPE type, auto& result) {
            if (type == VT_BSTR)
                append<BSTR>(array, result, [](BSTR text) { return fromBstr(text); });
            else if (type == VT_VARIANT)
                append<VARIANT>(array, result, [](const VARIANT& element) {
                    return changed(element, VT_BSTR).text();
                });
            else
                failConversion(raw_.vt);
        });
}

std::string OutText::text() const
{
    return fromBstr(text_);
}

}  // namespace femap::com
