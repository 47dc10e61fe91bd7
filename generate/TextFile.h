// A generated file that appears whole or not at all: it is written beside the old one under a
// temporary name and renamed when it is closed. Destroyed before that, it leaves no trace, and
// the old file stays as it was. Every error names the file, the reason and what to do.
#pragma once

#include "logging/FemapLogger.h"
#include "system/LineWriter.h"
#include "system/RuntimeError.h"

#include <span>
#include <string>
#include <string_view>

namespace form
{
class Progress;
}

namespace generate
{

class TextFile
{
public:
    /// Raises RuntimeError when the temporary file cannot be created.
    TextFile(sys::System& system, logging::FemapLogger& log, const std::string& path);
    ~TextFile();
    /// Raises what would be in the way of a file at the path, as far as that can be known before.
    static void demandReplaceable(sys::System& system, const std::string& path);
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    /// One line of these pieces; CR LF is added here.
    void line(std::span<const std::string_view> pieces);
    void line(std::string_view text) { line({&text, 1}); }
    /// Several lines, each ended by a line feed.
    void write(std::string_view lines);

    /// Gives the file its final name. Raises RuntimeError and leaves the old file when it cannot.
    /// Logs the first line, if any, with a character that the code page lacks.
    void close();

    const std::string& path() const { return path_; }

private:
    sys::System& system_;
    logging::FemapLogger& log_;
    std::string path_;
    sys::TemporaryFile temporary_;
    sys::LineWriter writer_;
    bool closed_ = false;
};

/// What is told of a file that could not be written, after what the disk said.
sys::RuntimeError notWritten(const sys::RuntimeError& error, const std::string& path);

/// Gives the file its final name and counts it for the result that the action tells.
void finish(form::Progress& progress, TextFile& file);

}  // namespace generate
