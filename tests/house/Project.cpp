#include "Project.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace house
{

namespace
{

namespace fs = std::filesystem;

std::vector<std::string> pathsBelow(const fs::path& top)
{
    std::vector<std::string> paths;
    for (fs::recursive_directory_iterator entry(top), end; entry != end; ++entry) {
        const std::string name = entry->path().filename().string();
        if (entry->is_directory() && (name == ".git" || name.starts_with("build")))
            entry.disable_recursion_pending();
        else if (entry->is_regular_file())
            paths.push_back(entry->path().lexically_relative(top).generic_string());
    }
    return paths;
}

// Blocks between fences, indented blocks and what stands in back-ticks.
std::string withoutCode(const std::string& text)
{
    std::string kept;
    bool fenced = false;
    for (const std::string& line : linesOf(text)) {
        if (line.starts_with("```"))
            fenced = !fenced;
        else if (!fenced && !line.starts_with("    "))
            kept += line + "\n";
    }
    return std::regex_replace(kept, std::regex("`[^`\n]*`"), "");
}

// As web sites for Markdown make it: small letters, "-" for blanks, no other signs.
std::string markOf(const std::string& heading)
{
    std::string mark;
    for (const char c : std::regex_replace(heading, std::regex("&[lg]t;|`"), "")) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == ' ')
            mark += '-';
        else if (std::isalnum(byte) != 0 || c == '-' || c == '_' || byte >= 0x80)
            mark += static_cast<char>(byte < 0x80 ? std::tolower(byte) : byte);
    }
    return mark;
}

}  // namespace

const std::vector<std::string>& paths()
{
    static const std::vector<std::string> all = pathsBelow(SOURCE_FOLDER);
    return all;
}

std::string textOf(const std::string& path)
{
    std::ifstream file(SOURCE_FOLDER "/" + path, std::ios::binary);
    if (!file)
        throw std::runtime_error(path + " cannot be read");
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string folderOf(const std::string& path)
{
    const std::size_t end = path.rfind('/');
    return end == std::string::npos ? "" : path.substr(0, end);
}

bool isCode(const std::string& path)
{
    return path.ends_with(".h") || path.ends_with(".cpp");
}

bool isProduct(const std::string& path)
{
    return isCode(path) && !path.starts_with("tests/") && !path.starts_with("bench/");
}

bool isPage(const std::string& path)
{
    return path.ends_with(".md");
}

bool isWordCharacter(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

std::vector<std::string> linesOf(const std::string& text, std::string_view lineEnd)
{
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(lineEnd, start), text.size());
        lines.push_back(text.substr(start, end - start));
        start = end + lineEnd.size();
    }
    return lines;
}

Document::Document(const std::string& path) : text_(textOf(path)) {}

std::string Document::section(const std::string& heading) const
{
    const std::string line = "\n## " + heading + "\n";
    const std::size_t found = text_.find(line);
    if (found == std::string::npos)
        throw std::runtime_error("there is no section " + heading);
    const std::size_t start = found + line.size();
    return text_.substr(start, text_.find("\n## ", start - 1) - start);
}

std::vector<std::string> Document::marks() const
{
    std::vector<std::string> marks;
    for (const std::string& heading : matchingLines(text_, "#+ (.*)"))
        marks.push_back(markOf(heading));
    return marks;
}

std::vector<std::string> Document::targets() const
{
    // A link's text may hold code, so only its end is looked at.
    return allMatches(withoutCode(text_), R"(\]\(([^)\s]+)\))");
}

std::vector<std::string> allMatches(const std::string& text, const std::string& expression)
{
    const std::regex pattern(expression);
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match)
        found.push_back((*match)[1]);
    return found;
}

std::vector<std::string> matchingLines(const std::string& text, const std::string& expression)
{
    const std::regex pattern(expression);
    std::vector<std::string> found;
    std::smatch match;
    for (const std::string& line : linesOf(text))
        if (std::regex_match(line, match, pattern))
            found.push_back(match[1]);
    return found;
}

}  // namespace house
