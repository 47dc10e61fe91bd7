// The lines of a neutral file and the numbers in them.
#pragma once

#include <climits>
#include <cstdint>
#include <cstring>
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
    explicit Fields(std::string_view line)
        : begin_(line.data()), at_(line.data()), end_(line.data() + line.size())
    {
        skipBlanks();
    }

    bool atEnd() const { return at_ == end_; }
    /// How many fields are left.
    int count() const;

    /// The next field; raises FormatError when there is none or it is no number of that kind.
    int integer();
    double real();
    /// A whole number from 1 on.
    int id();

    /// Files may lack fields at the end of a line.
    int integerOr(int missing) { return atEnd() ? missing : integer(); }
    double realOr(double missing) { return atEnd() ? missing : real(); }

    /// Raises when a field is left.
    void expectEnd() const;

    [[noreturn]] void fail(const std::string& problem) const { throw FormatError(begin_, problem); }

private:
    static bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }
    static unsigned digitAt(const char* at) { return static_cast<unsigned>(*at) - '0'; }

    void skipBlanks()
    {
        while (at_ != end_ && isBlank(*at_))
            ++at_;
    }
    // Goes from the end of a number to the next field; false when no separator follows.
    bool skipSeparator();
    [[noreturn]] void failField(const char* problem) const;

    const char* begin_;
    const char* at_;
    const char* end_;
};

/// The lines of one block, taken one by one.
class Lines
{
public:
    explicit Lines(std::string_view block) : at_(block.data()), end_(block.data() + block.size()) {}

    bool atEnd() const { return at_ == end_; }
    std::size_t bytesLeft() const { return static_cast<std::size_t>(end_ - at_); }
    /// Whether the next line is a record that begins with -1, which ends a list.
    bool atListEnd() const;
    /// Skips that record and tells whether there was one.
    bool takeListEnd();

    Fields peek() const { return Fields(lineAt(at_)); }
    /// The next line's numbers. This one and those below raise FormatError at the end of the block.
    Fields record() { return Fields(text()); }
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
    std::string_view lineAt(const char* at) const
    {
        const auto length = static_cast<std::size_t>(end_ - at);
        const void* const lineEnd = std::memchr(at, '\n', length);
        return lineEnd ? std::string_view(
                             at, static_cast<std::size_t>(static_cast<const char*>(lineEnd) - at))
                       : std::string_view(at, length);
    }

    const char* at_;
    const char* end_;
};

inline bool Fields::skipSeparator()
{
    const char* const numberEnd = at_;
    skipBlanks();
    if (at_ == end_)
        return true;
    if (*at_ == ',') {
        ++at_;
        skipBlanks();
        return true;
    }
    return at_ != numberEnd;
}

inline int Fields::integer()
{
    const char* const field = at_;
    const bool negative = at_ != end_ && *at_ == '-';
    if (negative || (at_ != end_ && *at_ == '+'))
        ++at_;
    std::int64_t value = 0;
    const char* const digits = at_;
    for (; at_ != end_ && digitAt(at_) < 10 && value <= INT_MAX; ++at_)
        value = value * 10 + digitAt(at_);
    if (at_ == digits || value > INT_MAX || !skipSeparator()) {
        at_ = field;
        failField("is not a whole number");
    }
    return static_cast<int>(negative ? -value : value);
}

inline std::string_view Lines::text()
{
    if (atEnd())
        throw FormatError(at_, "the block ends in the middle of a record");
    const std::string_view line = lineAt(at_);
    at_ = line.data() + line.size();
    if (at_ != end_)
        ++at_;
    return line;
}

}  // namespace femap::neutral
