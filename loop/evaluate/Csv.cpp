#include "loop/evaluate/Csv.h"

#include <algorithm>
#include <utility>

namespace loop::evaluate
{

namespace
{

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view endOfCell = ",\r\n";
constexpr std::string_view wantsQuotes = ",\"\r\n";

std::string quoted(std::string_view cell)
{
    std::string text = "\"";
    for (const char c : cell)
        text.append(c == '"' ? 2 : 1, c);
    return text + '"';
}

// Takes a text apart from its beginning.
class Scanner
{
public:
    explicit Scanner(std::string_view text) : rest_(text)
    {
        if (rest_.starts_with(byteOrderMark))
            rest_.remove_prefix(byteOrderMark.size());
    }

    bool isAtEnd() const { return rest_.empty(); }
    bool isAtQuote() const { return rest_.starts_with('"'); }

    CsvRecord record()
    {
        CsvRecord record;
        record.line = line_;
        do
            record.cells.push_back(cell(record));
        while (take(","));
        record.isEnded = take("\r\n") || take("\n");
        line_ += record.isEnded ? 1 : 0;
        return record;
    }

private:
    bool take(std::string_view wanted)
    {
        if (!rest_.starts_with(wanted))
            return false;
        rest_.remove_prefix(wanted.size());
        return true;
    }

    std::string cell(CsvRecord& record)
    {
        std::string text = take("\"") ? quotedPart(record) : std::string();
        while (!isAtEnd() && !isAtEndOfCell()) {
            const std::size_t end = std::min(rest_.find_first_of(endOfCell, 1), rest_.size());
            text += rest_.substr(0, end);
            rest_.remove_prefix(end);
        }
        return text;
    }

    // A CR alone ends nothing.
    bool isAtEndOfCell() const
    {
        return rest_.starts_with(',') || rest_.starts_with('\n') || rest_.starts_with("\r\n");
    }

    // Up to the closing mark, which is taken as well.
    std::string quotedPart(CsvRecord& record)
    {
        std::string text;
        for (;;) {
            const std::size_t end = std::min(rest_.find('"'), rest_.size());
            const std::string_view part = rest_.substr(0, end);
            line_ += static_cast<std::size_t>(std::ranges::count(part, '\n'));
            text += part;
            rest_.remove_prefix(end);
            record.isOpen = !take("\"");
            if (record.isOpen || !take("\""))
                return text;
            text += '"';
        }
    }

    std::string_view rest_;
    std::size_t line_ = 1;
};

bool isEmptyLine(const CsvRecord& record, bool isQuoted)
{
    return record.cells.size() == 1 && record.cells.front().empty() && !isQuoted;
}

}  // namespace

std::vector<CsvRecord> readCsv(std::string_view text)
{
    std::vector<CsvRecord> records;
    for (Scanner scanner(text); !scanner.isAtEnd();) {
        const bool isQuoted = scanner.isAtQuote();
        CsvRecord record = scanner.record();
        if (!isEmptyLine(record, isQuoted))
            records.push_back(std::move(record));
    }
    return records;
}

std::string csvLine(std::span<const std::string> cells)
{
    std::string line;
    for (const std::string& cell : cells) {
        const bool wouldBeEmptyLine = cells.size() == 1 && cell.empty();
        const bool wouldBeMark = &cell == cells.data() && cell.starts_with(byteOrderMark);
        const bool isQuoted =
            cell.find_first_of(wantsQuotes) != std::string::npos || wouldBeEmptyLine || wouldBeMark;
        line.append(&cell == cells.data() ? "" : ",").append(isQuoted ? quoted(cell) : cell);
    }
    return line + "\r\n";
}

}  // namespace loop::evaluate
