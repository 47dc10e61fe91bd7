// The disk as an interface, so that tests can do without one, and the real disk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace sys
{

/// A file that is open for writing. Closing is an operation of its own because it can fail;
/// destroying an open file closes it and ignores errors.
class OutputFile
{
public:
    virtual ~OutputFile() = default;

    /// All raise RuntimeError (FileError, PermissionDenied) with the path and the system's reason.
    /// When it returns, the bytes are in the file, where others can read them.
    virtual void write(std::string_view bytes) = 0;
    /// Brings everything written so far onto the disk, where it outlasts a power cut.
    virtual void flush() = 0;
    virtual void close() = 0;
};

/// A file that is open for reading.
class InputFile
{
public:
    virtual ~InputFile() = default;

    /// The next bytes, as many as that while there are so many; empty at the end. Raises
    /// RuntimeError with the path and the system's reason.
    virtual std::string next(std::size_t most) = 0;
};

struct FileFacts
{
    std::uint64_t size = 0;    // in bytes
    std::int64_t changed = 0;  // seconds since the beginning of 1970, UTC

    bool operator==(const FileFacts&) const = default;
};

using LineCheck = std::function<bool(std::string_view line)>;

/// A file under a name of its own, until it takes the place of another one or is removed.
struct TemporaryFile
{
    std::string path;
    std::unique_ptr<OutputFile> file;
};

/// Keeps a folder for one process until it is destroyed or the process has ended.
class FolderLock
{
public:
    virtual ~FolderLock() = default;
};

/// The disk. Paths are UTF-8; contents are bytes. What the system refuses is a DiskError. Where
/// another program holds the file or the right to it is missing, its number is PermissionDenied.
class Files
{
public:
    virtual ~Files() = default;

    virtual bool folderExists(const std::string& path) = 0;
    /// Whether nothing has that name, as far as can be seen.
    virtual bool isMissing(const std::string& path) = 0;
    /// Creates one level only. Raises RuntimeError when the folder cannot be created.
    virtual void createFolder(const std::string& path) = 0;

    /// Creates the file or empties the one that is there. Raises RuntimeError.
    virtual std::unique_ptr<OutputFile> create(const std::string& path) = 0;
    /// The same behind what the file holds.
    virtual std::unique_ptr<OutputFile> append(const std::string& path) = 0;
    /// Opens an ordinary file for this process alone, so that no other can open it like that until
    /// it is closed, and empties it. One that holds something is left as it is, and the result is
    /// null, when mayEmpty refuses its first line. Raises RuntimeError; PermissionDenied when
    /// another process has it.
    virtual std::unique_ptr<OutputFile> openAlone(const std::string& path,
                                                  const LineCheck& mayEmpty) = 0;
    /// Whether an ordinary file is there, as far as the system tells.
    virtual bool fileExists(const std::string& path) = 0;
    /// Nothing where no ordinary file is, as far as the system tells.
    virtual std::optional<FileFacts> facts(const std::string& path) = 0;
    /// The whole content. Raises RuntimeError (FileNotFound, FileError).
    virtual std::string read(const std::string& path) = 0;
    /// The same piece by piece.
    virtual std::unique_ptr<InputFile> openToRead(const std::string& path) = 0;

    /// Creates a file beside the one at the path, under a name that nobody has. Raises
    /// RuntimeError; all errors, those of the file too, name the path itself.
    virtual TemporaryFile createBeside(const std::string& path) = 0;
    /// Raises what would be in the way of replacing the file at the path, whether there is one or
    /// not, as far as that can be known before. Leaves nothing behind.
    virtual void demandReplaceable(const std::string& path) = 0;
    /// The same by looking alone: nothing is written for a trial, and nobody is waited for.
    virtual void lookReplaceable(const std::string& path) = 0;
    /// Replaces a file by another in one step that outlasts a power cut; its rights and attributes
    /// stay. Raises RuntimeError.
    virtual void replace(const std::string& path, const std::string& by) = 0;
    /// No error when there is no such file.
    virtual void remove(const std::string& path) = 0;

    /// Keeps the folder, given as the beginning of a path, for this process as far as others ask;
    /// removes the files of createBeside that are left there. Null where the file system has no
    /// locks. Raises RuntimeError (PermissionDenied) while another process has it; the description
    /// is the name of that one.
    virtual std::unique_ptr<FolderLock> lockFolder(const std::string& folder) = 0;
};

/// The real disk.
class DiskFiles : public Files
{
public:
    bool folderExists(const std::string& path) override;
    bool isMissing(const std::string& path) override;
    void createFolder(const std::string& path) override;
    std::unique_ptr<OutputFile> create(const std::string& path) override;
    std::unique_ptr<OutputFile> append(const std::string& path) override;
    std::unique_ptr<OutputFile> openAlone(const std::string& path,
                                          const LineCheck& mayEmpty) override;
    bool fileExists(const std::string& path) override;
    std::optional<FileFacts> facts(const std::string& path) override;
    std::string read(const std::string& path) override;
    std::unique_ptr<InputFile> openToRead(const std::string& path) override;
    TemporaryFile createBeside(const std::string& path) override;
    void demandReplaceable(const std::string& path) override;
    void lookReplaceable(const std::string& path) override;
    void replace(const std::string& path, const std::string& by) override;
    void remove(const std::string& path) override;
    std::unique_ptr<FolderLock> lockFolder(const std::string& folder) override;
};

/// The separator of paths on this platform, and all characters that it accepts as separators.
extern const char pathSeparator;
extern const std::string_view pathSeparators;

}  // namespace sys
