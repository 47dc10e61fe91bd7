#include "Documents.h"
#include "fake/TemporaryFolder.h"
#include "system/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

// What CONTRIBUTING.md shows of tools/add-field is what it does.

using house::linesOf;
using testing::ContainerEq;
using testing::HasSubstr;

namespace
{

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

const std::string dialogTest = "tests/selection/PropertyListDialogTest.cpp";

std::string example()
{
    return house::Document("CONTRIBUTING.md").section("A worked example: one more quantity");
}

// The lines that are shown as new, by file.
std::map<std::string, Lines> shownLines()
{
    std::map<std::string, Lines> shown;
    std::string file;
    for (const std::string& line :
         linesOf(house::allMatches(example(), "```diff\n((?:.|\n)*?)```").at(0))) {
        if (line.starts_with('+'))
            shown[file].push_back(line.substr(1));
        else
            file = line;
    }
    return shown;
}

class AddField : public testing::Test
{
protected:
    AddField()
    {
        for (const std::string& file : files) {
            fs::create_directories(path(file).parent_path());
            fs::copy_file(fs::path(SOURCE_FOLDER) / file, path(file));
        }
    }

    fs::path path(const std::string& file) const { return folder_.path(file); }
    std::string contentOf(const std::string& file) const
    {
        return sys::DiskFiles().read(folder_.path(file));
    }
    /// Its exit code.
    int run(const std::string& arguments) const
    {
#ifdef PYTHON
        const std::string command = "\"" PYTHON "\" \"" SOURCE_FOLDER "/tools/add-field\" " +
                                    arguments + " --project \"" + folder_.path("") + "\" 2>&1";
        return std::system(command.c_str());
#else
        return -1;
#endif
    }

    void SetUp() override
    {
#ifndef PYTHON
        GTEST_SKIP() << "there is no Python 3 on this machine";
#endif
    }

    const Lines files = {"selection/FieldCatalogue.cpp", dialogTest, "docs/guide.md",
                         "CHANGELOG.md", "femap/embedded/MemberTables.h"};

private:
    fake::TemporaryFolder folder_;
};

TEST_F(AddField, DoesWhatTheWorkedExampleShows)
{
    const auto commands = house::allMatches(example(), "\n    tools/add-field ([^\n]*)\n");
    ASSERT_EQ(commands.size(), 1U);

    ASSERT_EQ(run(commands.front()), 0);

    std::map<std::string, Lines> added;
    for (const std::string& file : files) {
        const Lines before = linesOf(house::contentOf(file));
        for (const std::string& line : linesOf(contentOf(file)))
            if (file != dialogTest && std::find(before.begin(), before.end(), line) == before.end())
                added[file].push_back(line);
    }
    EXPECT_THAT(added, ContainerEq(shownLines()));
    EXPECT_THAT(contentOf(dialogTest), HasSubstr("\"Bend Stiff\"};"));
    EXPECT_THAT(contentOf(dialogTest), HasSubstr("{\"Bend Stiff\", 10}}},"));
}

TEST_F(AddField, WritesNothingWhenOneFileIsNotAsItShouldBe)
{
    std::ofstream(path("CHANGELOG.md")) << "# Changelog\n";

    EXPECT_NE(run("node layer"), 0);

    for (const std::string& file : files)
        if (file != "CHANGELOG.md") {
            EXPECT_EQ(contentOf(file), house::contentOf(file)) << file;
        }
}

TEST_F(AddField, RefusesWhatIsThereAlreadyOrCannotBe)
{
    EXPECT_NE(run("node x"), 0);
    EXPECT_NE(run("node layer layer first"), 0);
    EXPECT_NE(run("curve layer"), 0);
    EXPECT_NE(run(""), 0);

    EXPECT_EQ(contentOf("selection/FieldCatalogue.cpp"),
              house::contentOf("selection/FieldCatalogue.cpp"));
}

}  // namespace
