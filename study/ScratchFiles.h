// A disk that looks as if everything were written, while the real one stays as it is: what is
// written is kept in memory.
#pragma once

#include "system/Files.h"

#include <map>
#include <set>
#include <string>

namespace study
{

class ScratchFiles : public sys::Files
{
public:
    /// The real disk must outlive this.
    explicit ScratchFiles(sys::Files& real) : real_(real) {}

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

private:
    void demandFolderOf(const std::string& path);

    sys::Files& real_;
    std::map<std::string, std::string> written_;  // contents by path
    std::set<std::string> folders_;
};

}  // namespace study
