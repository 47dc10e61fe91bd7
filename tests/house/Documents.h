#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace house
{

/// A file's bytes. file: from the project's folder. Raises std::runtime_error when it cannot be
/// read.
std::string contentOf(const std::string& file);

/// A text's lines, without their ends.
std::vector<std::string> linesOf(const std::string& text, std::string_view lineEnd = "\n");

/// A page of the documentation.
class Document
{
public:
    /// file: from the project's folder.
    explicit Document(const std::string& file);

    const std::string& text() const { return text_; }
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

/// Every match of the expression's first group.
std::vector<std::string> allMatches(const std::string& text, const std::string& expression);

}  // namespace house
