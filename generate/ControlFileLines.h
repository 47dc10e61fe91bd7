// The text of a control file line by line, and what of it is not as "Apply" writes it.
#pragma once

#include "form/MainForm.h"
#include "logging/FemapLogger.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace generate
{

/// Gives the lines of a text one by one, whether they end in CR LF or in LF. Control characters
/// become blanks, except TAB, which separates the cells. A line is valid until the next call.
class LineReader
{
public:
    explicit LineReader(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }
    /// Raises RuntimeError (InputPastEnd) at the end.
    std::string_view next();

    // Of the latest line: its number, counted from 1, and what is odd about it.
    std::size_t number() const { return number_; }
    bool wasCleaned() const { return wasCleaned_; }
    bool hadEnd() const { return hadEnd_; }

private:
    std::string_view rest_;
    std::string cleaned_;
    std::size_t number_ = 0;
    bool wasCleaned_ = false;
    bool hadEnd_ = true;
};

/// Collects what did not become what it was, with one line in the log for each line concerned.
class Damages
{
public:
    explicit Damages(logging::FemapLogger& log) : log_(log) {}

    /// Nothing when the text is empty, and once for each line.
    void note(std::size_t line, std::string_view what);
    bool none() const { return count_ == 0; }
    /// "line 3: an input stands among the outputs", and how many more lines there are.
    std::string summary() const;

private:
    logging::FemapLogger& log_;
    std::string first_;
    std::size_t lastLine_ = 0;
    std::size_t count_ = 0;
};

/// Notes what "Apply" would not write so: how the bytes of the file became its text …
void judgeText(std::string_view bytes, bool hadMark, std::string_view text,
               const sys::CodePage& codePage, Damages& damages);
/// … and a line that became a row of that grid. An empty one stands for an empty grid.
void judgeRow(const LineReader& lines, std::string_view line, const form::MainForm& form,
              const form::ParameterGrid& grid, Damages& damages);

}  // namespace generate
