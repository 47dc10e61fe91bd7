// The log file of one run. It does nothing until it is initialised, and nothing when the level is
// none of the level words. Once it is open nothing raises: a log that can no longer be written is
// off from then on, and the work goes on as if it were there.
#pragma once

#include "system/LineWriter.h"
#include "system/System.h"

#include <memory>
#include <string>
#include <string_view>

namespace logging
{

/// They stand in the first line of every log; what lacks them is no log and is not written over.
constexpr std::string_view firstWords = "Execution starts at";

class FemapLogger
{
public:
    explicit FemapLogger(sys::System& system) : system_(system) {}
    ~FemapLogger();
    FemapLogger(const FemapLogger&) = delete;
    FemapLogger& operator=(const FemapLogger&) = delete;

    // The level words; empty before InitialiseLogger.
    std::string LogLevel_always;
    std::string LogLevel_info;
    std::string LogLevel_debug;
    std::string LogLevel_warning;
    std::string LogLevel_error;
    std::string LogLevel_nothing;

    /// Opens the log file under the temporary folder, emptying the one of the run before.
    /// Changes an unknown level to "NOTHING" and an empty file name to the default name.
    /// Raises RuntimeError when the folder or the file cannot be created, when another run has the
    /// log open, and when the file is no log; then nothing is logged.
    void InitialiseLogger(std::string& strlogfilename, std::string& strlogleval);

    /// Always writes, after the level word of the run. Returns an empty text.
    std::string writeLog(std::string_view msgtolog);
    /// Writes when the level of the run includes this level.
    void writeLogWithLevel(std::string_view level, std::string_view msgtolog);
    /// Writes the message between two rules, without a level word.
    void writeLoghighlighted(std::string_view msgtolog);

    /// Brings the lines so far into the file, where they can be read during the run.
    void flush();

    /// Closes the file; safe when none is open.
    void DeinitialiseLogger();

    /// Why there is no log, or none any more; empty while all is well or none was wanted.
    const std::string& failure() const { return failure_; }

    /// Whether a message of that level would be written now.
    bool lets(std::string_view level) const;

    /// Full path of the log file; empty while no file is open.
    std::string path() const { return IsInitialised() ? path_ : std::string(); }

private:
    template <class Step>
    void guarded(Step&& step);
    void openFile(const std::string& name);
    void writeLine(std::string_view level, std::string_view message);
    std::string ChooseTempFolder() const;
    std::string PrepareLogFolder(const std::string& temporaryFolder);
    bool IsInitialised() const { return file_ != nullptr && file_->isOpen(); }

    sys::System& system_;
    std::string configuredLevel_;
    std::string path_;
    std::string failure_;
    std::unique_ptr<sys::LineWriter> file_;
};

}  // namespace logging
