#include "SourceTree.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace house
{

namespace
{

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 14> textEndings = {
    "",    ".h",    ".cpp",      ".rc",         ".cmake",        ".txt",       ".md",
    ".sh", ".json", ".manifest", ".clang-tidy", ".clang-format", ".gitignore", ".study",
};

// Not the project's own text: what is built, what Git keeps, what tests compare with or read.
bool isSkipped(const fs::path& folder)
{
    constexpr std::array<std::string_view, 3> names = {".git", "golden", "seeds"};
    const std::string name = folder.filename().string();
    return holds(names, name) || name.starts_with("build");
}

std::string endingOf(const fs::path& file)
{
    const std::string name = file.filename().string();
    return name.starts_with('.') ? name : file.extension().string();
}

std::vector<std::string> linesOf(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

}  // namespace

std::string SourceFile::folder() const
{
    const std::size_t end = path.rfind('/');
    return end == std::string::npos ? "" : path.substr(0, end);
}

bool SourceFile::isCode() const
{
    return path.ends_with(".h") || path.ends_with(".cpp");
}

std::vector<SourceFile> readSources(const std::string& projectFolder)
{
    std::vector<SourceFile> sources;
    const fs::path top(projectFolder);
    for (fs::recursive_directory_iterator entry(top), end; entry != end; ++entry) {
        if (entry->is_directory() && isSkipped(entry->path()))
            entry.disable_recursion_pending();
        else if (entry->is_regular_file() && holds(textEndings, endingOf(entry->path())))
            sources.push_back(
                {entry->path().lexically_relative(top).generic_string(), linesOf(entry->path())});
    }
    return sources;
}

const std::vector<SourceFile>& sources()
{
    static const std::vector<SourceFile> all = readSources(SOURCE_FOLDER);
    return all;
}

std::string at(const SourceFile& file, std::size_t line, const std::string& what)
{
    return file.path + ":" + std::to_string(line + 1) + ": " + what;
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = std::min(text.find_first_not_of(" \t\r\n"), text.size());
    return text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first);
}

}  // namespace house
