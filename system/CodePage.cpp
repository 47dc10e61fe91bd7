#include "system/CodePage.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace sys
{

namespace
{

// The characters of the bytes 0x80 to 0x9F; every other byte is the character of its own number.
// clang-format off
constexpr std::array<char16_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
// clang-format on

constexpr std::uint32_t malformed = 0xFFFFFFFF;

struct Decoded
{
    std::uint32_t character;
    std::size_t length;
};

// The first character of UTF-8 text that begins outside ASCII. Overlong forms, surrogates and cut
// sequences are malformed and one byte long.
Decoded firstCharacter(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::uint32_t lead = byte(0);
    const std::size_t length = (lead & 0xE0) == 0xC0   ? 2
                               : (lead & 0xF0) == 0xE0 ? 3
                               : (lead & 0xF8) == 0xF0 ? 4
                                                       : 0;
    if (length == 0 || length > text.size())
        return {malformed, 1};
    std::uint32_t character = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return {malformed, 1};
        character = (character << 6) | (byte(i) & 0x3FU);
    }
    constexpr std::array<std::uint32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < smallest[length] || character > 0x10FFFF || surrogate)
        return {malformed, 1};
    return {character, length};
}

bool isPlain(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

// Appends the ASCII characters at the start and returns how many they are.
std::size_t appendPlainStart(std::string_view from, std::string& to)
{
    const auto end = std::find_if_not(from.begin(), from.end(), isPlain);
    const auto length = static_cast<std::size_t>(end - from.begin());
    to.append(from.substr(0, length));
    return length;
}

// Appends each character that is not ASCII by encodeOne, which tells whether it could. False when
// it could not for one of them.
template <class EncodeOne>
bool encodeEach(std::string_view text, std::string& bytes, const EncodeOne& encodeOne)
{
    bool complete = true;
    while (!text.empty()) {
        text.remove_prefix(appendPlainStart(text, bytes));
        if (text.empty())
            break;
        const Decoded next = firstCharacter(text);
        complete = encodeOne(next, text.substr(0, next.length)) && complete;
        text.remove_prefix(next.length);
    }
    return complete;
}

class Utf8 : public CodePage
{
public:
    bool encode(std::string_view text, std::string& bytes) const override
    {
        return encodeEach(text, bytes, [&](const Decoded& next, std::string_view asItStands) {
            const bool isWhole = next.character != malformed;
            bytes += isWhole ? asItStands : "?";
            return isWhole;
        });
    }

    std::string decode(std::string_view bytes) const override { return std::string(bytes); }
};

class Windows1252 : public CodePage
{
public:
    bool encode(std::string_view text, std::string& bytes) const override
    {
        return encodeEach(text, bytes, [&](const Decoded& next, std::string_view) {
            return encodeOne(next.character, bytes);
        });
    }

    std::string decode(std::string_view bytes) const override
    {
        std::string text;
        text.reserve(bytes.size());
        while (!bytes.empty()) {
            bytes.remove_prefix(appendPlainStart(bytes, text));
            if (bytes.empty())
                break;
            const auto byte = static_cast<unsigned char>(bytes.front());
            appendUtf8(byte < 0xA0 ? upperControls[byte - 0x80U] : byte, text);
            bytes.remove_prefix(1);
        }
        return text;
    }

private:
    static bool encodeOne(std::uint32_t character, std::string& bytes)
    {
        if (character >= 0xA0 && character <= 0xFF) {
            bytes += static_cast<char>(character);
            return true;
        }
        const auto* const found = std::find(upperControls.begin(), upperControls.end(), character);
        if (found == upperControls.end()) {
            bytes += '?';
            return false;
        }
        bytes += static_cast<char>(0x80 + (found - upperControls.begin()));
        return true;
    }
};

}  // namespace

// Eight characters at a time, for speed: everything that is written is checked here.
bool isAscii(std::string_view text)
{
    constexpr std::uint64_t upperBits = 0x8080808080808080;
    std::uint64_t bits = 0;
    while (text.size() >= sizeof bits) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, text.data(), sizeof eight);
        bits |= eight;
        text.remove_prefix(sizeof eight);
    }
    for (const char c : text)
        bits |= static_cast<unsigned char>(c);
    return (bits & upperBits) == 0;
}

void appendUtf8(char32_t character, std::string& text)
{
    const auto addFollowing = [&](int sixBits) {
        text += static_cast<char>(0x80 | ((character >> (6 * sixBits)) & 0x3F));
    };
    const int following = character < 0x80      ? 0
                          : character < 0x800   ? 1
                          : character < 0x10000 ? 2
                                                : 3;
    constexpr std::array<char32_t, 4> leads = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(leads[static_cast<std::size_t>(following)] |
                              (character >> (6 * following)));
    for (int left = following; left > 0; --left)
        addFollowing(left - 1);
}

const CodePage& utf8()
{
    static const Utf8 page;
    return page;
}

const CodePage& windows1252()
{
    static const Windows1252 page;
    return page;
}

}  // namespace sys
