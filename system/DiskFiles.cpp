// DiskFiles: the real disk on every platform. Errors name the path and the reason of the system.
#include "system/Files.h"
#include "system/FolderLock.h"
#include "system/Platform.h"
#include "system/Replacing.h"
#include "system/RuntimeError.h"
#include "system/TemporaryFiles.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace sys
{

namespace
{

std::string textOf(const std::error_code& reason)
{
    const std::error_condition condition = conditionOf(reason);
    if (condition == std::errc::no_such_device ||
        condition == std::errc::no_such_device_or_address)  // a pipe that nobody reads
        return "it is a device or a pipe, not a file";
    if (condition == std::errc::is_a_directory)
        return "it is a folder, not a file";
    return condition.category() == std::generic_category()
               ? condition.message()
               : "the system's error " + std::to_string(reason.value());
}

[[noreturn]] void fail(ErrorNumber number, const std::string& what, const std::error_code& reason,
                       const std::string& path)
{
    if (conditionOf(reason) == std::errc::permission_denied)
        number = ErrorNumber::PermissionDenied;
    throw DiskError(number, what, textOf(reason), path);
}

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

using OpenFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

OpenFile openedToRead(const std::string& path)
{
    OpenFile file(openFile(path, Access::Read), &std::fclose);
    if (file == nullptr)
        fail(errno == ENOENT ? ErrorNumber::FileNotFound : ErrorNumber::FileError,
             "File not opened", lastError(), path);
    return file;
}

// As many bytes as that, fewer at the end of the file only.
std::size_t readInto(char* bytes, std::size_t count, std::FILE* file, const std::string& path)
{
    const std::size_t got = std::fread(bytes, 1, count, file);
    if (std::ferror(file) != 0)
        fail(ErrorNumber::FileError, "File not read", lastError(), path);
    return got;
}

// Enough of the file for its first line.
std::string beginningOf(std::FILE* file, const std::string& path)
{
    constexpr std::size_t longestLine = 4096;
    std::string text(longestLine, '\0');
    text.resize(readInto(text.data(), longestLine, file, path));
    return text;
}

// Nobody writes them any more: who writes files in a folder has its lock.
void removeStaleTemporaries(const std::string& folder)
{
    std::error_code unreadable;
    std::filesystem::directory_iterator each(toPath(folder.empty() ? "." : folder), unreadable);
    for (; !unreadable && each != std::filesystem::directory_iterator();
         each.increment(unreadable)) {
        const std::u8string name = each->path().filename().u8string();
        const std::string found(name.begin(), name.end());
        if (isTemporaryName(found))
            removeFile(folder + found);
    }
}

class DiskInputFile : public InputFile
{
public:
    explicit DiskInputFile(const std::string& path) : path_(path), file_(openedToRead(path)) {}

    std::string next(std::size_t most) override
    {
        std::string bytes(most, '\0');
        bytes.resize(readInto(bytes.data(), most, file_.get(), path_));
        return bytes;
    }

private:
    std::string path_;
    OpenFile file_;
};

class DiskOutputFile : public OutputFile
{
public:
    DiskOutputFile(std::string path, std::FILE* file) : path_(std::move(path)), file_(file) {}
    DiskOutputFile(const DiskOutputFile&) = delete;
    DiskOutputFile& operator=(const DiskOutputFile&) = delete;
    ~DiskOutputFile() override
    {
        if (file_ != nullptr)
            static_cast<void>(std::fclose(file_));  // the file was given up: errors do not matter
    }

    void write(std::string_view bytes) override
    {
        if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size() ||
            std::fflush(file_) != 0)
            fail(ErrorNumber::FileError, "File not written", lastError(), path_);
    }

    void flush() override
    {
        if (bringToDisk(file_) != 0)
            fail(ErrorNumber::FileError, "File not written", lastError(), path_);
    }

    void close() override
    {
        std::FILE* const file = std::exchange(file_, nullptr);
        if (std::fclose(file) != 0)
            fail(ErrorNumber::FileError, "File not closed", lastError(), path_);
    }

private:
    std::string path_;
    std::FILE* file_;
};

std::unique_ptr<OutputFile> openedToWrite(const std::string& path, Access access)
{
    std::FILE* const file = openFile(path, access);
    if (file == nullptr)
        fail(ErrorNumber::FileError, "File not created", lastError(), path);
    return std::make_unique<DiskOutputFile>(path, file);
}

}  // namespace

bool DiskFiles::folderExists(const std::string& path)
{
    return isFolder(path);
}

bool DiskFiles::isMissing(const std::string& path)
{
    std::error_code cannotBeSeen;
    return std::filesystem::status(toPath(path), cannotBeSeen).type() ==
           std::filesystem::file_type::not_found;
}

