// Short helpers for what rules say of texts.
#pragma once

#include <string>
#include <string_view>

namespace findings
{

/// Those of the wanted characters that a text holds, each once, as words: "&, a blank".
std::string charactersIn(std::string_view text, std::string_view wanted);

/// Two lists of words as one; either may be empty.
std::string joined(std::string_view one, std::string_view other);

/// What follows the last separator of a path.
std::string_view fileNameOf(std::string_view path, std::string_view separators);

}  // namespace findings
