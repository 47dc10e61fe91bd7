#include "Documents.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace house
{

namespace
{

// Blocks between fences, indented blocks and what stands in back-ticks.
std::string withoutCode(const std::string& text)
{
    std::string kept;
    bool fenced = false;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
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

std::string contentOf(const std::string& file)
{
    std::ifstream in(std::string(SOURCE_FOLDER) + "/" + file, std::ios::binary);
    if (!in)
        throw std::runtime_error(file + " cannot be read");
    return {std::istreambuf_iterator<char>(in), {}};
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

Document::Document(const std::string& file) : text_(contentOf(file)) {}

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
    for (const std::string& heading : allMatches("\n" + text_, "\n#+ ([^\n]*)"))
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

}  // namespace house
