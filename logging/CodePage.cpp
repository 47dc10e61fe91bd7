#include "logging/CodePage.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace logging
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

void appendUtf8(char16_t character, std::string& text)
{
    if (character < 0x80) {
        text += static_cast<char>(character);
    }
    else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
    else {
        text += static_cast<char>(0xE0 | (character >> 12));
        text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

bool isAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

class Windows1252 : public CodePage
{
public:
    bool encode(std::string_view text, std::string& bytes) const override
    {
        bool complete = true;
        while (!text.empty()) {
            const auto plainEnd = std::find_if_not(text.begin(), text.end(), isAscii);
            const auto plain = static_cast<std::size_t>(plainEnd - text.begin());
            bytes.append(text.substr(0, plain));
            text.remove_prefix(plain);
            if (text.empty())
                break;
            const Decoded next = firstCharacter(text);
            text.remove_prefix(next.length);
            complete = encodeOne(next.character, bytes) && complete;
        }
        return complete;
    }

    std::string decode(std::string_view bytes) const override
    {
        std::string text;
        text.reserve(bytes.size());
        for (const char c : bytes) {
            const auto byte = static_cast<unsigned char>(c);
            const bool special = byte >= 0x80 && byte < 0xA0;
            appendUtf8(special ? upperControls[byte - 0x80U] : byte, text);
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
        const auto* const place = std::find(upperControls.begin(), upperControls.end(), character);
        if (place == upperControls.end()) {
            bytes += '?';
            return false;
        }
        bytes += static_cast<char>(0x80 + (place - upperControls.begin()));
        return true;
    }
};

}  // namespace

const CodePage& windows1252()
{
    static const Windows1252 page;
    return page;
}

}  // namespace logging
