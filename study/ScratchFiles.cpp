#include "study/ScratchFiles.h"

#include "system/PendingError.h"
#include "system/RuntimeError.h"

namespace study
{

namespace
{

std::string folderOf(const std::string& path)
{
    const std::size_t end = path.find_last_of(sys::pathSeparators);
    return end == std::string::npos ? std::string() : path.substr(0, end);
}

class ScratchOutput : public sys::OutputFile
{
public:
    explicit ScratchOutput(std::string& content) : content_(content) {}

    void write(std::string_view bytes) override { content_ += bytes; }
    void flush() override {}
    void close() override {}

private:
    std::string& content_;
};

class ScratchInput : public sys::InputFile
{
public:
    explicit ScratchInput(std::string_view content) : left_(content) {}

    std::string next(std::size_t most) override
    {
        std::string bytes(left_.substr(0, most));
        left_.remove_prefix(bytes.size());
        return bytes;
    }

private:
    std::string_view left_;
};

}  // namespace

bool ScratchFiles::folderExists(const std::string& path)
{
    return folders_.contains(path) || real_.folderExists(path);
}

bool ScratchFiles::isMissing(const std::string& path)
{
    return !written_.contains(path) && !folders_.contains(path) && real_.isMissing(path);
}

void ScratchFiles::createFolder(const std::string& path)
{
    demandFolderOf(path);
    folders_.insert(path);
}

std::unique_ptr<sys::OutputFile> ScratchFiles::create(const std::string& path)
{
    demandFolderOf(path);
    std::string& content = written_[path];
    content.clear();
    return std::make_unique<ScratchOutput>(content);
}

std::unique_ptr<sys::OutputFile> ScratchFiles::append(const std::string& path)
{
    demandFolderOf(path);
    if (!written_.contains(path) && real_.fileExists(path))
        written_[path] = real_.read(path);
    return std::make_unique<ScratchOutput>(written_[path]);
}

// What stands in the way of the real file is told by a run; a check only leaves alone what it
// would.
std::unique_ptr<sys::OutputFile> ScratchFiles::openAlone(const std::string& path,
                                                         const sys::LineCheck& mayEmpty)
{
    std::string content;
    sys::PendingError ignored;  // mostly there is no such file
    ignored.attempt([&] { content = read(path); });
    if (!content.empty() && !mayEmpty(content.substr(0, content.find_first_of("\r\n"))))
        return nullptr;
    return create(path);
}

bool ScratchFiles::fileExists(const std::string& path)
{
    return written_.contains(path) || real_.fileExists(path);
}

// What was written has no time that a disk would give it.
std::optional<sys::FileFacts> ScratchFiles::facts(const std::string& path)
{
    const auto found = written_.find(path);
    return found == written_.end() ? real_.facts(path)
                                   : std::optional(sys::FileFacts{found->second.size(), 0});
}

std::string ScratchFiles::read(const std::string& path)
{
    const auto found = written_.find(path);
    return found == written_.end() ? real_.read(path) : found->second;
}

std::unique_ptr<sys::InputFile> ScratchFiles::openToRead(const std::string& path)
{
    const auto found = written_.find(path);
    if (found == written_.end())
        return real_.openToRead(path);
    return std::make_unique<ScratchInput>(found->second);
}

sys::TemporaryFile ScratchFiles::createBeside(const std::string& path)
{
    const std::string beside = path + '~';
    return {beside, create(beside)};
}

void ScratchFiles::demandReplaceable(const std::string& path)
{
    demandFolderOf(path);
}

void ScratchFiles::lookReplaceable(const std::string& path)
{
    demandFolderOf(path);
}

void ScratchFiles::replace(const std::string& path, const std::string& by)
{
    written_[path] = read(by);
    written_.erase(by);
}

void ScratchFiles::remove(const std::string& path)
{
    written_.erase(path);
}

// Nothing is written that another process could meet.
std::unique_ptr<sys::FolderLock> ScratchFiles::lockFolder(const std::string& /*folder*/)
{
    return nullptr;
}

void ScratchFiles::demandFolderOf(const std::string& path)
{
    const std::string folder = folderOf(path);
    if (!folder.empty() && !folderExists(folder))
        throw sys::RuntimeError(sys::ErrorNumber::PathNotFound,
                                "File not created: there is no such folder: " + path);
}

}  // namespace study
