#include "preview/ComparedFiles.h"

#include "generate/TextFile.h"
#include "preview/Comparison.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace preview
{

using sys::RuntimeError;

namespace
{

[[noreturn]] void failAsMistake(const std::string& path)
{
    throw std::logic_error("A generated file was not written whole or not at all: " + path);
}

// The one that is there; null when there is none, or, with the reason, when it cannot be read.
std::unique_ptr<sys::InputFile> opened(sys::Files& files, File& file)
{
    if (!file.sizeBefore)
        return nullptr;
    try {
        return files.openToRead(file.path);
    }
    catch (const RuntimeError& unreadable) {
        if (file.reason.empty())
            file.reason = unreadable.description();
        return nullptr;
    }
}

// Of a file that can be written.
Mark markOf(const File& file)
{
    if (!file.sizeBefore)
        return Mark::New;
    const bool isSame = file.firstDifference == 0 && file.reason.empty();
    return isSame ? Mark::Same : Mark::Changed;
}

}  // namespace

bool ComparedFiles::folderExists(const std::string& path)
{
    return real_.folderExists(path);
}

bool ComparedFiles::isMissing(const std::string& path)
{
    return real_.isMissing(path);
}

bool ComparedFiles::fileExists(const std::string& path)
{
    return real_.fileExists(path);
}

std::optional<sys::FileFacts> ComparedFiles::facts(const std::string& path)
{
    return real_.facts(path);
}

std::string ComparedFiles::read(const std::string& path)
{
    demandNotWritten(path);
    return real_.read(path);
}

std::unique_ptr<sys::InputFile> ComparedFiles::openToRead(const std::string& path)
{
    demandNotWritten(path);
    return real_.openToRead(path);
}

sys::TemporaryFile ComparedFiles::createBeside(const std::string& path)
{
    Entry* entry = find(path);
    if (entry == nullptr) {
        lookReplaceable(path);
        entry = &add(path);
    }
    File& file = entry->file;
    std::optional<std::string>* text = nullptr;
    if (file.name() == wantedName_)
        text = &wantedText_;
    if (text != nullptr)
        text->emplace();
    return {path + '~', std::make_unique<Comparison>(file, opened(real_, file), text)};
}

void ComparedFiles::demandReplaceable(const std::string& path)
{
    Entry& entry = add(path);
    try {
        lookReplaceable(path);
    }
    catch (const RuntimeError& refusal) {
        entry.file.reason = generate::notWritten(refusal, path).description();
        entry.isRefused = true;
    }
}

void ComparedFiles::lookReplaceable(const std::string& path)
{
    real_.lookReplaceable(path);
}

void ComparedFiles::replace(const std::string& path, const std::string& /*by*/)
{
    find(path)->isWritten = true;
}

void ComparedFiles::remove(const std::string& /*path*/) {}

// Nothing is written that another process could meet.
std::unique_ptr<sys::FolderLock> ComparedFiles::lockFolder(const std::string& /*folder*/)
{
    return nullptr;
}

void ComparedFiles::createFolder(const std::string& path)
{
    failAsMistake(path);
}

std::unique_ptr<sys::OutputFile> ComparedFiles::create(const std::string& path)
{
    failAsMistake(path);
}

std::unique_ptr<sys::OutputFile> ComparedFiles::append(const std::string& path)
{
    failAsMistake(path);
}

std::unique_ptr<sys::OutputFile> ComparedFiles::openAlone(const std::string& path,
                                                          const sys::LineCheck& /*mayEmpty*/)
{
    failAsMistake(path);
}

std::vector<File> ComparedFiles::files(const std::string& reason) const
{
    std::vector<File> files;
    for (const Entry& entry : entries_) {
        File& file = files.emplace_back(entry.file);
        if (!entry.isRefused && entry.isWritten)
            file.mark = markOf(file);
        else if (!entry.isRefused)
            file.reason = reason;
    }
    return files;
}

std::string ComparedFiles::firstRefusal() const
{
    const auto found = std::ranges::find(entries_, true, &Entry::isRefused);
    return found == entries_.end() ? std::string() : found->file.reason;
}

ComparedFiles::Entry* ComparedFiles::find(const std::string& path)
{
    const auto found = std::ranges::find(
        entries_, path, [](const Entry& entry) -> const auto& { return entry.file.path; });
    return found == entries_.end() ? nullptr : &*found;
}

ComparedFiles::Entry& ComparedFiles::add(const std::string& path)
{
    Entry& entry = entries_.emplace_back();
    entry.file.path = path;
    if (const auto there = real_.facts(path))
        entry.file.sizeBefore = there->size;
    return entry;
}

void ComparedFiles::demandNotWritten(const std::string& path)
{
    if (const Entry* const entry = find(path); entry != nullptr && entry->isWritten)
        throw RuntimeError(sys::ErrorNumber::FileNotFound, path);
}

}  // namespace preview