void DiskFiles::createFolder(const std::string& path)
{
    std::error_code reason;
    std::filesystem::create_directory(toPath(path), reason);
    if (reason)
        fail(ErrorNumber::PathNotFound, "Folder not created", reason, path);
}

std::unique_ptr<OutputFile> DiskFiles::create(const std::string& path)
{
    return openedToWrite(path, Access::Write);
}

std::unique_ptr<OutputFile> DiskFiles::append(const std::string& path)
{
    return openedToWrite(path, Access::Append);
}

std::unique_ptr<OutputFile> DiskFiles::openAlone(const std::string& path, const LineCheck& mayEmpty)
{
    std::error_code reason;
    std::FILE* const file = openFileAlone(path, reason);
    if (reason == std::errc::device_or_resource_busy)
        throw RuntimeError(ErrorNumber::PermissionDenied,
                           "another program has the file open: " + path);
    if (file == nullptr)
        fail(ErrorNumber::FileError, "File not created", reason, path);
    auto output = std::make_unique<DiskOutputFile>(path, file);
    const std::string beginning = beginningOf(file, path);
    if (!beginning.empty() && !mayEmpty(beginning.substr(0, beginning.find_first_of("\r\n"))))
        return nullptr;
    if (emptyFile(file) != 0)
        fail(ErrorNumber::FileError, "File not emptied", lastError(), path);
    return output;
}

bool DiskFiles::fileExists(const std::string& path)
{
    std::error_code untold;
    return std::filesystem::is_regular_file(toPath(path), untold);
}

std::optional<FileFacts> DiskFiles::facts(const std::string& path)
{
    std::error_code untold;
    const std::filesystem::path file = toPath(path);
    if (!std::filesystem::is_regular_file(file, untold))
        return std::nullopt;
    FileFacts facts;
    facts.size = std::filesystem::file_size(file, untold);
    const auto changed =
        std::chrono::file_clock::to_sys(std::filesystem::last_write_time(file, untold));
    facts.changed = std::chrono::floor<std::chrono::seconds>(changed).time_since_epoch().count();
    return untold ? std::nullopt : std::optional(facts);
}

std::string DiskFiles::read(const std::string& path)
{
    const OpenFile file = openedToRead(path);
    std::string content;
    std::error_code unknownSize;
    const auto size = std::filesystem::file_size(toPath(path), unknownSize);
    if (!unknownSize)
        content.reserve(static_cast<std::size_t>(size) + 1);
    constexpr std::size_t piece = 1 << 20;
    for (std::size_t got = piece; got == piece;) {
        const std::size_t before = content.size();
        content.resize(before + piece);
        got = readInto(content.data() + before, piece, file.get(), path);
        content.resize(before + got);
    }
    return content;
}

std::unique_ptr<InputFile> DiskFiles::openToRead(const std::string& path)
{
    return std::make_unique<DiskInputFile>(path);
}

TemporaryFile DiskFiles::createBeside(const std::string& path)
{
    TemporaryFile created;
    std::error_code reason;
    std::FILE* const file = createTemporary(path, created.path, reason);
    if (file == nullptr)
        fail(ErrorNumber::FileError, "File not created", reason, path);
    created.file = std::make_unique<DiskOutputFile>(path, file);
    return created;
}

void DiskFiles::demandReplaceable(const std::string& path)
{
    if (const std::error_code reason = reasonAgainstReplacing(path))
        fail(ErrorNumber::FileError, "File not replaced", reason, path);
    TemporaryFile trial = createBeside(path);
    trial.file.reset();
    remove(trial.path);
}

void DiskFiles::lookReplaceable(const std::string& path)
{
    if (const std::error_code reason = reasonAgainstReplacing(path))
        fail(ErrorNumber::FileError, "File not replaced", reason, path);
    if (const std::error_code reason = reasonAgainstCreatingIn(folderPartOf(path)))
        fail(ErrorNumber::FileError, "File not created", reason, path);
}

void DiskFiles::replace(const std::string& path, const std::string& by)
{
    if (const std::error_code reason = replaceFile(path, by))
        fail(ErrorNumber::FileError, "File not replaced", reason, path);
    forgetTemporary(by);
}

void DiskFiles::remove(const std::string& path)
{
    removeFile(path);
    forgetTemporary(path);
}

std::unique_ptr<FolderLock> DiskFiles::lockFolder(const std::string& folder)
{
    std::string holder;
    std::unique_ptr<FolderLock> lock = takeFolder(folder, holder);
    if (!holder.empty())
        throw RuntimeError(ErrorNumber::PermissionDenied, holder);
    if (lock != nullptr)
        removeStaleTemporaries(folder);
    return lock;
}

}  // namespace sys
