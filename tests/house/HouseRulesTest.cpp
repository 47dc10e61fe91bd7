#include "HouseRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using house::breachesOf;
using house::conditionalLines;
using house::includesAgainstTheArrows;
using house::missingPurpose;
using house::SourceFile;
using house::sources;
using house::testsOutOfPlace;
using house::tooLong;
using house::unusedNames;
using house::windowsHeadersOutOfPlace;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

const house::Diagram& architecture()
{
    static const house::Diagram drawn = house::Diagram::ofPage("docs/architecture.md");
    return drawn;
}

TEST(HouseRules, SeeTheWholeProject)
{
    const auto sees = [](const std::string& path) {
        return std::any_of(sources().begin(), sources().end(),
                           [&](const SourceFile& file) { return file.path == path; });
    };

    EXPECT_TRUE(sees("CMakeLists.txt"));
    EXPECT_TRUE(sees("logging/FemapLogger.cpp"));
    EXPECT_TRUE(sees("form/MainForm.h"));
    EXPECT_TRUE(sees("tests/house/HouseRulesTest.cpp"));
    EXPECT_TRUE(sees(".clang-tidy"));
    EXPECT_TRUE(sees("check"));
}

TEST(EveryRoom, IncludesOnlyAlongTheArrows)
{
    EXPECT_THAT(breachesOf([](const SourceFile& file) {
                    return includesAgainstTheArrows(file, architecture());
                }),
                IsEmpty());
}

TEST(EveryRoom, LeavesWindowsToTheRoomsAndFilesMadeForIt)
{
    EXPECT_THAT(breachesOf([](const SourceFile& file) {
                    return windowsHeadersOutOfPlace(file, architecture());
                }),
                IsEmpty());
}

TEST(EveryRoom, HasNoConditionalLines)
{
    EXPECT_THAT(breachesOf(conditionalLines), IsEmpty());
}

TEST(EverySourceFile, TellsFirstWhatItIsFor)
{
    std::set<std::string> paths;
    for (const SourceFile& file : sources())
        paths.insert(file.path);

    EXPECT_THAT(breachesOf([&](const SourceFile& file) { return missingPurpose(file, paths); }),
                IsEmpty());
}

TEST(EveryTest, LiesWhereWhatItTestsLies)
{
    EXPECT_THAT(
        breachesOf([](const SourceFile& file) { return testsOutOfPlace(file, architecture()); }),
        IsEmpty());
}

TEST(EverySourceFile, BringsInOnlyNamesThatItUses)
{
    EXPECT_THAT(breachesOf(unusedNames), IsEmpty());
}

TEST(EverySourceFile, KeepsWithinItsLengthAndWidth)
{
    EXPECT_THAT(breachesOf(tooLong), IsEmpty());
}

TEST(IncludesAgainstTheArrows, AreFoundInEveryDirection)
{
    const auto broken = [](const std::string& path, const std::string& header) {
        return !includesAgainstTheArrows({path, {"#include \"" + header + "\""}}, architecture())
                    .empty();
    };

    EXPECT_TRUE(broken("logging/A.cpp", "femap/Value.h"));
    EXPECT_TRUE(broken("system/A.cpp", "logging/Module1.h"));
    EXPECT_TRUE(broken("femap/A.cpp", "femap/embedded/Host.h"));
    EXPECT_TRUE(broken("femap/A.cpp", "system/System.h"));
    EXPECT_TRUE(broken("femap/neutral/A.cpp", "femap/embedded/Host.h"));
    EXPECT_TRUE(broken("femap/A.h", "form/MainForm.h"));
    EXPECT_TRUE(broken("selection/A.cpp", "generate/ControlFile.h"));
    EXPECT_TRUE(broken("generate/A.cpp", "selection/InputList.h"));
    EXPECT_TRUE(broken("generate/A.cpp", "femap/com/Dispatch.h"));
    EXPECT_TRUE(broken("form/A.cpp", "app/Startup.h"));
    EXPECT_TRUE(broken("app/A.cpp", "femap/embedded/Host.h"));
    EXPECT_TRUE(broken("app/A.cpp", "app/window/Window.h"));
    EXPECT_TRUE(broken("study/A.cpp", "tests/fake/FormFixture.h"));
    EXPECT_TRUE(broken("util/A.cpp", "femap/Value.h"));

    EXPECT_FALSE(broken("femap/embedded/A.cpp", "system/System.h"));
    EXPECT_FALSE(broken("femap/com/A.cpp", "femap/com/Dispatch.h"));
    EXPECT_FALSE(broken("app/A.cpp", "selection/InputList.h"));
    EXPECT_FALSE(broken("study/A.cpp", "femap/embedded/Host.h"));
    EXPECT_FALSE(broken("app/window/A.cpp", "femap/com/ComApplication.h"));
    EXPECT_FALSE(broken("tests/generate/A.cpp", "selection/InputList.h"));
}

