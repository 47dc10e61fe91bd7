// Owns a VARIANT, COM's type for values. One constructor for each type that FEMAP's members take.
#pragma once

#include "femap/Value.h"

#include <windows.h>

#include <oleauto.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace femap::com
{

class Variant
{
public:
    Variant() { VariantInit(&raw_); }
    Variant(int number) : Variant() { set(VT_I4).lVal = number; }
    Variant(bool flag) : Variant() { set(VT_BOOL).boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE; }
    Variant(double number) : Variant() { set(VT_R8).dblVal = number; }
    Variant(std::string_view text);
    Variant(const std::string& text) : Variant(std::string_view(text)) {}
    Variant(const char* text) : Variant(std::string_view(text)) {}
    Variant(const std::vector<int>& numbers);
    Variant(const std::vector<double>& numbers);
    Variant(const std::vector<std::string>& texts);
    /// These refer to a variable of the caller's, which FEMAP fills during the call.
    Variant(LONG* number) : Variant() { set(VT_BYREF | VT_I4).plVal = number; }
    Variant(double* number) : Variant() { set(VT_BYREF | VT_R8).pdblVal = number; }
    Variant(VARIANT_BOOL* flag) : Variant() { set(VT_BYREF | VT_BOOL).pboolVal = flag; }
    Variant(BSTR* text) : Variant() { set(VT_BYREF | VT_BSTR).pbstrVal = text; }
    Variant(IDispatch** object) : Variant() { set(VT_BYREF | VT_DISPATCH).ppdispVal = object; }
    Variant(Variant* value) : Variant() { set(VT_BYREF | VT_VARIANT).pvarVal = &value->raw_; }

    /// Takes over the reference.
    static Variant owning(IDispatch* object)
    {
        Variant result;
        result.set(VT_DISPATCH).pdispVal = object;
        return result;
    }

    Variant(Variant&& other) noexcept : Variant() { std::swap(raw_, other.raw_); }
    Variant& operator=(Variant&& other) noexcept
    {
        std::swap(raw_, other.raw_);
        return *this;
    }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&raw_); }

    // The VARIANT itself, for COM to read and fill.
    VARIANT* raw() { return &raw_; }
    const VARIANT& raw() const { return raw_; }

    /// As the value of a member. Raises RuntimeError for a type that no member has.
    Value value() const;
    /// Converted by COM. Raise RuntimeError when COM cannot.
    int number() const;
    double real() const;
    std::string text() const;
    /// Takes over the object; null when there is none.
    IDispatch* takeObject();

    /// The elements of an array that FEMAP returned, of any type of numbers or of VARIANTs; none
    /// when it returned nothing. Raise RuntimeError for elements that are no such numbers or texts.
    std::vector<double> reals() const;
    std::vector<int> numbers() const;
    std::vector<std::string> texts() const;

private:
    VARIANT& set(int type)
    {
        raw_.vt = static_cast<VARTYPE>(type);
        return raw_;
    }

    VARIANT raw_{};
};

/// A text that FEMAP fills in during a call.
class OutText
{
public:
    OutText() = default;
    OutText(const OutText&) = delete;
    OutText& operator=(const OutText&) = delete;
    ~OutText() { SysFreeString(text_); }

    BSTR* address() { return &text_; }
    std::string text() const;

private:
    BSTR text_ = nullptr;
};

}  // namespace femap::com
