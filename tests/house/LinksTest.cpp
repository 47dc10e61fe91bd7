#include "Documents.h"
#include "SourceTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

using house::Document;
using testing::IsEmpty;

namespace
{

namespace fs = std::filesystem;

bool isOnTheWeb(const std::string& target)
{
    return target.find("://") != std::string::npos;
}

// What is wrong with a link of a page; empty: nothing.
std::string problemOf(const std::string& page, const std::string& target)
{
    const std::size_t hash = target.find('#');
    const std::string file = target.substr(0, hash);
    const fs::path path =
        file.empty() ? fs::path(page) : (fs::path(page).parent_path() / file).lexically_normal();
    if (!fs::exists(fs::path(SOURCE_FOLDER) / path))
        return page + " leads to " + target + ", which is not there";
    if (hash == std::string::npos)
        return {};
    const std::vector<std::string> marks = Document(path.generic_string()).marks();
    return testing::Value(marks, testing::Contains(target.substr(hash + 1)))
               ? std::string()
               : page + " leads to " + target + ", where no such heading is";
}

TEST(EveryPage, LeadsOnlyToWhatIsThere)
{
    std::vector<std::string> problems;
    int links = 0;
    for (const house::SourceFile& page : house::sources()) {
        if (!page.path.ends_with(".md"))
            continue;
        for (const std::string& target : Document(page.path).targets()) {
            if (isOnTheWeb(target))
                continue;
            ++links;
            const std::string problem = problemOf(page.path, target);
            if (!problem.empty())
                problems.push_back(problem);
        }
    }

    EXPECT_THAT(problems, IsEmpty());
    EXPECT_GT(links, 20);
}

TEST(EveryPageOfTheDocumentation, IsReachedFromTheReadme)
{
    std::vector<std::string> reached = {"README.md"};
    for (std::size_t i = 0; i < reached.size(); ++i) {
        if (!reached[i].ends_with(".md"))
            continue;
        for (const std::string& target : Document(reached[i]).targets()) {
            const std::string file = target.substr(0, target.find('#'));
            if (file.empty() || isOnTheWeb(target))
                continue;
            const std::string path =
                (fs::path(reached[i]).parent_path() / file).lexically_normal().generic_string();
            if (std::find(reached.begin(), reached.end(), path) == reached.end())
                reached.push_back(path);
        }
    }

    for (const house::SourceFile& page : house::sources())
        if (page.path.starts_with("docs/") && page.path.ends_with(".md") &&
            !page.path.ends_with(".template.md")) {
            EXPECT_THAT(reached, testing::Contains(page.path));
        }
}

TEST(ProblemOfALink, IsFoundInFileAndHeading)
{
    EXPECT_NE("", problemOf("README.md", "docs/nothing.md"));
    EXPECT_NE("", problemOf("docs/guide.md", "file-formats.md#no-such-heading"));
    EXPECT_NE("", problemOf("docs/guide.md", "#no-such-heading"));
    EXPECT_EQ("", problemOf("docs/guide.md", "file-formats.md#velmarnamedesc"));
    EXPECT_EQ("", problemOf("docs/guide.md", "#limits"));
    EXPECT_EQ("", problemOf("README.md", "docs/guide.md"));
}

}  // namespace
