#include "HouseRules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <regex>
#include <string_view>

namespace house
{

namespace
{

// Where anything of the project may be included.
constexpr std::array<std::string_view, 2> freeFolders = {"tests", "bench"};

// Folders of tests for what several rooms do together, and what tests need beside them.
constexpr std::array<std::string_view, 10> commonTests = {
    "examples", "fake",     "fuzz",        "golden",  "house",
    "package",  "property", "reliability", "scaling", "seeds"};
constexpr std::array<std::string_view, 33> windowsHeaders = {
    "atlbase.h", "combaseapi.h", "comdef.h",   "commctrl.h", "commdlg.h",  "comutil.h", "dispex.h",
    "dwmapi.h",  "initguid.h",   "oaidl.h",    "objbase.h",  "objidl.h",   "ocidl.h",   "ole2.h",
    "oleauto.h", "olectl.h",     "richedit.h", "shellapi.h", "shlobj.h",   "shlwapi.h", "tchar.h",
    "unknwn.h",  "uxtheme.h",    "windef.h",   "windows.h",  "windowsx.h", "winbase.h", "wingdi.h",
    "winnls.h",  "winreg.h",     "winsock2.h", "winuser.h",  "wtypes.h",
};

constexpr std::size_t mostLines = 400;
constexpr std::size_t mostColumns = 100;
constexpr std::size_t mostColumnsOfTables = 120;  // where a row stays on its line

bool isBelow(std::string_view path, std::string_view folder)
{
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

template <class Folders>
bool isBelowAny(std::string_view path, const Folders& folders)
{
    return std::any_of(folders.begin(), folders.end(),
                       [&](std::string_view folder) { return isBelow(path, folder); });
}

std::string lowerCase(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return result;
}

struct Include
{
    char opening;  // " or <
    std::string path;
};

std::optional<Include> includeIn(std::string_view line)
{
    const auto skipBlanks = [&] {
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    };
    skipBlanks();
    if (!line.starts_with('#'))
        return std::nullopt;
    line.remove_prefix(1);
    skipBlanks();
    constexpr std::string_view directive = "include";
    if (!line.starts_with(directive))
        return std::nullopt;
    line.remove_prefix(directive.size());
    skipBlanks();
    if (line.empty() || (line.front() != '"' && line.front() != '<'))
        return std::nullopt;
    const char opening = line.front();
    const std::size_t end = line.find(opening == '<' ? '>' : '"', 1);
    return Include{opening, std::string(line.substr(1, end - 1))};
}

std::string folderOf(const std::string& path)
{
    const std::size_t end = path.rfind('/');
    return end == std::string::npos ? "" : path.substr(0, end);
}

// Of the project, and not of the same folder without naming it.
bool isByFolder(const std::optional<Include>& include)
{
    return include && include->opening == '"' && !folderOf(include->path).empty();
}

// Counts characters, not bytes.
std::size_t columnsOf(const std::string& line)
{
    return static_cast<std::size_t>(std::count_if(
        line.begin(), line.end(), [](unsigned char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace

bool isFree(const std::string& folder)
{
    return isBelowAny(folder, freeFolders);
}

std::vector<std::string> includedFolders(const SourceFile& file)
{
    std::vector<std::string> folders;
    for (const std::string& line : file.lines)
        if (const auto include = includeIn(line); isByFolder(include))
            folders.push_back(folderOf(include->path));
    return folders;
}

std::vector<std::string> includesAgainstTheArrows(const SourceFile& file, const Diagram& diagram)
{
    std::vector<std::string> broken;
    const std::string folder = file.folder();
    if (!file.isCode() || isFree(folder))
        return broken;
    if (!diagram.has(folder))
        return {at(file, 0, "the folder has no place among the arrows")};

    for (std::size_t i = 0; i < file.lines.size(); ++i) {
        const std::optional<Include> include = includeIn(file.lines[i]);
        if (!isByFolder(include))
            continue;
        const std::string target = folderOf(include->path);
        if (target != folder && !diagram.leads(folder, target))
            broken.push_back(at(file, i, folder + " must not include " + include->path));
    }
    return broken;
}

std::vector<std::string> windowsHeadersOutOfPlace(const SourceFile& file, const Diagram& diagram)
{
    std::vector<std::string> broken;
    const std::string folder = file.folder();
    const std::string room =
        isFree(folder) ? folder.substr(std::min(folder.find('/') + 1, folder.size())) : folder;
    if (!file.isCode() || diagram.isForWindows(room) || file.path.ends_with("_windows.cpp") ||
        folder == "bench/com")
        return broken;
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
        const std::optional<Include> include = includeIn(file.lines[i]);
        if (!include)
            continue;
        const std::string header = lowerCase(include->path);
        if (std::find(windowsHeaders.begin(), windowsHeaders.end(), header) != windowsHeaders.end())
            broken.push_back(at(file, i, "<" + include->path + "> has no place here"));
    }
    return broken;
}

std::vector<std::string> conditionalLines(const SourceFile& file)
{
    std::vector<std::string> broken;
    if (!file.isCode() || isFree(file.folder()))
        return broken;
    const std::regex condition("\\s*#\\s*if.*");
    for (std::size_t i = 0; i < file.lines.size(); ++i)
        if (std::regex_match(file.lines[i], condition))
            broken.push_back(at(file, i, "a platform has files of its own"));
    return broken;
}

std::vector<std::string> missingPurpose(const SourceFile& file, const std::set<std::string>& paths)
{
    if (!file.isCode() || isFree(file.folder()))
        return {};
    const std::string stem = file.path.substr(0, file.path.rfind('.'));
    const bool headerTells = file.path.ends_with(".cpp") && paths.count(stem + ".h") != 0;
    if (headerTells || (!file.lines.empty() && file.lines.front().starts_with("// ")))
        return {};
    return {at(file, 0, "the first line does not tell what the file is for")};
}

std::vector<std::string> testsOutOfPlace(const SourceFile& file, const Diagram& diagram)
{
    constexpr std::string_view tests = "tests/";
    const std::string folder = file.folder();
    if (!file.isCode() || !folder.starts_with(tests))
        return {};
    const std::string room = folder.substr(tests.size());
    const bool isCommon =
        std::find(commonTests.begin(), commonTests.end(), room) != commonTests.end();
    if (isCommon || diagram.has(room))
        return {};
    return {at(file, 0, "there is no room " + room)};
}

std::vector<std::string> unusedNames(const SourceFile& file)
{
    std::vector<std::string> broken;
    if (!file.isCode())
        return broken;
    const std::regex introduction(R"(\s*(?:using [\w:]*::(\w+);|namespace (\w+) = .*;).*)");
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
        std::smatch found;
        if (!std::regex_match(file.lines[i], found, introduction))
            continue;
        const std::string name = found[1].matched ? found[1] : found[2];
        const std::regex word("\\b" + name + "\\b");
        const auto uses =
            std::count_if(file.lines.begin(), file.lines.end(), [&](const std::string& line) {
                return line.find(name) != std::string::npos && std::regex_search(line, word);
            });
        if (uses < 2)
            broken.push_back(at(file, i, "nobody uses " + name));
    }
    return broken;
}

std::vector<std::string> tooLong(const SourceFile& file)
{
    std::vector<std::string> broken;
    if (!file.isCode())
        return broken;
    if (file.lines.size() > mostLines)
        broken.push_back(
            at(file, mostLines, "the file has " + std::to_string(file.lines.size()) + " lines"));
    bool table = false;     // between clang-format off and on
    bool verbatim = false;  // inside R"text(…)text"
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
        const std::string& line = file.lines[i];
        const std::size_t opening = line.rfind("R\"text(");
        const std::size_t closing = line.rfind(")text\"");
        const bool touchesText = verbatim || opening != std::string::npos;
        if (opening != std::string::npos)
            verbatim = true;
        if (closing != std::string::npos && (opening == std::string::npos || closing > opening))
            verbatim = false;
        if (line.find("// clang-format o") != std::string::npos)
            table = line.find("// clang-format off") != std::string::npos;
        if (!touchesText && columnsOf(line) > (table ? mostColumnsOfTables : mostColumns))
            broken.push_back(
                at(file, i, "the line has " + std::to_string(columnsOf(line)) + " columns"));
    }
    return broken;
}

}  // namespace house
