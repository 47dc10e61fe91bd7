#include "Diagram.h"
#include "Project.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

// What neither compilers nor linters nor the formatter see.

using house::File;
using house::filesThat;
using house::folderOf;
using house::isCode;
using house::isProduct;
using house::matchingLines;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

const house::Diagram& architecture()
{
    static const house::Diagram drawn = house::Diagram::ofPage("docs/architecture.md");
    return drawn;
}

// The lines that match the expression; of each what the group holds.
std::vector<std::string> breaches(const std::vector<File>& files, const std::string& expression)
{
    std::vector<std::string> found;
    for (const File& file : files)
        for (const std::string& each : matchingLines(file.text, expression))
            found.push_back(file.path + ": " + each);
    return found;
}

TEST(TheHouse, SeesTheWholeProject)
{
    for (const char* const path : {"CMakeLists.txt", ".clang-tidy", "check", "form/MainForm.h",
                                   "logging/FemapLogger.cpp", "tests/house/HouseRulesTest.cpp"})
        EXPECT_THAT(house::paths(), testing::Contains(path));
}

TEST(EveryRoom, HasNoConditionalLines)
{
    const std::string condition = R"(\s*(#\s*if.*))";

    EXPECT_THAT(breaches({{"a/A.h", "#pragma once\n  # ifdef _WIN32\n#endif\n"}}, condition),
                ElementsAre("a/A.h: # ifdef _WIN32"));
    EXPECT_THAT(breaches(filesThat(isProduct), condition), IsEmpty())
        << "A platform has files of its own";
}

// The compiler sees it in sources, not in headers that only sources for one platform include.
TEST(EveryRoom, LeavesWhatAPlatformHasToTheRoomsAndFilesMadeForIt)
{
    const std::string header = R"re(\s*#\s*include\s*(<.*\.h>|"[a-z]+\.h").*)re";
    const auto isForEveryPlatform = [](const std::string& path) {
        return isProduct(path) && !architecture().isForWindows(folderOf(path)) &&
               !path.ends_with("_windows.cpp") && !path.ends_with("_posix.cpp");
    };

    EXPECT_THAT(breaches({{"a/A.h",
                           "# include <ShellAPI.h>\n#include \"oleauto.h\"\n"
                           "// a note on <windows.h>\n#include \"a/B.h\"\n"}},
                         header),
                ElementsAre("a/A.h: <ShellAPI.h>", "a/A.h: \"oleauto.h\""));
    EXPECT_THAT(breaches(filesThat(isForEveryPlatform), header), IsEmpty());
}

TEST(EverySourceFile, TellsFirstWhatItIsFor)
{
    for (const File& file : filesThat(isProduct)) {
        const std::string header = file.path.substr(0, file.path.rfind('.')) + ".h";
        const bool headerTells = file.path != header && house::holds(house::paths(), header);
        EXPECT_TRUE(headerTells || file.text.starts_with("// ")) << file.path;
    }
}

TEST(EveryTest, LiesWhereWhatItTestsLies)
{
    // What several rooms do together, and what tests need beside them.
    constexpr std::array<std::string_view, 7> common = {
        "examples", "fake", "fuzz", "house", "property", "reliability", "scaling"};
    const std::string tests = "tests/";

    for (const std::string& path : house::paths()) {
        const std::string folder = folderOf(path);
        if (!isCode(path) || !folder.starts_with(tests))
            continue;
        const std::string room = folder.substr(tests.size());
        EXPECT_TRUE(house::holds(common, room) || architecture().has(room)) << path;
    }
}

std::size_t timesIn(const std::string& text, const std::string& word)
{
    std::size_t times = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
        if (!house::isWordCharacter(text[at - 1]) &&
            !house::isWordCharacter(text[at + word.size()]))
            ++times;
    return times;
}

// Those that are brought in from elsewhere, or made for a namespace, and stand nowhere else.
std::vector<std::string> unusedNames(const std::string& text)
{
    std::vector<std::string> names =
        matchingLines(text, R"(\s*(?:using [\w:]*::|namespace )(\w+)(?:;| = ).*)");
    std::erase_if(names, [&](const std::string& name) { return timesIn(text, name) > 1; });
    return names;
}

// clang-tidy looks for them in the file that it is given, not in what that includes.
TEST(EverySourceFile, BringsInOnlyNamesThatItUses)
{
    EXPECT_THAT(unusedNames("using generate::TextFile;\nusing form::Context;  // why\n"
                            "namespace fs = std::filesystem;\nnamespace rs = std::ranges;\n"
                            "void write(Context&, fs::path, TextFileName);\n"),
                ElementsAre("TextFile", "rs"));
    for (const File& file : filesThat(isCode))
        EXPECT_THAT(unusedNames(file.text), IsEmpty()) << file.path;
}

// The formatter keeps all else within 100 columns.
TEST(EverySourceFile, KeepsWithinItsLengthAndItsTablesWithinTheirWidth)
{
    const auto isWideRow = [](const std::string& line) {
        return line.size() > 120 && line[line.find_first_not_of(' ')] == '{';
    };

    EXPECT_TRUE(isWideRow("    {\"row\"," + std::string(120, ' ') + "1},"));
    for (const File& file : filesThat(isCode)) {
        EXPECT_LE(std::ranges::count(file.text, '\n'), 400) << file.path;
        EXPECT_TRUE(std::ranges::none_of(house::linesOf(file.text), isWideRow)) << file.path;
    }
}

// A stream would keep its failure to itself. The stand-in is not part of the product.
TEST(EveryFile, IsReachedThroughOperationsThatRaise)
{
    const std::string streams = R"(\s*#\s*include\s*<(fstream)>.*)";
    const auto isOurs = [](const std::string& path) {
        return isProduct(path) && !path.starts_with("standin/");
    };

    EXPECT_THAT(breaches({{"a/A.cpp", "#include <fstream>\n"}}, streams),
                ElementsAre("a/A.cpp: fstream"));
    EXPECT_THAT(breaches(filesThat(isOurs), streams), IsEmpty());
}

}  // namespace
