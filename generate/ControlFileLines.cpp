#include "generate/ControlFileLines.h"

#include "logging/Module1.h"
#include "system/CodePage.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <iterator>

namespace generate
{

using form::MainForm;
using form::ParameterGrid;

namespace
{

// Always runs to the end, so that the compiler can test many characters at a time.
bool holdsStray(std::string_view line)
{
    bool found = false;
    for (const char c : line)
        found |= sys::isControlCharacter(c);
    return found;
}

// The line in which two texts begin to differ.
std::size_t lineOfDifference(std::string_view one, std::string_view other)
{
    const auto [end, ignored] = std::ranges::mismatch(one, other);
    return 1 + static_cast<std::size_t>(std::count(one.begin(), end, '\n'));
}

bool isKindAt(std::string_view line, int column, bool ofInputs)
{
    const form::RowKind* const kind = form::findRowKind(form::cellOf(line, column));
    return kind != nullptr && kind->isInput == ofInputs;
}

// Empty when the line is a whole row of the grid.
std::string_view damageOf(std::string_view line, bool isOfInputs, int columns)
{
    const bool isInput = isKindAt(line, form::inputColumn::kind, true);
    const bool isOutput = isKindAt(line, form::outputColumn::kind, false);
    if (isOfInputs ? !isInput : !isOutput) {
        if (isOutput)
            return "an output stands among the inputs";
        if (isInput)
            return "an input stands among the outputs";
        return "the kind of the row is unknown";
    }
    if (form::cellOf(line, form::nameColumn).empty())
        return "the row has no name";
    const auto cells = 1 + std::count(line.begin(), line.end(), form::cellSeparator);
    if (cells != columns)
        return cells < columns ? "cells of the row are missing" : "the row has too many cells";
    return {};
}

}  // namespace

std::string_view LineReader::next()
{
    if (atEnd())
        throw sys::RuntimeError(sys::ErrorNumber::InputPastEnd,
                                "The control file ends before its selection is complete");
    ++number_;
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    hadEnd_ = end < rest_.size();
    std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    wasCleaned_ = holdsStray(line);
    if (!wasCleaned_)
        return line;
    cleaned_ = line;
    std::replace_if(cleaned_.begin(), cleaned_.end(), sys::isControlCharacter, ' ');
    return cleaned_;
}

void Damages::note(std::size_t line, std::string_view what)
{
    if (what.empty() || line == lastLine_)
        return;
    lastLine_ = line;
    logging::logDebug(log_, "Line ", line, " of the control file: ", what);
    if (count_++ == 0)
        first_ = "line " + std::to_string(line) + ": " + std::string(what);
}

std::string Damages::summary() const
{
    if (count_ < 2)
        return first_;
    return first_ + "; " + std::to_string(count_ - 1) + " more in the log";
}

void judgeText(std::string_view bytes, bool hadMark, std::string_view text,
               const sys::CodePage& codePage, Damages& damages)
{
    if (bytes.empty())
        damages.note(1, "the file is empty");
    else if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        damages.note(1, "the text is UTF-16, not in the code page");
    if (sys::isAscii(bytes))
        return;
    if (hadMark && bytes != text)
        damages.note(lineOfDifference(bytes, text), "the text is UTF-8, not in the code page");
    std::string again;
    codePage.encode(text, again);
    if (again != bytes)
        damages.note(lineOfDifference(bytes, again), "a character is none of the code page");
}

void judgeRow(const LineReader& lines, std::string_view line, const MainForm& form,
              const ParameterGrid& grid, Damages& damages)
{
    if (lines.wasCleaned())
        damages.note(lines.number(), "control characters became blanks");
    else if (!lines.hadEnd())
        damages.note(lines.number(), "the file ends within this line");
    else if (!line.empty())
        damages.note(lines.number(), damageOf(line, &grid == &form.InputsList, grid.Cols()));
}

}  // namespace generate
