// The code page in which the user's programs write their text files: Windows' ANSI code page.
#pragma once

#include <string>
#include <string_view>

namespace windows
{

/// Appends UTF-8 text in that code page; false when a character that it lacks became "?".
bool appendAnsi(std::string_view text, std::string& bytes);
/// Bytes of that code page as UTF-8.
std::string fromAnsi(std::string_view bytes);

}  // namespace windows
