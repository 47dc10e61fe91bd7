#pragma once

#include "logging/FemapLogger.h"
#include "logging/LineWriter.h"

#include <span>
#include <string>
#include <string_view>

namespace logging
{

/// A generated file that appears whole or not at all: it is written beside its place under a
/// temporary name and takes its final name when it is closed. One that is destroyed before that
/// leaves no trace, and what stood under the final name stays as it was.
/// Every error names the file, the reason and the cure.
class TextFile
{
public:
    /// Raises RuntimeError when the temporary file cannot be created.
    TextFile(System& system, FemapLogger& log, const std::string& path);
    ~TextFile();
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    /// One line of these pieces; CR LF is added here.
    void line(std::span<const std::string_view> pieces);
    void line(std::string_view text) { line({&text, 1}); }
    /// Several lines, each ended by a line feed.
    void write(std::string_view lines);

    /// Brings the file to its place. Raises RuntimeError and leaves the old file when it cannot.
    /// Logs, once per file, that characters were lost to the code page.
    void close();

private:
    System& system_;
    FemapLogger& log_;
    std::string path_;
    std::string temporaryPath_;
    LineWriter writer_;
    bool closed_ = false;
};

}  // namespace logging
