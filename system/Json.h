// The text format JSON: quoted texts, and a reader that goes through a text value by value and
// bears any bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sys
{

/// With quotation marks; control characters, marks and backslashes escaped.
std::string quotedJson(std::string_view text);

/// After the first thing that is not as it is asked for, or no JSON, the text is over: all that is
/// asked then is not there, and hasFailed tells it.
class JsonReader
{
public:
    /// The text must outlive this.
    explicit JsonReader(std::string_view text) : rest_(text) {}

    bool enterObject() { return enter('{'); }
    bool enterArray() { return enter('['); }
    /// The name of the object's next member, whose value comes next; none behind the last one.
    std::optional<std::string> nextName();
    /// Whether the array has another value, which comes next.
    bool hasNextValue();

    std::optional<std::string> text();
    /// A whole number without a sign.
    std::optional<std::uint64_t> number();
    /// Passes over a value of any kind.
    void skip();

    bool hasFailed() const { return failed_; }

private:
    void skipBlanks();
    bool take(char wanted);
    bool enter(char opening);
    bool goesOn(char closing);
    bool takeEscape(std::string& text);
    std::optional<char32_t> hexadecimal();
    void fail();

    std::string_view rest_;
    bool isFirst_ = false;  // nothing of what was entered last was asked for yet
    bool failed_ = false;
};

}  // namespace sys
