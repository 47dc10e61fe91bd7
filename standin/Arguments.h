// The arguments of one call to an object of the stand-in, in calling order.
#pragma once

#include "femap/Value.h"
#include "femap/com/Variant.h"
#include "standin/Modes.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standin
{

using femap::com::Variant;

class Arguments
{
public:
    explicit Arguments(std::string_view member) : member_(member) {}

    /// Adds an argument as the caller passed it; false when it is not of the type, which is a
    /// letter of FEMAP's type libraries.
    bool take(VARIANT& passed, char type, const Modes& modes);

    /// The member's own spelling.
    std::string_view member() const { return member_; }
    std::size_t size() const { return values_.size(); }

    int number(std::size_t i) const { return values_[i].number(); }
    /// The index of an array member; none without arguments.
    std::optional<int> index() const;
    double real(std::size_t i) const { return values_[i].real(); }
    bool flag(std::size_t i) const { return values_[i].raw().boolVal != VARIANT_FALSE; }
    std::string text(std::size_t i) const { return values_[i].text(); }
    std::vector<int> numbers(std::size_t i) const { return values_[i].numbers(); }
    std::vector<double> reals(std::size_t i) const { return values_[i].reals(); }
    /// The value of a property that is put.
    const Variant& put() const { return values_.back(); }

    // Fill out arguments.
    void fill(std::size_t i, int number) { *values_[i].raw()->plVal = number; }
    void fill(std::size_t i, double number) { *values_[i].raw()->pdblVal = number; }
    void fillFlag(std::size_t i, bool flag);
    void fillText(std::size_t i, const std::string& text);
    void fillAny(std::size_t i, Variant value);
    void fillObject(std::size_t i, IDispatch* object);

    /// The out arguments that take any type.
    std::vector<VARIANT*> filled();

    /// As the record of calls shows them: out arguments as "out".
    std::string shown() const;

private:
    std::string_view member_;
    std::vector<Variant> values_;
};

/// A value of the model as FEMAP passes it.
Variant toVariant(const femap::Value& value);

/// As the record of calls shows a value.
std::string shown(const VARIANT& value);

}  // namespace standin
