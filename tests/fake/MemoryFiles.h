#pragma once

#include "system/Files.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace fake
{

/// A disk in memory. Every folder exists unless it is in missingFolders; an operation can be told
/// to fail.
class MemoryFiles : public sys::Files
{
public:
    std::map<std::string, std::string> contents;  // by path
    std::map<std::string, std::int64_t> times;    // of their last change, in seconds since 1970
    std::int64_t now = 0;                         // the time that a file gets when it is replaced
    std::set<std::string> missingFolders;
    std::vector<std::string> createdFolders;

    /// The number of the operation (create, append, write, flush, close, replace,
    /// demandReplaceable), counted from 1, that fails; 0: none. A write fails after half of its
    /// bytes.
    int failingOperation = 0;
    int operations = 0;
    std::set<std::string> openAloneNow;  // paths
    /// So many of the next reads are denied, as while another program holds the file.
    int deniedReads = 0;
    std::string failure = "No space left on device";
    /// So many of the next tries to lock a folder meet another process.
    int heldLocks = 0;
    std::set<std::string> irreplaceable;
    std::vector<std::string> demanded;  // paths of demandReplaceable
    std::vector<std::string> locked;    // folders, with "-" before those that were let go

    bool folderExists(const std::string& path) override;
    bool isMissing(const std::string& path) override;
    void createFolder(const std::string& path) override;
    std::unique_ptr<sys::OutputFile> create(const std::string& path) override;
    std::unique_ptr<sys::OutputFile> append(const std::string& path) override;
    std::unique_ptr<sys::OutputFile> openAlone(const std::string& path,
                                               const sys::LineCheck& mayEmpty) override;
    bool fileExists(const std::string& path) override;
    std::optional<sys::FileFacts> facts(const std::string& path) override;
    std::string read(const std::string& path) override;
    std::unique_ptr<sys::InputFile> openToRead(const std::string& path) override;
    sys::TemporaryFile createBeside(const std::string& path) override;
    void demandReplaceable(const std::string& path) override;
    void lookReplaceable(const std::string& path) override;
    void replace(const std::string& path, const std::string& by) override;
    void remove(const std::string& path) override;
    std::unique_ptr<sys::FolderLock> lockFolder(const std::string& folder) override;

    /// What lies in a folder, by file name. The folder ends in the path separator.
    std::map<std::string, std::string> inFolder(const std::string& folder) const;
    /// A file's lines without their CR LF; std::logic_error when one ends otherwise.
    std::vector<std::string> lines(const std::string& path) const;

    /// Counts an operation and raises when it is the one that fails.
    void step(const std::string& path);

private:
    // Errors tell the name.
    std::unique_ptr<sys::OutputFile> createNamed(const std::string& path, const std::string& name);
};

}  // namespace fake
