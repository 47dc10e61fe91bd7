// Numbers as text in the forms that grids and files show, and whole numbers from text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace femap
{

/// The shortest digits that read back to the same number, with a point whatever the locale:
/// positional while the decimal exponent is -4 to 14, else as 1.2345E-05. Both zeros are "0";
/// infinities and not-a-number are 1.#INF, -1.#INF and 1.#QNAN.
std::string numberText(double number);
std::string numberText(float number);
std::string numberText(std::int64_t number);

/// The same with a blank in place of a plus sign and no zero before the point: " .5", "-.5", " 12".
std::string signBlankText(double number);
std::string signBlankText(float number);
std::string signBlankText(std::int64_t number);

/// A whole number with blanks around it allowed; nothing when the text is none or does not fit
/// 32 bits.
std::optional<int> wholeNumber(std::string_view text);

/// A finite number, whole or not, written with a point; blanks around it and a plus sign allowed.
std::optional<double> realNumber(std::string_view text);
/// The same as programs of others write it: D may stand for the E of the exponent, as in 1D3, and a
/// TAB for a blank.
std::optional<double> realNumberOfOthers(std::string_view text);

}  // namespace femap
