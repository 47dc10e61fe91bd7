// Tables as text: cells between commas, those with commas, quotation marks or line ends in
// quotation marks (RFC 4180), in UTF-8.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace loop::evaluate
{

struct CsvRecord
{
    std::size_t line = 0;  // at which it begins, counted from 1
    std::vector<std::string> cells;
    bool isEnded = false;  // by a line end; else the text was over
    bool isOpen = false;   // a quotation mark was never closed

    bool operator==(const CsvRecord&) const = default;
};

/// All records but empty lines, whatever bytes the text holds. Line ends are CR LF or LF; a byte
/// order mark at the beginning is passed over. Marks within a cell that does not begin with one
/// stand for themselves, and so does what follows a closing mark.
std::vector<CsvRecord> readCsv(std::string_view text);

/// The cells as one record with its line end, which readCsv takes for the same.
std::string csvLine(std::span<const std::string> cells);

}  // namespace loop::evaluate
