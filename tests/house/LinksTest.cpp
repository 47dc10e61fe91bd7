#include "Project.h"

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

bool isOnTheWeb(const std::string& target)
{
    return target.find("://") != std::string::npos;
}

// From the project's folder.
std::string placeOf(const std::string& page, const std::string& target)
{
    return (std::filesystem::path(page).parent_path() / target).lexically_normal().generic_string();
}

// A file, or a folder with one.
bool isThere(const std::string& path)
{
    return std::ranges::any_of(house::paths(), [&](const std::string& file) {
        return file == path || file.starts_with(path + (path.ends_with('/') ? "" : "/"));
    });
}

// What is wrong with a link of a page; empty: nothing.
std::string problemOf(const std::string& page, const std::string& target)
{
    const std::size_t hash = target.find('#');
    const std::string file = target.substr(0, hash);
    const std::string path = file.empty() ? page : placeOf(page, file);
    if (!isThere(path))
        return page + " leads to " + target + ", which is not there";
    if (hash == std::string::npos)
        return {};
    return house::holds(Document(path).marks(), target.substr(hash + 1))
               ? std::string()
               : page + " leads to " + target + ", where no such heading is";
}

TEST(EveryPage, LeadsOnlyToWhatIsThere)
{
    std::vector<std::string> problems;
    int links = 0;
    for (const std::string& page : house::paths()) {
        if (!house::isPage(page))
            continue;
        for (const std::string& target : Document(page).targets()) {
            if (isOnTheWeb(target))
                continue;
            ++links;
            const std::string problem = problemOf(page, target);
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
        if (!house::isPage(reached[i]))
            continue;
        for (const std::string& target : Document(reached[i]).targets()) {
            const std::string file = target.substr(0, target.find('#'));
            if (file.empty() || isOnTheWeb(target))
                continue;
            const std::string path = placeOf(reached[i], file);
            if (!house::holds(reached, path))
                reached.push_back(path);
        }
    }

    for (const std::string& page : house::paths())
        if (page.starts_with("docs/") && house::isPage(page) && !page.ends_with(".template.md")) {
            EXPECT_THAT(reached, testing::Contains(page));
        }
}

// The package has them as one page; pictures lie inside it.
TEST(ThePagesOfThePackage, LeadOnlyToOneAnother)
{
    const std::string list =
        house::allMatches(house::textOf("packaging/make-guide.py"), R"(\npages = \[([^\]]*)\])")
            .at(0);
    const std::vector<std::string> pages = house::allMatches(list, "\"([^\"]+)\"");

    for (const std::string& page : pages)
        for (const std::string& target :
             house::allMatches(house::textOf("docs/" + page), R"([^!]\[[^\]]*\]\(([^)]+)\))")) {
            const std::string file = target.substr(0, target.find('#'));
            if (!file.empty() && !isOnTheWeb(target)) {
                EXPECT_THAT(pages, testing::Contains(file)) << page;
            }
        }
    EXPECT_THAT(pages, testing::Contains("first-study.md"));
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
