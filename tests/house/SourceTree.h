#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace house
{

/// A text file of the project.
struct SourceFile
{
    std::string path;  // from the project's folder, with "/"
    std::vector<std::string> lines;

    /// "app/window" of "app/window/GridView.h"; empty at the top.
    std::string folder() const;
    /// C++ code.
    bool isCode() const;
};

/// Every text file below the folder but what is built, generated or test data.
std::vector<SourceFile> readSources(const std::string& projectFolder);
/// Those of this project, read once.
const std::vector<SourceFile>& sources();

/// "path:line: what is wrong"; line: from 0.
std::string at(const SourceFile& file, std::size_t line, const std::string& what);
/// What a rule, which lists where a file breaks it, has to say about the whole project.
template <class Rule>
std::vector<std::string> breachesOf(Rule rule)
{
    std::vector<std::string> breaches;
    for (const SourceFile& file : sources())
        for (const std::string& each : rule(file))
            breaches.push_back(each);
    return breaches;
}

template <class Words>
bool holds(const Words& words, std::string_view word)
{
    return std::ranges::find(words, word) != words.end();
}

/// Without the blanks at both ends.
std::string_view trimmed(std::string_view text);

}  // namespace house
