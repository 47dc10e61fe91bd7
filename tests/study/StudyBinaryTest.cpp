#include "StudyFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>

namespace study
{
namespace
{

using testing::HasSubstr;
using testing::StartsWith;

// The program itself, with its streams in files of the folder. The shell does first what is to be
// done before it.
int runBinary(const StudyFixture& f, const std::string& arguments, const std::string& input = "",
              const std::string& before = "")
{
    f.write("in.txt", input);
    const std::string command = before +
                                "\"" PROGRAM_FOLDER
                                "/velmar-study"
                                "\" " +
                                arguments + " <\"" + f.folder.path("in.txt") + "\" >\"" +
                                f.folder.path("out.txt") + "\" 2>\"" + f.folder.path("err.txt") +
                                "\"";
    return std::system(command.c_str()) >> 8;
}

TEST(StudyBinary, ReplaysAScript)
{
    const StudyFixture f;
    f.write("Träger.study", "start " + f.modelPath() + "\nprint CommandLine\n");

    const int exitCode = runBinary(f, "--femap=embedded \"" + f.folder.path("Träger.study") + "\"");

    EXPECT_EQ(exitCode, 0) << f.read("err.txt");
    EXPECT_EQ(splitLines(f.read("out.txt")).at(0), "nastran beam.dat notify=no");
    EXPECT_EQ(f.read("err.txt"), "");
}

TEST(StudyBinary, StopsWithExitCode1)
{
    const StudyFixture f;
    f.write("a.study", "close\n");

    EXPECT_EQ(runBinary(f, "--femap=embedded \"" + f.folder.path("a.study") + "\""), 1);

    EXPECT_THAT(f.read("err.txt"), HasSubstr("a.study:1: the form is not started yet"));
}

TEST(StudyBinary, ReadsStandardInput)
{
    const StudyFixture f;

    EXPECT_EQ(runBinary(f, "--femap=embedded -", "start " + f.modelPath() + "\nprint Solver\n"), 0);

    EXPECT_EQ(splitLines(f.read("out.txt")).at(0), "NXNastran");
}

TEST(StudyBinary, ShowsItsUsageWithExitCode2)
{
    const StudyFixture f;

    EXPECT_EQ(runBinary(f, ""), 2);

    EXPECT_THAT(f.read("err.txt"), StartsWith("velmar-study: no script is named"));
}

TEST(StudyBinary, TellsItsVersion)
{
    const StudyFixture f;

    EXPECT_EQ(runBinary(f, "--version"), 0);

    EXPECT_EQ(splitLines(f.read("out.txt")).at(0), "velmar-study " VELMAR_VERSION);
}

// The model takes up no room on the disk, but more than the program may have of the memory.
TEST(StudyBinary, TellsThatAModelIsTooLargeForTheMemory)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "The sanitizer needs more memory than the program is given here.";
#endif
    const StudyFixture f;
    f.write("wing.neu", "");
    std::filesystem::resize_file(f.folder.path("wing.neu"), std::uintmax_t{3} << 30);
    f.write("a.study", "start " + f.folder.path("wing.neu") + "\n");

    const int exitCode = runBinary(f, "--femap=embedded \"" + f.folder.path("a.study") + "\"", "",
                                   "ulimit -v 1000000; ");

    EXPECT_EQ(exitCode, 1);
    EXPECT_THAT(f.read("err.txt"),
                HasSubstr("The memory is too small for the model; export it with fewer results, or "
                          "close other programs: " +
                          f.folder.path("wing.neu")));
}

}  // namespace
}  // namespace study
