// Writes lines of text into an open file: 8-bit, each ended by CR LF, gathered into large pieces.
// The first operation that fails closes the file for good, so that no file with a gap is taken for
// a complete one; every operation after it raises again.
#pragma once

#include "system/CodePage.h"
#include "system/Files.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace sys
{

class LineWriter
{
public:
    LineWriter(std::unique_ptr<OutputFile> file, const CodePage& codePage);

    /// One line of these pieces. Raises RuntimeError when the file cannot take it.
    void line(std::span<const std::string_view> pieces);
    void line(std::string_view text) { line({&text, 1}); }

    /// Brings the lines so far into the file, where others can read them.
    void drain();
    /// The same, and onto the disk.
    void flush();
    void close();
    /// Gives up: closes the file without writing what was gathered. Never fails.
    void discard() { file_.reset(); }

    bool isOpen() const { return file_ != nullptr; }

    /// The number of the first line, counted from 1, that held a character which the code page
    /// lacks; 0 while there is none.
    std::size_t firstLossyLine();

private:
    void encodeGathered();
    void findLossyLine(std::string_view lines);
    // Takes the file out of file_; only an operation that succeeds puts it back.
    std::unique_ptr<OutputFile> drainedFile();

    std::unique_ptr<OutputFile> file_;
    const CodePage& codePage_;
    std::string buffer_;
    std::size_t encoded_ = 0;  // bytes of buffer_ in the code page; the rest is UTF-8
    std::size_t lines_ = 0;
    std::size_t encodedLines_ = 0;
    std::size_t firstLossyLine_ = 0;
};

}  // namespace sys
