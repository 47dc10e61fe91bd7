#include "fake/MemoryFiles.h"

#include "system/RuntimeError.h"

#include <stdexcept>
#include <utility>

namespace fake
{

using sys::DiskError;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr const char* noFolder = "no such folder";

class MemoryOutputFile : public sys::OutputFile
{
public:
    /// Errors tell the name.
    MemoryOutputFile(MemoryFiles& files, std::string path, std::string name)
        : files_(files), path_(std::move(path)), name_(std::move(name))
    {}

    void write(std::string_view bytes) override
    {
        std::string& content = files_.contents[path_];
        const std::size_t before = content.size();
        content.append(bytes.substr(0, bytes.size() / 2));
        files_.step(name_);
        content.resize(before);
        content.append(bytes);
    }
    void flush() override { files_.step(name_); }
    void close() override { files_.step(name_); }

private:
    MemoryFiles& files_;
    std::string path_;
    std::string name_;
};

class MemoryInputFile : public sys::InputFile
{
public:
    explicit MemoryInputFile(std::string content) : content_(std::move(content)) {}

    std::string next(std::size_t most) override
    {
        std::string bytes = content_.substr(taken_, most);
        taken_ += bytes.size();
        return bytes;
    }

private:
    std::string content_;
    std::size_t taken_ = 0;
};

class MemoryLock : public sys::FolderLock
{
public:
    MemoryLock(MemoryFiles& files, std::string folder) : files_(files), folder_(std::move(folder))
    {
        files_.locked.push_back(folder_);
    }
    ~MemoryLock() override { files_.locked.push_back('-' + folder_); }
    MemoryLock(const MemoryLock&) = delete;
    MemoryLock& operator=(const MemoryLock&) = delete;

private:
    MemoryFiles& files_;
    std::string folder_;
};

// No other can open it like that before it is closed.
class AloneFile : public MemoryOutputFile
{
public:
    AloneFile(MemoryFiles& files, const std::string& path)
        : MemoryOutputFile(files, path, path), files_(files), path_(path)
    {
        files_.openAloneNow.insert(path_);
    }
    ~AloneFile() override { files_.openAloneNow.erase(path_); }

private:
    MemoryFiles& files_;
    std::string path_;
};

std::string folderOf(const std::string& path)
{
    return path.substr(0, path.rfind(sys::pathSeparator));
}

}  // namespace

bool MemoryFiles::folderExists(const std::string& path)
{
    return !missingFolders.contains(path);
}

bool MemoryFiles::isMissing(const std::string& path)
{
    return !contents.contains(path);
}

void MemoryFiles::createFolder(const std::string& path)
{
    if (missingFolders.contains(folderOf(path)))
        throw DiskError(ErrorNumber::PathNotFound, "Folder not created", noFolder, path);
    missingFolders.erase(path);
    createdFolders.push_back(path);
}

std::unique_ptr<sys::OutputFile> MemoryFiles::create(const std::string& path)
{
    return createNamed(path, path);
}

std::unique_ptr<sys::OutputFile> MemoryFiles::append(const std::string& path)
{
    const auto place = contents.find(path);
    const std::string before = place == contents.end() ? "" : place->second;
    auto file = createNamed(path, path);
    contents[path] = before;
    return file;
}

sys::TemporaryFile MemoryFiles::createBeside(const std::string& path)
{
    const std::string beside = path + " in work";
    return {beside, createNamed(beside, path)};
}

void MemoryFiles::demandReplaceable(const std::string& path)
{
    demanded.push_back(path);
    step(path);
    lookReplaceable(path);
}

std::unique_ptr<sys::OutputFile> MemoryFiles::openAlone(const std::string& path,
                                                        const sys::LineCheck& mayEmpty)
{
    if (openAloneNow.contains(path))
        throw RuntimeError(ErrorNumber::PermissionDenied,
                           "another program has the file open: " + path);
    const auto before = contents.find(path);
    if (before != contents.end() && !before->second.empty() &&
        !mayEmpty(before->second.substr(0, before->second.find_first_of("\r\n"))))
        return nullptr;
    create(path);  // empties it
    return std::make_unique<AloneFile>(*this, path);
}

bool MemoryFiles::fileExists(const std::string& path)
{
    return contents.contains(path);
}

std::optional<sys::FileFacts> MemoryFiles::facts(const std::string& path)
{
    const auto place = contents.find(path);
    if (place == contents.end())
        return std::nullopt;
    return sys::FileFacts{place->second.size(), times[path]};
}

std::string MemoryFiles::read(const std::string& path)
{
    if (deniedReads > 0 && deniedReads-- > 0)
        throw DiskError(ErrorNumber::PermissionDenied, "File not opened", "Permission denied",
                        path);
    const auto place = contents.find(path);
    if (place == contents.end())
        throw DiskError(ErrorNumber::FileNotFound, "File not opened", "No such file or directory",
                        path);
    return place->second;
}

std::unique_ptr<sys::InputFile> MemoryFiles::openToRead(const std::string& path)
{
    return std::make_unique<MemoryInputFile>(read(path));
}

void MemoryFiles::lookReplaceable(const std::string& path)
{
    if (irreplaceable.contains(path))
        throw DiskError(ErrorNumber::FileError, "File not replaced", failure, path);
    if (missingFolders.contains(folderOf(path)))
        throw DiskError(ErrorNumber::FileError, "File not created", noFolder, path);
}

void MemoryFiles::replace(const std::string& path, const std::string& by)
{
    step(path);
    contents[path] = contents.at(by);
    contents.erase(by);
    times[path] = now;
}

void MemoryFiles::remove(const std::string& path)
{
    contents.erase(path);
}

std::unique_ptr<sys::FolderLock> MemoryFiles::lockFolder(const std::string& folder)
{
    if (heldLocks > 0 && heldLocks-- > 0)
        throw RuntimeError(ErrorNumber::PermissionDenied, "another (process 1) of user a");
    return std::make_unique<MemoryLock>(*this, folder);
}

std::unique_ptr<sys::OutputFile> MemoryFiles::createNamed(const std::string& path,
                                                          const std::string& name)
{
    step(name);
    if (missingFolders.contains(folderOf(path)))
        throw DiskError(ErrorNumber::FileError, "File not created", noFolder, name);
    contents[path].clear();
    return std::make_unique<MemoryOutputFile>(*this, path, name);
}

std::map<std::string, std::string> MemoryFiles::inFolder(const std::string& folder) const
{
    std::map<std::string, std::string> result;
    for (const auto& [path, content] : contents)
        if (path.starts_with(folder))
            result[path.substr(folder.size())] = content;
    return result;
}

std::vector<std::string> MemoryFiles::lines(const std::string& path) const
{
    const std::string& content = contents.at(path);
    std::vector<std::string> result;
    for (std::size_t begin = 0; begin < content.size();) {
        const std::size_t end = content.find("\r\n", begin);
        if (end == std::string::npos)
            throw std::logic_error("a line of " + path + " does not end in CR LF");
        result.push_back(content.substr(begin, end - begin));
        begin = end + 2;
    }
    return result;
}

void MemoryFiles::step(const std::string& path)
{
    if (++operations == failingOperation)
        throw DiskError(ErrorNumber::FileError, "File not written", failure, path);
}

}  // namespace fake
