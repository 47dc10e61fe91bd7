#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace property
{

/// What is wrong with a generated file as such: a line that does not end in CR LF, a lone CR or LF,
/// a NUL, a mark of the byte order. Empty when nothing is.
std::string flawOfText(std::string_view bytes);

/// The lines of a file, without their CR LF.
std::vector<std::string> linesOf(std::string_view bytes);

/// The first of a file's lines that has none of the forms which the lines of that file take;
/// empty when there is none. fileName may begin with the name of the model.
/// withRows: whether the file was written for grids that have rows.
std::string strangeLine(std::string_view fileName, const std::vector<std::string>& lines,
                        bool withRows);

}  // namespace property
