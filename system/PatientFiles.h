// The disk with the patience that it needs: virus scanners and sync clients hold a fresh file open
// for a moment, so what the system denies is tried again.
#pragma once

#include "system/Files.h"
#include "system/RuntimeError.h"

#include <chrono>
#include <functional>

namespace sys
{

using Pause = std::function<void(std::chrono::milliseconds pause)>;

constexpr int retries = 5;
constexpr std::chrono::milliseconds pauseBeforeRetry(100);

/// Repeats a step while the system denies it, with a pause before each try but the first, and
/// raises when it is still denied at the last one. An empty pause takes no time.
template <class Step>
auto retriedWhileDenied(const Pause& pause, Step&& step, int left = retries)
{
    for (;; --left) {
        try {
            return step();
        }
        catch (const RuntimeError& error) {
            if (error.number() != ErrorNumber::PermissionDenied || left == 0)
                throw;
        }
        if (pause)
            pause(pauseBeforeRetry);
    }
}

class PatientFiles : public Files
{
public:
    /// The disk must outlive this.
    PatientFiles(Files& disk, Pause pause) : disk_(disk), pause_(std::move(pause)) {}

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
    /// Tried once: what is waited for here takes longer.
    std::unique_ptr<FolderLock> lockFolder(const std::string& folder) override;

private:
    Files& disk_;
    Pause pause_;
};

}  // namespace sys
