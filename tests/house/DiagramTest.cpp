#include "Diagram.h"
#include "Project.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <utility>

using house::Diagram;
using house::folderOf;
using house::matchingLines;
using testing::Pair;

namespace
{

const std::string architecturePage = "docs/architecture.md";

// From folder to folder.
std::set<std::pair<std::string, std::string>> includes()
{
    std::set<std::pair<std::string, std::string>> taken;
    for (const house::File& file : house::filesThat(house::isProduct))
        for (const std::string& folder : matchingLines(file.text, R"re(\s*#\s*include "(.*)/.*)re"))
            if (folder != folderOf(file.path))
                taken.emplace(folderOf(file.path), folder);
    return taken;
}

TEST(TheDiagram, DrawsEveryFolderOfTheProduct)
{
    const Diagram diagram = Diagram::ofPage(architecturePage);
    std::set<std::string> folders;
    for (const std::string& path : house::paths())
        if (house::isProduct(path))
            folders.insert(folderOf(path));
    std::set<std::string> drawn;
    for (const auto& [folder, targets] : diagram.arrows())
        drawn.insert(folder);

    EXPECT_THAT(drawn, testing::ContainerEq(folders));
}

TEST(TheDiagram, HasTheArrowsThatIncludesTakeAndNoOthers)
{
    const Diagram diagram = Diagram::ofPage(architecturePage);
    const auto taken = includes();

    for (const auto& [from, to] : taken)
        EXPECT_TRUE(diagram.leads(from, to)) << from << " must not include " << to;
    for (const auto& [from, targets] : diagram.arrows())
        for (const std::string& to : targets)
            EXPECT_THAT(taken, testing::Contains(Pair(from, to)));
}

TEST(TheDiagram, HasNoArrowUpAndNoCircleBetweenTopFoldersEither)
{
    EXPECT_NO_THROW(Diagram::ofPage(architecturePage).ofTopFolders());
}

TEST(ADiagram, LeadsAlongItsArrowsOnly)
{
    const Diagram diagram(
        "flowchart TD\n    a\n    b[\"b/c\"]\n    d\n\n    a --> b\n    b --> d\n");

    EXPECT_TRUE(diagram.leads("a", "b/c"));
    EXPECT_TRUE(diagram.leads("a", "d"));
    EXPECT_FALSE(diagram.leads("d", "a"));
    EXPECT_FALSE(diagram.leads("a", "a"));
    EXPECT_FALSE(diagram.leads("x", "a"));
}

TEST(ADiagram, ThatGoesRoundInACircleIsRefused)
{
    EXPECT_THROW(Diagram("a\na --> a\n"), std::runtime_error);
    EXPECT_THROW(Diagram("a\nb\nc\na --> b\nb --> c\nc --> a\n"), std::runtime_error);
}

TEST(ADiagram, WithAnArrowUpIsRefused)
{
    const std::string floors = "subgraph above\na\nend\nsubgraph below\nb\nc\nend\n";

    EXPECT_NO_THROW(Diagram(floors + "a --> b\nc --> b\n"));
    EXPECT_THROW(Diagram(floors + "b --> a\n"), std::runtime_error);
}

TEST(ADiagram, WithACircleOrAnArrowUpBetweenTopFoldersIsRefusedAsSuch)
{
    const Diagram circle("a\nb[\"a/b\"]\nc\na --> c\nc --> b\n");
    const Diagram up(
        "subgraph above\nb[\"a/b\"]\nc\nend\nsubgraph below\na\nend\nc --> a\nb --> c\n");

    EXPECT_THROW(circle.ofTopFolders(), std::runtime_error);
    EXPECT_THROW(up.ofTopFolders(), std::runtime_error);
}

TEST(ADiagram, MarksTheRoomsForWindows)
{
    const Diagram diagram("a\nb[\"a/b\"]\nc\nclassDef windows x\nclass b,c windows\n");

    EXPECT_FALSE(diagram.isForWindows("a"));
    EXPECT_TRUE(diagram.isForWindows("a/b"));
    EXPECT_TRUE(diagram.isForWindows("c"));
}

TEST(ADiagram, WithWhatCannotBeReadIsRefused)
{
    EXPECT_THROW(Diagram("a\na --> b\n"), std::runtime_error);
    EXPECT_THROW(Diagram("a\nb\na -.-> b\n"), std::runtime_error);
    EXPECT_THROW(Diagram::ofPage("README.md"), std::runtime_error);
}

}  // namespace