TEST(IncludesAgainstTheArrows, AreNamedWithTheirLine)
{
    const SourceFile file = {"logging/A.cpp",
                             {"#include <string>", "", "  #  include \"femap/Value.h\" // why"}};

    EXPECT_THAT(includesAgainstTheArrows(file, architecture()),
                ElementsAre("logging/A.cpp:3: logging must not include femap/Value.h"));
}

TEST(WindowsHeaders, AreFoundOutsideTheirFoldersWhateverTheirSpelling)
{
    const auto broken = [](const std::string& path, const std::string& line) {
        return !windowsHeadersOutOfPlace({path, {line}}, architecture()).empty();
    };

    EXPECT_TRUE(broken("logging/A.cpp", "#include <windows.h>"));
    EXPECT_TRUE(broken("study/A.cpp", "# include <ShellAPI.h>"));
    EXPECT_TRUE(broken("femap/com/bulk/A.cpp", "#include <windows.h>"));
    EXPECT_TRUE(broken("tests/study/A.cpp", "#include <windows.h>"));
    EXPECT_TRUE(broken("app/A.h", "#include \"oleauto.h\""));
    EXPECT_FALSE(broken("app/window/A.cpp", "#include <windows.h>"));
    EXPECT_FALSE(broken("study/A_windows.cpp", "#include <windows.h>"));
    EXPECT_FALSE(broken("tests/femap/com/A.cpp", "#include <windows.h>"));
    EXPECT_FALSE(broken("femap/com/A.h", "#include <oleauto.h>"));
    EXPECT_FALSE(broken("app/A.h", "// a note on <windows.h>"));
}

TEST(ConditionalLines, AreFoundInTheProduct)
{
    const std::vector<std::string> lines = {"#pragma once", "  # ifdef _WIN32", "#endif"};

    EXPECT_THAT(conditionalLines({"form/A.h", lines}),
                ElementsAre("form/A.h:2: a platform has files of its own"));
    EXPECT_THAT(conditionalLines({"tests/form/A.h", lines}), IsEmpty());
}

TEST(MissingPurpose, IsFoundInHeadersAndInSourcesWithoutAHeader)
{
    const auto broken = [](const std::string& path, const std::string& firstLine) {
        return !missingPurpose({path, {firstLine}}, {"form/A.h", "form/A.cpp", "form/B.cpp"})
                    .empty();
    };

    EXPECT_TRUE(broken("form/A.h", "#pragma once"));
    EXPECT_TRUE(broken("form/B.cpp", "#include <string>"));
    EXPECT_FALSE(broken("form/A.h", "// The grid."));
    EXPECT_FALSE(broken("form/A.cpp", "#include \"form/A.h\""));
    EXPECT_FALSE(broken("tests/form/B.cpp", "#include <string>"));
}

TEST(TestsOutOfPlace, AreThoseInFoldersThatAreNoRooms)
{
    const auto broken = [](const std::string& path) {
        return !testsOutOfPlace({path, {}}, architecture()).empty();
    };

    EXPECT_TRUE(broken("tests/win32/A.cpp"));
    EXPECT_TRUE(broken("tests/com/A.cpp"));
    EXPECT_FALSE(broken("tests/femap/com/A.cpp"));
    EXPECT_FALSE(broken("tests/house/A.cpp"));
    EXPECT_FALSE(broken("form/A.cpp"));
}

TEST(UnusedNames, AreFoundWhenTheyStandNowhereElse)
{
    const SourceFile file = {"generate/A.cpp",
                             {"using generate::TextFile;", "using form::Context;  // why",
                              "namespace fs = std::filesystem;", "namespace rs = std::ranges;",
                              "void write(Context&, fs::path, TextFileName);"}};

    EXPECT_THAT(unusedNames(file), ElementsAre("generate/A.cpp:1: nobody uses TextFile",
                                               "generate/A.cpp:4: nobody uses rs"));
}

TEST(TooLong, CountsCharactersAndSparesTextThatIsShownAsItWillBeWritten)
{
    std::string umlauts;
    for (int i = 0; i < 100; ++i)
        umlauts += "ä";
    const std::string wide(101, 'x');
    const SourceFile file = {"generate/A.cpp",
                             {umlauts, wide, "constexpr char a[] = R\"text(", wide, ")text\";",
                              wide, "R\"text(" + wide + ")text\"", wide}};

    EXPECT_THAT(tooLong(file), ElementsAre("generate/A.cpp:2: the line has 101 columns",
                                           "generate/A.cpp:6: the line has 101 columns",
                                           "generate/A.cpp:8: the line has 101 columns"));
    EXPECT_THAT(tooLong({"a/A.cpp", std::vector<std::string>(400)}), IsEmpty());
    EXPECT_THAT(tooLong({"a/A.cpp", std::vector<std::string>(401)}),
                ElementsAre("a/A.cpp:401: the file has 401 lines"));
}

}  // namespace
