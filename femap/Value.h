// The value of a member of a FEMAP object, and how values and texts of FEMAP are shown.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace femap
{

/// What a member of a FEMAP object holds: nothing, a boolean, a whole number, a real of single
/// or double precision, or text (UTF-8).
using Value = std::variant<std::monostate, bool, std::int64_t, float, double, std::string>;

/// The text that a grid cell shows for the value: "True"/"False", numbers as in NumberText.h,
/// text with every control character made a blank, empty for nothing.
std::string toText(const Value& value);

/// The value as a finite number, also that of a text; nothing for what is none.
std::optional<double> realOf(const Value& value);

/// Text as FEMAP's titles are read: each control character becomes a blank.
std::string withoutControlCharacters(std::string text);

/// The first so many characters of a UTF-8 text; a character is never split.
std::string_view firstCharacters(std::string_view text, std::size_t count);

}  // namespace femap
