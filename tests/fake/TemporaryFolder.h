#pragma once

#include "system/Files.h"

#include <filesystem>
#include <random>
#include <set>
#include <string>
#include <system_error>

namespace fake
{

/// A fresh folder on the real disk that goes with everything in it.
class TemporaryFolder
{
public:
    TemporaryFolder()
        : folder_(std::filesystem::temp_directory_path() /
                  ("velmar test " + std::to_string(std::random_device{}())))
    {
        std::filesystem::create_directories(folder_);
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Full path in UTF-8 of the folder, or of a file in it.
    std::string path() const { return text(folder_); }
    std::string path(const std::string& file) const { return path() + sys::pathSeparator + file; }

    /// The names of all that is in it.
    std::set<std::string> listing() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_))
            names.insert(text(entry.path().filename()));
        return names;
    }

private:
    static std::string text(const std::filesystem::path& path)
    {
        const std::u8string utf8 = path.u8string();
        return {utf8.begin(), utf8.end()};
    }

    std::filesystem::path folder_;
};

}  // namespace fake
