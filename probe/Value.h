// A VARIANT as FEMAP returned it, and how the report shows it: its type and bounds first.
#pragma once

#include <windows.h>

#include <functional>
#include <oleauto.h>
#include <string>
#include <utility>
#include <vector>

namespace probe
{

class Value
{
public:
    Value() { VariantInit(&raw_); }
    Value(Value&& other) noexcept : Value() { std::swap(raw_, other.raw_); }
    Value& operator=(Value&& other) noexcept
    {
        std::swap(raw_, other.raw_);
        return *this;
    }
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    ~Value() { VariantClear(&raw_); }

    VARIANT& raw() { return raw_; }
    const VARIANT& raw() const { return raw_; }

    VARTYPE type() const { return raw_.vt; }
    bool isArray() const { return (raw_.vt & VT_ARRAY) != 0; }
    /// Whether it is a number, or an array of them.
    bool isNumeric() const;

    /// The number, or those of the array; none for anything else.
    std::vector<double> numbers() const;
    std::vector<int> wholeNumbers() const;
    /// The text, or those of the array.
    std::vector<std::string> texts() const;
    /// 0 for what is no number.
    int number() const;
    double real() const;
    std::string text() const;

    /// Takes over the object; null when it is none.
    IDispatch* takeObject();

private:
    VARIANT raw_{};
};

/// "I4", "R8", "BSTR", "array of R8".
std::string typeText(VARTYPE type);
/// "I4 7", "array of R8 [0..2] 1 2 3"; show: what stands for a text.
std::string shown(const Value& value, const std::function<std::string(const std::string&)>& show);
/// A real number with at most 9 digits.
std::string shown(double number);

}  // namespace probe
