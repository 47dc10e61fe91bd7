#include "StudyFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace study
{
namespace
{

using testing::HasSubstr;

TEST(StudyUnreadableSelection, OfAFailingDiskIsToldAndNotReplaced)
{
    StudyFixture f;
    // Its first byte cannot be read: EIO.
    std::filesystem::create_symlink("/proc/self/mem", f.folder.path("beamControl.txt"));

    EXPECT_EQ(f.run("click GenerateButton\n"), 1);

    EXPECT_THAT(f.error(), HasSubstr("The stored selection cannot be read"));
    EXPECT_THAT(f.error(), HasSubstr("beam.study:2: The selection was not stored"));
    EXPECT_TRUE(std::filesystem::is_symlink(f.folder.path("beamControl.txt")));
}

TEST(StudyUnreadableSelection, WithoutTheRightToReadIsToldAndNotReplaced)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root reads every file";
    StudyFixture f;
    f.write("beamControl.txt", "a\t1\tNode\t1\tx\t\r\n\r\n");
    chmod(f.folder.path("beamControl.txt").c_str(), S_IWUSR);

    EXPECT_EQ(f.run("click GenerateButton\n"), 1);

    chmod(f.folder.path("beamControl.txt").c_str(), S_IRUSR | S_IWUSR);
    EXPECT_THAT(f.error(), HasSubstr("The stored selection cannot be read"));
    EXPECT_EQ(f.read("beamControl.txt"), "a\t1\tNode\t1\tx\t\r\n\r\n");
}

}  // namespace
}  // namespace study
