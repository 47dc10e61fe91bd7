#include "logging/FemapLogger.h"

#include "system/RuntimeError.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

namespace logging
{

namespace
{

constexpr std::string_view defaultFileName = "VelmarFemapInterfaceLog.log";
constexpr std::string_view folderWord = "korva";

// The levels of the run at which a message is written. The order is the product's own: "ALWAYS"
// writes most, and only "ALWAYS" writes "ERROR" messages.
struct Passing
{
    std::string_view message;
    std::array<std::string_view, 5> configured;
};

// clang-format off
constexpr Passing passing[] = {
    {"ALWAYS", {"ALWAYS", "INFO", "DEBUG", "WARN", "ERROR"}},
    {"INFO",   {"ALWAYS", "INFO", "DEBUG", "WARN", "ERROR"}},
    {"DEBUG",  {"ALWAYS",         "DEBUG", "WARN", "ERROR"}},
    {"WARN",   {"ALWAYS",                  "WARN", "ERROR"}},
};
constexpr std::array<std::string_view, 1> passingOtherwise = {"ALWAYS"};
// clang-format on

bool beginsALog(std::string_view line)
{
    return line.find(firstWords) != std::string_view::npos;
}

template <class Words>
bool holds(const Words& words, std::string_view word)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

}  // namespace

FemapLogger::~FemapLogger()
{
    DeinitialiseLogger();
}

void FemapLogger::InitialiseLogger(std::string& strlogfilename, std::string& strlogleval)
{
    LogLevel_always = "ALWAYS";
    LogLevel_info = "INFO";
    LogLevel_debug = "DEBUG";
    LogLevel_warning = "WARN";
    LogLevel_error = "ERROR";
    LogLevel_nothing = "NOTHING";

    DeinitialiseLogger();
    failure_.clear();
    const std::array<std::string_view, 5> known = {LogLevel_info, LogLevel_always, LogLevel_debug,
                                                   LogLevel_warning, LogLevel_error};
    if (!holds(known, strlogleval)) {
        if (!strlogleval.empty() && strlogleval != LogLevel_nothing)
            failure_ = "There is no log: \"" + strlogleval +
                       "\" is no level; the levels are ALWAYS, INFO, DEBUG, WARN, ERROR, NOTHING";
        strlogleval = LogLevel_nothing;
        return;
    }

    configuredLevel_ = strlogleval;
    if (strlogfilename.empty())
        strlogfilename = defaultFileName;
    try {
        openFile(strlogfilename);
    }
    catch (const sys::RuntimeError& error) {
        failure_ = "There is no log: " + error.description();
        throw;
    }
}

void FemapLogger::openFile(const std::string& name)
{
    path_ = PrepareLogFolder(ChooseTempFolder()) + sys::pathSeparator + name;
    std::unique_ptr<sys::OutputFile> file = system_.files.openAlone(path_, beginsALog);
    if (file == nullptr)
        throw sys::RuntimeError(sys::ErrorNumber::FileError,
                                "this file is no log and stays as it is: " + path_);
    file_ = std::make_unique<sys::LineWriter>(std::move(file), system_.codePage);
}

// Runs a step that writes. The first one that fails is the last.
template <class Step>
void FemapLogger::guarded(Step&& step)
{
    if (!IsInitialised())
        return;
    try {
        step();
    }
    catch (const sys::RuntimeError& error) {
        failure_ = "The log ends here: " + error.description();
    }
    catch (const std::bad_alloc&) {
        failure_ = "The log ends here: no memory is left";
    }
    if (!failure_.empty())
        file_.reset();
}

std::string FemapLogger::writeLog(std::string_view msgtolog)
{
    writeLine(configuredLevel_, msgtolog);
    return {};
}

void FemapLogger::writeLogWithLevel(std::string_view level, std::string_view msgtolog)
{
    if (lets(level))
        writeLine(level, msgtolog);
}

void FemapLogger::writeLoghighlighted(std::string_view msgtolog)
{
    guarded([&] {
        const std::string rule(70, '-');
        file_->line(rule);
        file_->line(msgtolog);
        file_->line(rule);
    });
}

void FemapLogger::flush()
{
    guarded([&] { file_->drain(); });
}

void FemapLogger::DeinitialiseLogger()
{
    guarded([&] { file_->close(); });
    file_.reset();
}

bool FemapLogger::lets(std::string_view level) const
{
    if (!IsInitialised())
        return false;
    for (const Passing& row : passing)
        if (row.message == level)
            return holds(row.configured, configuredLevel_);
    return holds(passingOtherwise, configuredLevel_);
}

void FemapLogger::writeLine(std::string_view level, std::string_view message)
{
    const std::array<std::string_view, 3> pieces = {level, ": ", message};
    guarded([&] { file_->line(pieces); });
}

std::string FemapLogger::ChooseTempFolder() const
{
    std::string folder = system_.environment("TEMP");
    if (folder.empty())
        folder = system_.environment("TMP");
    return folder;
}

// Creates one level only; the temporary folder itself must be there.
std::string FemapLogger::PrepareLogFolder(const std::string& temporaryFolder)
{
    std::string folder = temporaryFolder + sys::pathSeparator + std::string(folderWord);
    if (!system_.files.folderExists(folder))
        system_.files.createFolder(folder);
    return folder;
}

}  // namespace logging
