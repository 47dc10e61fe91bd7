// The lines of a neutral file and the numbers in them.
#pragma once

#include "femap/neutral/NeutralPlaces.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace femap::neutral
{

/// Something in a neutral file that does not fit.
class FormatError : public std::runtime_error
{
public:
    /// position points into the file's text, at the line in question.
    FormatError(const char* position, const std::string& problem)
        : std::runtime_error(problem), position_(position)
    {}

    const char* position() const { return position_; }

private:
    const char* position_;
};

/// The numbers of one line, separated by commas, blanks or both. A comma at the end is no field.
class Fields
{
public:
    explicit Fields(std::string_view line, Places* places = nullptr);

    bool atEnd() const { return at_ == end_; }
    /// How many fields are left.
    int count() const;

    /// The next field; raises FormatError when there is none or it is no number of that kind.
    int integer();
    /// A whole number from 1 on.
    int id();
    /// These may be replaced in the file: neither how to read on nor what a record is hangs on
    /// them.
    int freeInteger() { return places_ == nullptr ? integer() : place(&Fields::integer); }
    double real() { return places_ == nullptr ? plainReal() : place(&Fields::plainReal); }

    /// Files may lack fields at the end of a line.
    int integerOr(int missing) { return atEnd() ? missing : integer(); }
    int freeIntegerOr(int missing) { return atEnd() ? missing : freeInteger(); }
    double realOr(double missing) { return atEnd() ? missing : real(); }

    /// Raises when a field is left.
    void expectEnd() const;

    [[noreturn]] void fail(const std::string& problem) const { throw FormatError(begin_, problem); }

private:
    const char* afterBlanks(const char* at) const;
    bool isFieldEnd(const char* at) const;
    const char* fieldEnd() const;
    bool goOn(const char* fieldEnd);
    bool skipSeparator(const char* fieldEnd);
    double plainReal();
    double unusualReal();
    template <class Number>
    int place(Number (Fields::*read)())
    {
        const Fields before = *this;
        const Number number = (this->*read)();
        return places_->note({before.at_, before.fieldEnd()}, number);
    }
    [[noreturn]] void failField(const char* problem) const;

    const char* begin_;
    const char* at_;
    const char* end_;
    Places* places_;
};

/// The lines of one block, taken one by one.
class Lines
{
public:
    explicit Lines(std::string_view block, Places* places = nullptr)
        : at_(block.data()), end_(block.data() + block.size()), places_(places)
    {}

    bool atEnd() const { return at_ == end_; }
    std::string_view rest() const { return {at_, static_cast<std::size_t>(end_ - at_)}; }
    /// Whether the next line is a record that begins with -1, which ends a list.
    bool atListEnd() const;
    /// Skips that record and tells whether there was one.
    bool takeListEnd();

    Fields peek() const { return Lines(*this).record(); }
    /// The next line's numbers. This one and those below raise FormatError at the end of the block.
    Fields record();
    /// The next line as it is, without its end.
    std::string_view text();
    void skipText(int count);
    /// Skips lines that begin with a number.
    void skipNumbers(int count);
    /// A count on a line of its own.
    int count();
    /// The same, and as many numbers spread over the lines after it.
    std::vector<double> countedReals();

private:
    const char* at_;
    const char* end_;
    Places* places_;
};

}  // namespace femap::neutral
