#include "Project.h"
#include "fake/Python.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using testing::HasSubstr;

namespace
{

TEST(FileFormatsPage, ShowsWhatTheGoldenFilesHold)
{
    if (!fake::hasPython())
        GTEST_SKIP() << "there is no Python 3 on this machine";

    EXPECT_EQ(fake::writtenBy("tools/make-file-formats.py"), house::textOf("docs/file-formats.md"))
        << "Run tools/make-file-formats.py.";
}

TEST(FileFormatsPage, HasAnExampleOfEveryKindOfFile)
{
    const std::string scenarios = "tests/golden/example/";
    std::string shown;
    for (const std::string& slot : house::matchingLines(
             house::textOf("docs/file-formats.template.md"), R"(\{\{golden ([^ }]+).*)"))
        shown += slot + "\n";

    for (const std::string& path : house::paths()) {
        if (!path.starts_with(scenarios))
            continue;
        // Of files that are named after the model only the endings count.
        const std::string name = path.substr(path.rfind('/')) + "\n";
        const std::size_t model = name.find("panel");
        EXPECT_THAT(shown, HasSubstr(model == std::string::npos ? name : name.substr(model + 5)));
    }
}

}  // namespace
