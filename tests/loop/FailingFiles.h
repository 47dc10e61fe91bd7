#pragma once

#include "system/Files.h"
#include "system/RuntimeError.h"

#include <memory>
#include <optional>
#include <string>

namespace loop
{

/// A disk every operation of which can fail, those that look and read among them.
class FailingFiles : public sys::Files
{
public:
    explicit FailingFiles(sys::Files& real) : real_(real) {}

    int failingOperation = 0;  // counted from 1; 0: none
    int operations = 0;

    bool folderExists(const std::string& path) override { return real_.folderExists(path); }
    bool isMissing(const std::string& path) override { return real_.isMissing(path); }
    void createFolder(const std::string& path) override { step(path).createFolder(path); }
    std::unique_ptr<sys::OutputFile> create(const std::string& path) override
    {
        return watched(step(path).create(path), path);
    }
    std::unique_ptr<sys::OutputFile> append(const std::string& path) override
    {
        return watched(step(path).append(path), path);
    }
    std::unique_ptr<sys::OutputFile> openAlone(const std::string& path,
                                               const sys::LineCheck& mayEmpty) override
    {
        return watched(step(path).openAlone(path, mayEmpty), path);
    }
    bool fileExists(const std::string& path) override { return real_.fileExists(path); }
    std::optional<sys::FileFacts> facts(const std::string& path) override
    {
        return real_.facts(path);
    }
    std::string read(const std::string& path) override { return step(path).read(path); }
    std::unique_ptr<sys::InputFile> openToRead(const std::string& path) override
    {
        return step(path).openToRead(path);
    }
    sys::TemporaryFile createBeside(const std::string& path) override
    {
        sys::TemporaryFile made = step(path).createBeside(path);
        made.file = watched(std::move(made.file), path);
        return made;
    }
    void demandReplaceable(const std::string& path) override { step(path).demandReplaceable(path); }
    void lookReplaceable(const std::string& path) override { step(path).lookReplaceable(path); }
    void replace(const std::string& path, const std::string& by) override
    {
        step(path).replace(path, by);
    }
    void remove(const std::string& path) override { step(path).remove(path); }
    std::unique_ptr<sys::FolderLock> lockFolder(const std::string& folder) override
    {
        return step(folder).lockFolder(folder);
    }

    /// Counts an operation and raises when it is the one that fails.
    sys::Files& step(const std::string& path)
    {
        if (++operations == failingOperation)
            throw sys::DiskError(sys::ErrorNumber::FileError, "File not used",
                                 "No space left on device", path);
        return real_;
    }

private:
    class WatchedFile : public sys::OutputFile
    {
    public:
        WatchedFile(std::unique_ptr<sys::OutputFile> real, FailingFiles& files, std::string path)
            : real_(std::move(real)), files_(files), path_(std::move(path))
        {}

        /// A write that fails has written half of its bytes.
        void write(std::string_view bytes) override
        {
            if (files_.operations + 1 == files_.failingOperation)
                real_->write(bytes.substr(0, bytes.size() / 2));
            files_.step(path_);
            real_->write(bytes);
        }
        void flush() override
        {
            files_.step(path_);
            real_->flush();
        }
        void close() override
        {
            files_.step(path_);
            real_->close();
        }

    private:
        std::unique_ptr<sys::OutputFile> real_;
        FailingFiles& files_;
        std::string path_;
    };

    std::unique_ptr<sys::OutputFile> watched(std::unique_ptr<sys::OutputFile> real,
                                             const std::string& path)
    {
        return real == nullptr ? nullptr
                               : std::make_unique<WatchedFile>(std::move(real), *this, path);
    }

    sys::Files& real_;
};

}  // namespace loop
