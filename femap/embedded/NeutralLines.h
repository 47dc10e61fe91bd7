#pragma once

#include <climits>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace femap::embedded
{

/// Something in a neutral file that does not fit.
class Misfit : public std::runtime_error
{
public:
    /// place points into the file's text, at the line in question.
    Misfit(const char* place, const std::string& problem)
        : std::runtime_error(problem), place_(place)
    {}

    const char* place() const { return place_; }

private:
    const char* place_;
};

/// The numbers of one line, separated by commas, blanks or both. A comma at the end is no field.
class Fields
{
public:
    explicit Fields(std::string_view line)
        : begin_(line.data()), place_(line.data()), end_(line.data() + line.size())
    {
        skipBlanks();
    }

    bool atEnd() const { return place_ == end_; }
    /// How many fields are left.
    int count() const;

    /// The next field; raises Misfit when there is none or it is no number of that kind.
    int integer();
    double real();
    /// A whole number from 1 on.
    int id();

    /// Files may lack fields at the end of a line.
    int integerOr(int missing) { return atEnd() ? missing : integer(); }
    double realOr(double missing) { return atEnd() ? missing : real(); }

    /// Raises when a field is left.
    void expectEnd() const;

    [[noreturn]] void fail(const std::string& problem) const { throw Misfit(begin_, problem); }

private:
    static bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }
    static unsigned digitAt(const char* place) { return static_cast<unsigned>(*place) - '0'; }

    void skipBlanks()
    {
        while (place_ != end_ && isBlank(*place_))
            ++place_;
    }
    // Goes from the end of a number to the next field; false when something else follows.
    bool skipSeparator();
    [[noreturn]] void failField(const char* problem) const;

    const char* begin_;
    const char* place_;
    const char* end_;
};

/// The lines of one block.
class Lines
{
public:
    explicit Lines(std::string_view block) : place_(block.data()), end_(block.data() + block.size())
    {}

    bool atEnd() const { return place_ == end_; }
    std::size_t bytesLeft() const { return static_cast<std::size_t>(end_ - place_); }
    /// Whether the next line is a record that begins with -1, as it stands after a list.
    bool atListEnd() const;
    /// Skips that record and tells whether there was one.
    bool takeListEnd();

    Fields peek() const { return Fields(lineAt(place_)); }
    /// The next line's numbers. This one and those below raise Misfit at the end of the block.
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
    std::string_view lineAt(const char* place) const
    {
        const auto length = static_cast<std::size_t>(end_ - place);
        const void* const lineEnd = std::memchr(place, '\n', length);
        return lineEnd
                   ? std::string_view(
                         place, static_cast<std::size_t>(static_cast<const char*>(lineEnd) - place))
                   : std::string_view(place, length);
    }

    const char* place_;
    const char* end_;
};

inline bool Fields::skipSeparator()
{
    const char* const numberEnd = place_;
    skipBlanks();
    if (place_ == end_)
        return true;
    if (*place_ == ',') {
        ++place_;
        skipBlanks();
        return true;
    }
    return place_ != numberEnd;
}

inline int Fields::integer()
{
    const char* const field = place_;
    const bool negative = place_ != end_ && *place_ == '-';
    if (negative || (place_ != end_ && *place_ == '+'))
        ++place_;
    std::int64_t value = 0;
    const char* const digits = place_;
    for (; place_ != end_ && digitAt(place_) < 10 && value <= INT_MAX; ++place_)
        value = value * 10 + digitAt(place_);
    if (place_ == digits || value > INT_MAX || !skipSeparator()) {
        place_ = field;
        failField("is not a whole number");
    }
    return static_cast<int>(negative ? -value : value);
}

inline std::string_view Lines::text()
{
    if (atEnd())
        throw Misfit(place_, "the block ends in the middle of a record");
    const std::string_view line = lineAt(place_);
    place_ = line.data() + line.size();
    if (place_ != end_)
        ++place_;
    return line;
}

}  // namespace femap::embedded
