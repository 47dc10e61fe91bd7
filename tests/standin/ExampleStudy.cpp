#include "standin/ExampleStudy.h"

#include "standin/StartedStandin.h"
#include "windows/Text.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

namespace comtest
{

std::string contentOf(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

namespace
{

const std::string startWord = "start ";

// A script, or the one that a page of the documentation shows.
std::string scriptIn(const std::string& file)
{
    const std::string text = contentOf(std::filesystem::path(SOURCE_FOLDER) / file);
    if (!file.ends_with(".md"))
        return text;
    const std::size_t begin = text.find('\n' + startWord);
    return text.substr(begin, text.find("\n```", begin) - begin);
}

}  // namespace

std::vector<std::string> actionsOf(const std::string& study, const std::filesystem::path& folder)
{
    std::istringstream script(scriptIn(study));
    std::vector<std::string> result;
    for (std::string line; std::getline(script, line);) {
        if (line.starts_with(startWord))
            line = startWord + (folder / line.substr(startWord.size())).string();
        if (!line.empty() && line[0] != '#' && !line.starts_with("put "))
            result.push_back(line);
    }
    return result;
}

std::filesystem::path writeScript(const std::string& study, const std::filesystem::path& folder)
{
    const std::filesystem::path path = folder / "script.study";
    std::ofstream script(path, std::ios::binary);
    for (const std::string& line : actionsOf(study, folder))
        script << line << '\n';
    return path;
}

DWORD replay(const std::filesystem::path& script, const std::string& femap)
{
    return runProgram(
        PROGRAM_FOLDER "/velmar-study.exe",
        "--quiet --femap=" + femap + " \"" + windows::fromWide(script.wstring()) + '"');
}

Contents takeFiles(const std::filesystem::path& folder)
{
    Contents result;
    const std::vector<std::string> toStay = {".neu", ".study"};
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string ending = entry.path().extension().string();
        if (!entry.is_regular_file() || std::ranges::find(toStay, ending) != toStay.end())
            continue;
        result[entry.path().filename().string()] = contentOf(entry.path());
        std::filesystem::remove(entry.path());
    }
    return result;
}

void forgetTime(Contents& contents)
{
    for (auto& [name, content] : contents) {
        const std::size_t begin = content.find("Execution starts at ");
        if (begin != std::string::npos)
            content.erase(begin, content.find("\r\n", begin) - begin);
    }
}

void forgetFirstSize(std::string& log)
{
    const std::string before = "DEBUG: Position at ";
    const std::string lines = before + "At start of Form_Resize\r\nDEBUG: Form resized\r\n" +
                              before + "At end of Form_Resize\r\n";
    const std::size_t begin = log.find(lines);
    if (begin != std::string::npos)
        log.erase(begin, lines.size());
}

std::string_view fromFirstDifference(const std::string& text, const std::string& other)
{
    const auto end =
        text.begin() + static_cast<std::ptrdiff_t>(std::min(text.size(), other.size()));
    const auto place = std::mismatch(text.begin(), end, other.begin()).first;
    const std::string_view before(text.data(), static_cast<std::size_t>(place - text.begin()));
    return std::string_view(text).substr(before.rfind('\n') + 1);
}

}  // namespace comtest
