#include "logging/Files.h"
#include "logging/RuntimeError.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace logging
{

namespace
{

#ifdef _WIN32
// Windows takes a path of 260 characters and more only in this form, in which it looks at no part
// of it more closely: so just such paths are given to it that way.
std::filesystem::path inLongForm(std::filesystem::path path)
{
    constexpr std::size_t longestPlainPath = 240;  // a folder must leave room for a short file name
    path.make_preferred();
    const std::wstring text = path.native();
    if (text.size() < longestPlainPath || !path.is_absolute() || text.starts_with(L"\\\\?\\"))
        return path;
    const std::wstring plain = path.lexically_normal().native();
    return plain.starts_with(L"\\\\") ? L"\\\\?\\UNC" + plain.substr(1) : L"\\\\?\\" + plain;
}
#endif

std::filesystem::path toPath(const std::string& path)
{
    std::filesystem::path result(std::u8string(path.begin(), path.end()));
#ifdef _WIN32
    return inLongForm(std::move(result));
#else
    return result;
#endif
}

// Windows' own numbers become the common ones, whose texts are the same in every language.
std::error_condition conditionOf(const std::error_code& reason)
{
#ifdef _WIN32
    constexpr int sharingViolation = 32;
    constexpr int lockViolation = 33;
    const bool isInUse = reason.category() == std::system_category() &&
                         (reason.value() == sharingViolation || reason.value() == lockViolation);
    if (isInUse)
        return std::errc::permission_denied;
#endif
    return reason.default_error_condition();
}

[[noreturn]] void fail(ErrorNumber number, const std::string& path, const std::string& what,
                       const std::error_code& reason)
{
    const std::error_condition condition = conditionOf(reason);
    if (condition == std::errc::permission_denied)
        number = ErrorNumber::PermissionDenied;
    const bool isCommon = condition.category() == std::generic_category();
    throw RuntimeError(number,
                       path + " " + what + ": " +
                           (isCommon ? condition.message()
                                     : "the system's error " + std::to_string(reason.value())));
}

// Not every system minds that when a file takes another one's place; the engineer who protected it
// does.
bool isWriteProtected(const std::filesystem::path& path)
{
    using std::filesystem::perms;
    std::error_code unknown;
    const std::filesystem::file_status status = std::filesystem::status(path, unknown);
    const perms anyWrite = perms::owner_write | perms::group_write | perms::others_write;
    return std::filesystem::exists(status) && (status.permissions() & anyWrite) == perms::none;
}

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

std::FILE* open(const std::string& path, bool forWriting)
{
#ifdef _WIN32
    return _wfopen(toPath(path).c_str(), forWriting ? L"wb" : L"rb");
#else
    return std::fopen(path.c_str(), forWriting ? "wb" : "rb");
#endif
}

int bringToDisk(std::FILE* file)
{
#ifdef _WIN32
    return _commit(_fileno(file));
#else
    return fsync(fileno(file));
#endif
}

class DiskOutputFile : public OutputFile
{
public:
    DiskOutputFile(std::string path, std::FILE* file) : path_(std::move(path)), file_(file) {}
    DiskOutputFile(const DiskOutputFile&) = delete;
    DiskOutputFile& operator=(const DiskOutputFile&) = delete;
    ~DiskOutputFile() override
    {
        if (file_ != nullptr)
            static_cast<void>(std::fclose(file_));  // it was given up; nobody waits for it
    }

    void write(std::string_view bytes) override
    {
        if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size())
            fail(ErrorNumber::FileError, path_, "could not be written", lastError());
    }

    void flush() override
    {
        if (std::fflush(file_) != 0 || bringToDisk(file_) != 0)
            fail(ErrorNumber::FileError, path_, "could not be written", lastError());
    }

    void close() override
    {
        std::FILE* const file = std::exchange(file_, nullptr);
        if (std::fclose(file) != 0)
            fail(ErrorNumber::FileError, path_, "could not be closed", lastError());
    }

private:
    std::string path_;
    std::FILE* file_;
};

}  // namespace

bool DiskFiles::folderExists(const std::string& path)
{
    std::error_code reason;
#ifdef _WIN32
    // Its own test knows no long paths.
    const std::filesystem::directory_iterator content(toPath(path), reason);
    return !reason;
#else
    return std::filesystem::is_directory(toPath(path), reason);
#endif
}

void DiskFiles::createFolder(const std::string& path)
{
    std::error_code reason;
    std::filesystem::create_directory(toPath(path), reason);
    if (reason)
        fail(ErrorNumber::PathNotFound, path, "could not be created", reason);
}

std::unique_ptr<OutputFile> DiskFiles::create(const std::string& path)
{
    std::FILE* const file = open(path, true);
    if (file == nullptr)
        fail(ErrorNumber::FileError, path, "could not be created", lastError());
    return std::make_unique<DiskOutputFile>(path, file);
}

std::string DiskFiles::read(const std::string& path)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(open(path, false), &std::fclose);
    if (file == nullptr)
        fail(errno == ENOENT ? ErrorNumber::FileNotFound : ErrorNumber::FileError, path,
             "could not be opened", lastError());

    std::string content;
    std::error_code unknownSize;
    const auto size = std::filesystem::file_size(toPath(path), unknownSize);
    if (!unknownSize)
        content.reserve(static_cast<std::size_t>(size) + 1);
    constexpr std::size_t piece = 1 << 20;
    for (std::size_t got = piece; got == piece;) {
        const std::size_t before = content.size();
        content.resize(before + piece);
        got = std::fread(content.data() + before, 1, piece, file.get());
        content.resize(before + got);
    }
    if (std::ferror(file.get()) != 0)
        fail(ErrorNumber::FileError, path, "could not be read", lastError());
    return content;
}

void DiskFiles::replace(const std::string& path, const std::string& by)
{
    std::error_code reason;
    if (isWriteProtected(toPath(path)))
        reason = std::make_error_code(std::errc::permission_denied);
    else
        std::filesystem::rename(toPath(by), toPath(path), reason);
    if (reason)
        fail(ErrorNumber::FileError, path, "could not be replaced", reason);
}

void DiskFiles::remove(const std::string& path)
{
#ifdef _WIN32
    static_cast<void>(_wremove(toPath(path).c_str()));  // there may be none
#else
    static_cast<void>(std::remove(path.c_str()));
#endif
}

}  // namespace logging
