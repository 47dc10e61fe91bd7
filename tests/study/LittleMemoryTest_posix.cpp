#include "StudyFixture.h"
#include "fake/NeutralText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sys/wait.h>

namespace study
{
namespace
{

using testing::AnyOf;
using testing::HasSubstr;
using testing::Not;

// The sanitizers take more addresses than any limit leaves them.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool canBeLimited = false;
#else
constexpr bool canBeLimited = true;
#endif

constexpr int manyNodes = 20'000;

// The program itself with a model of some MB, in which each node becomes a row.
class LittleMemory : public StudyFixture
{
public:
    LittleMemory()
    {
        std::string records;
        for (int id = 1; id <= manyNodes; ++id)
            records += std::to_string(id) + ",0,0,1,46,0,0,0,0,0,0,0.5,0.,0.,0,\n";
        write("wing.neu", neutral::header() + neutral::block(403, records));
        write("wing.study",
              "start wing.neu\nset InputSelection Nodes\npick all\nchoose x | y\n"
              "click InputsButton\nclick GenerateButton\n");
    }

    // Returns what the shell does: an exit code, above 128 for a program that a signal ended.
    int runIn(int kilobytes, const std::string& arguments) const
    {
        write("run.sh", "ulimit -c 0; ulimit -v " + std::to_string(kilobytes) +
                            "\n\"" PROGRAM_FOLDER "/velmar-study\" " + arguments +
                            " >out.txt 2>err.txt\n");
        return WEXITSTATUS(std::system(("cd '" + folder.path() + "' && sh run.sh").c_str()));
    }
};

TEST(LittleMemory, EndsTheStudyWithAWordOrNotAtAll)
{
    if (!canBeLimited)
        GTEST_SKIP() << "this build needs all addresses";
    const LittleMemory f;
    constexpr int step = 2000;
    int kilobytes = 4000;
    while (f.runIn(kilobytes, "--version") != 0)  // no program starts in less
        kilobytes += step;
    int ends = 0;
    int exitCode = 1;
    for (; exitCode != 0; kilobytes += step) {
        SCOPED_TRACE(std::to_string(kilobytes) + " kB");
        // A run that failed late has stored its rows; chosen again they would go.
        std::filesystem::remove(f.folder.path("wingControl.txt"));

        exitCode = f.runIn(kilobytes, "--femap=embedded --quiet wing.study");

        ASSERT_THAT(exitCode, AnyOf(0, 1));
        const std::string told = f.read("err.txt");
        if (exitCode == 1) {
            EXPECT_THAT(told, AnyOf(HasSubstr("No memory is left. Close other programs"),
                                    HasSubstr("The memory is too small for the model")));
            EXPECT_THAT(told, Not(HasSubstr("bad_alloc")));
        }
        else
            EXPECT_EQ(told, "");
        ends += exitCode;
    }
    EXPECT_GE(ends, 3) << "the limits did not bite";
    EXPECT_EQ(splitLines(f.read("InputValues.txt")).size(), 2U * manyNodes);
}

}  // namespace
}  // namespace study
