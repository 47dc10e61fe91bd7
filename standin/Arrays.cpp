#include "standin/Arrays.h"

#include "femap/com/Variant.h"

#include <string>
#include <utility>
#include <vector>

namespace standin
{

using femap::com::Variant;

namespace
{

constexpr std::size_t padding = 3;

template <class Element>
Variant padded(std::vector<Element> elements)
{
    elements.resize(elements.size() + padding);
    return elements;
}

void pad(VARIANT& array)
{
    Variant whole;
    std::swap(*whole.raw(), array);
    Variant result;
    if (whole.raw()->vt == (VT_ARRAY | VT_R8))
        result = padded(whole.reals());
    else if (whole.raw()->vt == (VT_ARRAY | VT_I4))
        result = padded(whole.numbers());
    else
        result = padded(whole.texts());
    std::swap(array, *result.raw());
}

// The same elements, each in a VARIANT of its own.
void wrapElements(VARIANT& array)
{
    SAFEARRAY* const plain = array.parray;
    const VARTYPE type = static_cast<VARTYPE>(array.vt & ~VT_ARRAY);
    LONG last = -1;
    if (FAILED(SafeArrayGetUBound(plain, 1, &last)))
        return;
    SAFEARRAY* const wrapped = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(last + 1));
    for (LONG i = 0; i <= last; ++i) {
        VARIANT element{};
        element.vt = type;
        void* const value = type == VT_BSTR ? static_cast<void*>(&element.bstrVal) : &element.lVal;
        if (SUCCEEDED(SafeArrayGetElement(plain, &i, value)))
            static_cast<void>(SafeArrayPutElement(wrapped, &i, &element));
        VariantClear(&element);
    }
    VariantClear(&array);
    array.vt = VT_ARRAY | VT_VARIANT;
    array.parray = wrapped;
}

}  // namespace

void reshape(VARIANT& returned, const Modes& modes, bool isOfMany)
{
    if ((returned.vt & VT_ARRAY) == 0)
        return;
    if (isOfMany && modes[Mode::PaddedArrays])
        pad(returned);
    if (modes[Mode::VariantArrays])
        wrapElements(returned);
}

}  // namespace standin
