#include "property/LineGrammar.h"

#include <algorithm>
#include <regex>
#include <set>
#include <stdexcept>

namespace property
{

namespace
{

struct Grammar
{
    std::string_view fileNameEnd;
    const char* fixed;  // the lines that are there whatever the grids hold
    const char* row;    // those that a row adds
};

// The first one whose end fits counts, so the longer ends come first.
// clang-format off
constexpr Grammar grammars[] = {
    {"InputValues.txt.template",  "", R"(.+  !<.+%f!.*>!)"},
    {"OutputValues.txt.template", "", R"(.+  !<.+%f!.*>!)"},
    {"FunctionsInputvalues.txt",  "",
        R"(Function Definition| \d+ | \d+|)"
        R"((-| )(\d+|\d*\.\d+)(E[+-]\d\d+)?_(-| )(\d+|\d*\.\d+)(E[+-]\d\d+)?|)"
        R"(title .*)"},
    {"InputValues.txt",           "", R"(.+  .*)"},
    {"OutputValues.txt",          "", R"(.+  .*)"},
    {"CAEInput.txt",
        R"(Reference Model \(FEMAP\) = beam\.neu|Input Deck \(NastranNE\) = beam\.nas|)"
        R"(Input Deck \(NastranNX\) = beam\.dat|NameValue = InputValues\.txt)",
        R"((Node|Elem|Prop|Matl|Function|Load\w+)  .+  ( ?\d+)  (color|pval|0|)  \d*)"},
    {"CAEOutput.txt",
        R"(Reference Model \(FEMAP\) = beam\.neu|Results File \(NastranNE\) = beam\.fno|)"
        R"(Results File \(NastranNX\) = beam\.op2|OutputNameValue = OutputValues\.txt)",
        R"((Output|maxval|minval)  .+  \d+  \d+|MassProperties  .+  [A-Z]\w+  [0-5]?)"},
    {"FDFemap.bat",               R"((nastran .*)?)", ""},
    {"Control.txt",               "", R"([^\t]+(\t[^\t]*){4,5})"},
    {".desc",
        R"(|( {4}){0,4}(End )?[A-Z]\w+( \w+)?)"           // where a piece begins and ends
        R"(|( {4}){0,5}[A-Z]\w+: [^ ].*| {8}(Potential)?(Variables|Objectives):)"
        R"(| {16}del beam\.(fno|op2|Log|rsf)| {16}copy ".*\\nastran\.ini" nastran\.ini)"
        R"(| {16}(nastran .*)?| {25}1|( {4}){2,3}\]| {8}# PLAN TO BE CONFIGURED BY ADVISOR:)",
        R"( {8}Parameter: .+ Type: real( InitialValue: .*)?| {12}.+)"},
    {".kvp",
        R"(#{37}|## {33}##|##  Kelvex Ombra Project \(\.kvp\)    ##|)"
        R"( ?|set \w+(\(\d\))?( ("[^"]*"|[\w.]+))?|set descriptiontext "Project:|=+|"|)"
        R"((Prepared by|Last Modified|Description|Change log):)", ""},
    {".pcs",
        R"('H'  '.*'|'I'  '.+' '.+' '<local>'  0|'[YO]'  '.*' '.+' '<local>' 0)", ""},
    {".par",
        R"('H' '.*')",
        R"('P'    '.+'    .*        0\.00    0\.0    -9\.425e6    9\.425e6    0\.00    [12])"},
};
// clang-format on

class Forms
{
public:
    explicit Forms(const char* pattern) : pattern_(pattern) {}

    bool match(const std::string& line)
    {
        // Most lines come again and again.
        if (known_.contains(line))
            return true;
        const bool matches = std::regex_match(line, pattern_);
        if (matches && known_.size() < mostKnown)
            known_.insert(line);
        return matches;
    }

private:
    static constexpr std::size_t mostKnown = 2000;

    std::regex pattern_;
    std::set<std::string> known_;
};

struct FileForms
{
    std::string_view fileNameEnd;
    Forms fixed;
    Forms row;
};

FileForms& formsOf(std::string_view fileName)
{
    static std::vector<FileForms> all = [] {
        std::vector<FileForms> made;
        for (const Grammar& grammar : grammars)
            made.push_back({grammar.fileNameEnd, Forms(grammar.fixed), Forms(grammar.row)});
        return made;
    }();
    const auto place = std::find_if(all.begin(), all.end(), [&](const FileForms& forms) {
        return fileName.ends_with(forms.fileNameEnd);
    });
    if (place == all.end())
        throw std::logic_error("no grammar for " + std::string(fileName));
    return *place;
}

}  // namespace

std::string flawOfText(std::string_view bytes)
{
    if (bytes.starts_with("\xEF\xBB\xBF") || bytes.starts_with("\xFF\xFE"))
        return "it begins with a mark of the byte order";
    if (bytes.find('\0') != std::string_view::npos)
        return "it holds a NUL";
    if (!bytes.empty() && !bytes.ends_with("\r\n"))
        return "its last line has no end";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const bool startsEnd = bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n';
        if (startsEnd)
            ++i;
        else if (bytes[i] == '\r' || bytes[i] == '\n')
            return "byte " + std::to_string(i) + " is a lone CR or LF";
    }
    return "";
}

std::vector<std::string> linesOf(std::string_view bytes)
{
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find("\r\n");
        lines.emplace_back(bytes.substr(0, end));
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 2);
    }
    return lines;
}

std::string strangeLine(std::string_view fileName, const std::vector<std::string>& lines,
                        bool withRows)
{
    FileForms& forms = formsOf(fileName);
    const auto place = std::find_if_not(lines.begin(), lines.end(), [&](const std::string& line) {
        return forms.fixed.match(line) || (withRows && forms.row.match(line));
    });
    return place == lines.end() ? "" : std::string(fileName) + ": \"" + *place + '"';
}

}  // namespace property
