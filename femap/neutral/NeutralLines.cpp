#include "femap/neutral/NeutralLines.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace femap::neutral
{

namespace
{

bool isBlankCharacter(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

unsigned digitValue(char c)
{
    return static_cast<unsigned>(c) - '0';
}

// Whether a number outside the range of double is too large; otherwise it is too close to 0.
bool isLarge(std::string_view number)
{
    const std::string_view digits = number.substr(0, number.find('E'));
    const std::string_view power = number.substr(std::min(digits.size() + 1, number.size()));
    constexpr double infinity = std::numeric_limits<double>::infinity();
    // Stays as it is when the exponent itself is outside.
    double exponent = power.empty() ? 0 : power.front() == '-' ? -infinity : infinity;
    std::from_chars(power.data() + (power.starts_with('+') ? 1 : 0), power.data() + power.size(),
                    exponent);
    const auto point = static_cast<double>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<double>(digits.find_first_of("123456789"));
    return point - first + exponent > 0;
}

}  // namespace

Fields::Fields(std::string_view line, Places* places)
    : begin_(line.data()), at_(line.data()), end_(line.data() + line.size()), places_(places)
{
    if (line.ends_with('\r'))
        --end_;
    at_ = afterBlanks(at_);
}

const char* Fields::afterBlanks(const char* at) const
{
    while (at != end_ && isBlankCharacter(*at))
        ++at;
    return at;
}

bool Fields::isFieldEnd(const char* at) const
{
    return at == end_ || *at == ',' || isBlankCharacter(*at);
}

const char* Fields::fieldEnd() const
{
    const char* at = at_;
    while (!isFieldEnd(at))
        ++at;
    return at;
}

// Goes from the end of a field to the next one; false, and nowhere, when that is no end.
bool Fields::skipSeparator(const char* fieldEnd)
{
    if (!isFieldEnd(fieldEnd))
        return false;
    at_ = afterBlanks(fieldEnd);
    if (at_ != end_ && *at_ == ',')
        at_ = afterBlanks(at_ + 1);
    return true;
}

// The same, quickly where no blanks stand around the comma.
inline bool Fields::goOn(const char* fieldEnd)
{
    const bool noBlanks =
        fieldEnd != end_ && *fieldEnd == ',' && (fieldEnd + 1 == end_ || fieldEnd[1] > ' ');
    if (!noBlanks)
        return skipSeparator(fieldEnd);
    at_ = fieldEnd + 1;
    return true;
}

int Fields::integer()
{
    const char* at = at_;
    const bool negative = at != end_ && *at == '-';
    if (negative || (at != end_ && *at == '+'))
        ++at;
    const char* const digits = at;
    std::int64_t value = 0;
    for (; at != end_ && digitValue(*at) < 10 && value <= INT_MAX; ++at)
        value = value * 10 + digitValue(*at);
    if (at == digits || value > INT_MAX || !goOn(at))
        failField("is not a whole number");
    return static_cast<int>(negative ? -value : value);
}

double Fields::plainReal()
{
    constexpr std::string_view usualZero = "0.,";  // most numbers of a model
    const std::string_view rest(at_, static_cast<std::size_t>(end_ - at_));
    if (rest.starts_with(usualZero) && goOn(at_ + 2))
        return 0;
    double value = 0;
    const auto [end, problem] = std::from_chars(at_, end_, value);
    const bool isUsual = problem == std::errc() && std::isfinite(value) && goOn(end);
    return isUsual ? value : unusualReal();
}

// What std::from_chars does not know: a plus sign, the letter D of Fortran for the exponent, and
// what a number outside the range of double stands for.
double Fields::unusualReal()
{
    const char* const fieldEnd = this->fieldEnd();
    std::string text(at_, fieldEnd);
    for (char& c : text)
        if (c == 'e' || c == 'D' || c == 'd')
            c = 'E';
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.erase(0, 1);
    const char* const textEnd = text.data() + text.size();
    double value = 0;
    const auto [end, problem] = std::from_chars(text.data(), textEnd, value);
    const bool outside = problem == std::errc::result_out_of_range;
    const bool finite = problem == std::errc() && std::isfinite(value);
    if (end != textEnd || (!outside && !finite))
        failField("is not a number");
    if (outside && isLarge(text))
        fail("a number is too large");
    skipSeparator(fieldEnd);
    return finite ? value : text.starts_with('-') ? -0.0 : 0.0;
}

int Fields::id()
{
    const int value = integer();
    if (value <= 0)
        fail("the ID " + std::to_string(value) + " is not greater than 0");
    return value;
}

int Fields::count() const
{
    int fields = 0;
    for (Fields rest = *this; !rest.atEnd(); ++fields)
        rest.skipSeparator(rest.fieldEnd());
    return fields;
}

void Fields::expectEnd() const
{
    if (!atEnd())
        fail("the line holds more than fits");
}

void Fields::failField(const char* problem) const
{
    const std::string_view before(begin_, static_cast<std::size_t>(at_ - begin_));
    const std::string field = "field " + std::to_string(Fields(before).count() + 1);
    fail(field + (atEnd() ? " is missing" : std::string(" ") + problem));
}

bool Lines::atListEnd() const
{
    const char* at = at_;
    while (at != end_ && (*at == ' ' || *at == '\t'))
        ++at;
    constexpr std::string_view endMark = "-1";
    const std::string_view rest(at, static_cast<std::size_t>(end_ - at));
    if (rest.substr(0, endMark.size()) != endMark)
        return false;
    constexpr std::string_view separators = ", \t\r\n";
    return rest.size() == endMark.size() ||
           separators.find(rest[endMark.size()]) != std::string_view::npos;
}

bool Lines::takeListEnd()
{
    if (!atListEnd())
        return false;
    text();
    return true;
}

std::string_view Lines::text()
{
    if (atEnd())
        throw FormatError(at_, "the block ends in the middle of a record");
    const char* const line = at_;
    const auto* const lineEnd = static_cast<const char*>(std::memchr(at_, '\n', rest().size()));
    at_ = lineEnd ? lineEnd + 1 : end_;
    return {line, static_cast<std::size_t>((lineEnd ? lineEnd : end_) - line)};
}

Fields Lines::record()
{
    return Fields(text(), places_);
}

void Lines::skipText(int count)
{
    for (int i = 0; i < count; ++i)
        text();
}

void Lines::skipNumbers(int count)
{
    for (int i = 0; i < count; ++i)
        record().real();
}

int Lines::count()
{
    Fields fields = record();
    const int count = fields.integer();
    fields.expectEnd();
    if (count < 0)
        fields.fail("a count is less than 0");
    return count;
}

std::vector<double> Lines::countedReals()
{
    const auto size = static_cast<std::size_t>(count());
    constexpr std::size_t usual = 1000;  // a count may be wrong: no memory for it beforehand
    std::vector<double> numbers;
    numbers.reserve(std::min(size, usual));
    while (numbers.size() < size) {
        Fields fields = record();
        do
            numbers.push_back(fields.real());
        while (numbers.size() < size && !fields.atEnd());
        fields.expectEnd();
    }
    return numbers;
}

}  // namespace femap::neutral
