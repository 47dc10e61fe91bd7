#include "fake/Golden.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace fake
{

namespace
{

namespace fs = std::filesystem;

using FileSet = std::map<std::string, std::string>;  // contents by name

FileSet filesIn(const fs::path& folder)
{
    FileSet result;
    if (!fs::is_directory(folder))
        return result;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        std::string content(std::istreambuf_iterator<char>(file), {});
        result[entry.path().filename().string()] = std::move(content);
    }
    return result;
}

void rewrite(const fs::path& folder, const FileSet& files)
{
    fs::remove_all(folder);
    fs::create_directories(folder);
    for (const auto& [name, content] : files) {
        std::ofstream file(folder / name, std::ios::binary);
        file.write(content.data(), static_cast<std::streamsize>(content.size()));
        if (!file.flush())
            throw std::runtime_error("The golden file " + name + " could not be written");
    }
}

std::string_view takeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

std::string firstDifference(std::string_view written, std::string_view golden)
{
    for (int number = 1;; ++number) {
        const std::string_view isLine = takeLine(written);
        const std::string_view shouldBe = takeLine(golden);
        if (isLine != shouldBe || (written.empty() && golden.empty()))
            return "line " + std::to_string(number) + " is \"" + std::string(isLine) +
                   "\" instead of \"" + std::string(shouldBe) + "\"";
    }
}

}  // namespace

std::vector<std::string> differencesFromGolden(const MemoryFiles& files, const std::string& folder,
                                               const fs::path& golden)
{
    const FileSet written = files.inFolder(folder);
    const char* const update = std::getenv("UPDATE_GOLDEN");
    if (update != nullptr && std::string_view(update) == "1") {
        rewrite(golden, written);
        return {"The golden folder " + golden.string() + " was made anew; read it as a diff"};
    }

    std::vector<std::string> differences;
    const FileSet expected = filesIn(golden);
    for (const auto& [name, content] : written) {
        const auto place = expected.find(name);
        if (place == expected.end())
            differences.push_back(name + " is one file too many");
        else if (place->second != content)
            differences.push_back(name + ": " + firstDifference(content, place->second));
    }
    for (const auto& [name, content] : expected)
        if (!written.contains(name))
            differences.push_back(name + " was not written");
    return differences;
}

}  // namespace fake
