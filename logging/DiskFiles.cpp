#include "logging/Files.h"
#include "logging/RuntimeError.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <thread>
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

// On Windows a virus scanner or a sync client often holds a fresh file open for a moment.
#ifdef _WIN32
constexpr int replaceAttempts = 6;
#else
constexpr int replaceAttempts = 1;
#endif
constexpr std::chrono::milliseconds pauseBetweenAttempts(100);

std::filesystem::path toPath(const std::string& path)
{
    return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

[[noreturn]] void fail(ErrorNumber number, const std::string& path, const std::string& what,
                       const std::error_code& reason)
{
    throw RuntimeError(number, path + " " + what + ": " + reason.message());
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
    std::error_code ignored;
    return std::filesystem::is_directory(toPath(path), ignored);
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
    for (int attempt = 1;; ++attempt) {
        std::error_code reason;
        std::filesystem::rename(toPath(by), toPath(path), reason);
        if (!reason)
            return;
        if (attempt == replaceAttempts)
            fail(ErrorNumber::FileError, path, "could not be replaced", reason);
        std::this_thread::sleep_for(pauseBetweenAttempts);
    }
}

void DiskFiles::remove(const std::string& path)
{
    std::error_code ignored;
    std::filesystem::remove(toPath(path), ignored);
}

}  // namespace logging
