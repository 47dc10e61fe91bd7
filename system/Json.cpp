#include "system/Json.h"

#include "system/CodePage.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace sys
{

namespace
{

constexpr std::string_view blanks = " \t\r\n";
// What follows a backslash, and what both stand for.
constexpr std::string_view escapes = "\"\\/bfnrt";
constexpr std::string_view escaped = "\"\\/\b\f\n\r\t";

}  // namespace

std::string quotedJson(std::string_view text)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string quoted = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            quoted.append(1, '\\').append(1, c);
        else if (byte < 0x20)
            quoted.append("\\u00").append(1, digits[byte / 16]).append(1, digits[byte % 16]);
        else
            quoted += c;
    }
    return quoted + '"';
}

std::optional<std::string> JsonReader::nextName()
{
    if (!goesOn('}'))
        return std::nullopt;
    std::optional<std::string> name = text();
    if (!name || !take(':'))
        return std::nullopt;
    return name;
}

bool JsonReader::hasNextValue()
{
    return goesOn(']');
}

std::optional<std::string> JsonReader::text()
{
    if (!take('"'))
        return std::nullopt;
    std::string text;
    while (!rest_.empty() && rest_.front() != '"') {
        const std::size_t plain = std::min(rest_.find_first_of("\"\\"), rest_.size());
        text += rest_.substr(0, plain);
        rest_.remove_prefix(plain);
        if (rest_.starts_with('\\') && !takeEscape(text))
            return std::nullopt;
    }
    if (!take('"'))
        return std::nullopt;
    return text;
}

std::optional<std::uint64_t> JsonReader::number()
{
    skipBlanks();
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
    if (error != std::errc()) {
        fail();
        return std::nullopt;
    }
    rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
    return number;
}

// What is inside is only counted, so that no depth is too much.
void JsonReader::skip()
{
    for (std::size_t depth = 0; !failed_;) {
        skipBlanks();
        const char next = rest_.empty() ? '\0' : rest_.front();
        if (next == '"')
            text();
        else if (next == '{' || next == '[') {
            rest_.remove_prefix(1);
            ++depth;
            continue;
        }
        else if (depth > 0 && std::string_view("}],:").find(next) != std::string_view::npos) {
            rest_.remove_prefix(1);
            depth -= next == '}' || next == ']' ? 1 : 0;
        }
        else {
            const std::size_t word = std::min(rest_.find_first_of(" \t\r\n,:]}[{\""), rest_.size());
            if (word == 0)
                fail();
            else
                rest_.remove_prefix(word);
        }
        if (depth == 0)
            return;
    }
}

void JsonReader::skipBlanks()
{
    rest_.remove_prefix(std::min(rest_.find_first_not_of(blanks), rest_.size()));
}

bool JsonReader::take(char wanted)
{
    skipBlanks();
    if (!rest_.starts_with(wanted)) {
        fail();
        return false;
    }
    rest_.remove_prefix(1);
    return true;
}

bool JsonReader::enter(char opening)
{
    isFirst_ = take(opening);
    return isFirst_;
}

// Behind an inner object or array something was asked for already.
bool JsonReader::goesOn(char closing)
{
    const bool isFirst = std::exchange(isFirst_, false);
    skipBlanks();
    if (rest_.starts_with(closing)) {
        rest_.remove_prefix(1);
        return false;
    }
    return isFirst ? !failed_ : take(',');
}

bool JsonReader::takeEscape(std::string& text)
{
    rest_.remove_prefix(1);
    const std::size_t kind = rest_.empty() ? std::string_view::npos : escapes.find(rest_.front());
    if (kind != std::string_view::npos) {
        text += escaped[kind];
        rest_.remove_prefix(1);
        return true;
    }
    const auto unit = hexadecimal();
    if (!unit)
        return false;
    constexpr char32_t surrogates = 0xD800;  // and the 2047 behind it: half a character each
    constexpr char32_t lastSurrogate = 0xDFFF;
    if (*unit < surrogates || *unit > lastSurrogate) {
        appendUtf8(*unit, text);
        return true;
    }
    if (!rest_.starts_with('\\')) {
        fail();
        return false;
    }
    rest_.remove_prefix(1);
    const auto second = hexadecimal();
    if (!second)
        return false;
    appendUtf8(0x10000 + ((*unit & 0x3FF) << 10) + (*second & 0x3FF), text);
    return true;
}

// "u" and four digits.
std::optional<char32_t> JsonReader::hexadecimal()
{
    constexpr std::size_t length = 5;
    std::uint32_t number = 0;
    const std::string_view digits = rest_.substr(std::min<std::size_t>(rest_.size(), 1), 4);
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    if (!rest_.starts_with('u') || rest_.size() < length || error != std::errc() ||
        end != digits.data() + digits.size()) {
        fail();
        return std::nullopt;
    }
    rest_.remove_prefix(length);
    return number;
}

void JsonReader::fail()
{
    failed_ = true;
    rest_ = {};
}

}  // namespace sys
