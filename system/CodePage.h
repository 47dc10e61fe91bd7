// The 8-bit character set of the files that the program writes and reads; all contain ASCII.
#pragma once

#include <string>
#include <string_view>

namespace sys
{

class CodePage
{
public:
    virtual ~CodePage() = default;

    /// Appends UTF-8 text as bytes of this code page. A character that it lacks becomes "?";
    /// then the result is false. Malformed UTF-8 counts as such a character.
    virtual bool encode(std::string_view text, std::string& bytes) const = 0;

    /// Bytes of this code page as UTF-8.
    virtual std::string decode(std::string_view bytes) const = 0;
};

bool isAscii(std::string_view text);

/// A control character, but for TAB, which stands between what belongs together.
constexpr bool isControlCharacter(char c)
{
    return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F;
}

/// Appends a character as UTF-8.
void appendUtf8(char32_t character, std::string& text);

/// For files that hold what the program itself holds. Malformed bytes are decoded as they are.
const CodePage& utf8();

/// Western European, as on most engineers' machines. The five bytes without a character stand for
/// the control characters of the same number, so that any bytes survive a round trip.
const CodePage& windows1252();

}  // namespace sys
