// The one reader of the project's own files.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace house
{

/// Every file of the project, as its path from there with "/": not what is built or what Git keeps.
const std::vector<std::string>& paths();
/// What a file holds. Raises std::runtime_error when it cannot be read.
std::string textOf(const std::string& path);

/// "app/window" of "app/window/GridView.h"; empty at the top.
std::string folderOf(const std::string& path);
bool isCode(const std::string& path);
/// Code that is neither for tests nor for benchmarks.
bool isProduct(const std::string& path);
bool isPage(const std::string& path);

struct File
{
    std::string path;
    std::string text;
};

/// Those whose paths are meant.
template <class Predicate>
std::vector<File> filesThat(Predicate isMeant)
{
    std::vector<File> files;
    for (const std::string& path : paths())
        if (isMeant(path))
            files.push_back({path, textOf(path)});
    return files;
}

/// A page of the documentation.
class Document
{
public:
    explicit Document(const std::string& path);

    /// What stands under a heading of the second level, without it. Raises std::runtime_error when
    /// there is none.
    std::string section(const std::string& heading) const;
    /// The marks that links can lead to, one for each heading.
    std::vector<std::string> marks() const;
    /// Where its links and pictures lead to, as written; those in code do not count.
    std::vector<std::string> targets() const;

private:
    std::string text_;
};

bool isWordCharacter(char c);
/// A text's lines, without their ends.
std::vector<std::string> linesOf(const std::string& text, std::string_view lineEnd = "\n");
/// Every match of the expression's first group.
std::vector<std::string> allMatches(const std::string& text, const std::string& expression);
/// The same of a text's lines that match it as a whole.
std::vector<std::string> matchingLines(const std::string& text, const std::string& expression);

template <class Words>
bool holds(const Words& words, std::string_view word)
{
    return std::ranges::find(words, word) != std::ranges::end(words);
}

}  // namespace house
