// A disk on which files can be written as on another one, which stays as it is: what is written is
// compared with what is there while it comes, and forgotten.
#pragma once

#include "preview/Preview.h"
#include "system/Files.h"

#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace preview
{

class ComparedFiles : public sys::Files
{
public:
    /// The real disk must outlive this. The text of the file of that name is kept.
    ComparedFiles(sys::Files& real, std::string_view wantedName)
        : real_(real), wantedName_(wantedName)
    {}

    /// What was written or asked for by demandReplaceable, in that order. Files that were not
    /// written to their end would fail by this reason, unless they have one of their own.
    std::vector<File> files(const std::string& reason) const;
    /// What would be told of the first file that cannot be replaced; empty: all can.
    std::string firstRefusal() const;
    /// The text that is kept, unless it is too long.
    std::optional<std::string> takeWantedText() { return std::move(wantedText_); }

    // They tell what the real disk has.
    bool folderExists(const std::string& path) override;
    bool isMissing(const std::string& path) override;
    bool fileExists(const std::string& path) override;
    std::optional<sys::FileFacts> facts(const std::string& path) override;
    /// Both raise for a file that was written: nothing of it is left.
    std::string read(const std::string& path) override;
    std::unique_ptr<sys::InputFile> openToRead(const std::string& path) override;

    sys::TemporaryFile createBeside(const std::string& path) override;
    /// Raises nothing, so that all that would fail is found.
    void demandReplaceable(const std::string& path) override;
    void lookReplaceable(const std::string& path) override;
    void replace(const std::string& path, const std::string& by) override;
    void remove(const std::string& path) override;
    std::unique_ptr<sys::FolderLock> lockFolder(const std::string& folder) override;

    // Only logs do this: std::logic_error.
    void createFolder(const std::string& path) override;
    std::unique_ptr<sys::OutputFile> create(const std::string& path) override;
    std::unique_ptr<sys::OutputFile> append(const std::string& path) override;
    std::unique_ptr<sys::OutputFile> openAlone(const std::string& path,
                                               const sys::LineCheck& mayEmpty) override;

private:
    struct Entry
    {
        File file;
        bool isRefused = false;
        bool isWritten = false;
    };

    Entry* find(const std::string& path);
    Entry& add(const std::string& path);
    void demandNotWritten(const std::string& path);

    sys::Files& real_;
    std::string_view wantedName_;
    std::deque<Entry> entries_;  // what is compared points into it
    std::optional<std::string> wantedText_;
};

}  // namespace preview
