// The disk as an interface, so that tests can do without one, and the real disk.
#pragma once

#include <functional>
#include <memory>
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

using LineCheck = std::function<bool(std::string_view line)>;

/// The disk. Paths are UTF-8; contents are bytes. An operation that the system denies, because
/// another program holds the file or the right to it is missing, raises PermissionDenied.
class Files
{
public:
    virtual ~Files() = default;

    virtual bool folderExists(const std::string& path) = 0;
    /// Creates one level only. Raises RuntimeError when the folder cannot be created.
    virtual void createFolder(const std::string& path) = 0;

    /// Creates the file or empties the one that is there. Raises RuntimeError.
    virtual std::unique_ptr<OutputFile> create(const std::string& path) = 0;
    /// Opens an ordinary file for this process alone, so that no other can open it like that until
    /// it is closed, and empties it. One that holds something is left as it is, and the result is
    /// null, when mayEmpty refuses its first line. Raises RuntimeError; PermissionDenied when
    /// another process has it.
    virtual std::unique_ptr<OutputFile> openAlone(const std::string& path,
                                                  const LineCheck& mayEmpty) = 0;
    /// The whole content. Raises RuntimeError (FileNotFound, FileError).
    virtual std::string read(const std::string& path) = 0;
    /// Replaces a file by another in one step. Raises RuntimeError.
    virtual void replace(const std::string& path, const std::string& by) = 0;
    /// No error when there is no such file.
    virtual void remove(const std::string& path) = 0;
};

/// The real disk.
class DiskFiles : public Files
{
public:
    bool folderExists(const std::string& path) override;
    void createFolder(const std::string& path) override;
    std::unique_ptr<OutputFile> create(const std::string& path) override;
    std::unique_ptr<OutputFile> openAlone(const std::string& path,
                                          const LineCheck& mayEmpty) override;
    std::string read(const std::string& path) override;
    void replace(const std::string& path, const std::string& by) override;
    void remove(const std::string& path) override;
};

/// The separator of paths on this platform, and all characters that it accepts as separators.
extern const char pathSeparator;
extern const std::string_view pathSeparators;

}  // namespace sys
