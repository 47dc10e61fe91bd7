#include "StudyFixture.h"
#include "fake/LoggerFixture.h"
#include "fake/NeutralText.h"
#include "logging/FemapLogger.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <sys/wait.h>

namespace study
{
namespace
{

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr int nodeCount = 3000;

std::string modelOfManyNodes()
{
    std::string records;
    for (int id = 1; id <= nodeCount; ++id) {
        const std::string number = std::to_string(id);
        records.append(number).append(",0,0,1,46,0,0,0,0,0,0,").append(number);
        records.append(".,0.,0.,0,\n");
    }
    return neutral::header() + neutral::block(403, records);
}

// The program itself, with a log of some hundred kB on a real disk.
class RealLog : public StudyFixture
{
public:
    explicit RealLog(const std::string& level = "DEBUG", const std::string& logName = "run.log")
    {
        write("wing.neu", modelOfManyNodes());
        std::filesystem::create_directories(folder.path("temp/korva"));
        write("wing.study", "start wing.neu$" + logName + '$' + level +
                                "\nset InputSelection Nodes\npick all\nchoose x\n"
                                "click InputsButton\nclick GenerateButton\n"
                                "put Node 7 x 4711\nput Node 2999 x 4712\nclick RefreshInputs\n"
                                "print InputsList\n");
    }

    // Commands of the shell before the program, and what runs the shell. Returns the exit code.
    int run(const std::string& before = "", const std::string& launcher = "") const
    {
        write("run.sh", before +
                            "\nTEMP=temp \"" PROGRAM_FOLDER
                            "/velmar-study\" --femap=embedded "
                            "--quiet wing.study >out.txt 2>err.txt\nresult=$?\n"
                            "test -f temp/korva/run.log && cat temp/korva/run.log >kept.log 2>&1\n"
                            "exit $result\n");
        const std::string command = "cd '" + folder.path() + "' && " + launcher + " sh run.sh";
        return WEXITSTATUS(std::system(command.c_str()));
    }
    int runOnDiskOf(std::size_t kilobytes) const
    {
        return run("mount -t tmpfs -o size=" + std::to_string(kilobytes) +
                       "k none temp && mkdir temp/korva || exit 99",
                   "unshare --map-root-user --mount");
    }
    static bool hasDisksOfItsOwn()
    {
        return std::system(
                   "unshare --map-root-user --mount mount -t tmpfs none /mnt 2>/dev/null") == 0;
    }

    std::string told() const { return read("err.txt"); }
    // All that the work leaves behind, without the log.
    std::map<std::string, std::string> results() const
    {
        std::map<std::string, std::string> contents;
        for (const std::string file : {"InputValues.txt", "CAEInput.txt", "CAEOutput.txt",
                                       "wingControl.txt", "vELMARwing.desc", "out.txt"})
            contents[file] = read(file);
        return contents;
    }
};

constexpr std::string_view lastLine = "DEBUG: Setting Main femap instance to Nothing\r\n";
const std::string logEnds = "The log ends here: File not written: ";
const std::string logPath = ": temp/korva/run.log\n";

TEST(RealLog, CostsNoRowAndNoValueWhenItsDiskIsFull)
{
    if (!RealLog::hasDisksOfItsOwn())
        GTEST_SKIP() << "no disk can be mounted here";
    const RealLog whole;
    ASSERT_EQ(whole.run(), 0) << whole.told();
    ASSERT_EQ(splitLines(whole.read("InputValues.txt")).size(), nodeCount);
    ASSERT_THAT(whole.read("out.txt"), HasSubstr("\t4712\t"));
    ASSERT_EQ(whole.told(), "");
    const std::size_t size = whole.read("kept.log").size();
    const char* const wanted = std::getenv("VELMAR_LOG_DISKS");
    const std::size_t disks = wanted != nullptr ? std::stoul(wanted) : 4;

    std::size_t complete = 0;
    for (std::size_t i = 1; i <= disks; ++i) {
        const std::size_t kilobytes = (size * i / disks + 2 * 4096) / 4096 * 4;
        SCOPED_TRACE(std::to_string(kilobytes) + " kB");
        const RealLog small;

        EXPECT_EQ(small.runOnDiskOf(kilobytes), 0) << small.told();

        EXPECT_EQ(small.results(), whole.results());
        const bool isComplete = small.read("kept.log").ends_with(lastLine);
        EXPECT_EQ(small.told(), isComplete ? "" : logEnds + "No space left on device" + logPath);
        complete += isComplete ? 1 : 0;
    }
    EXPECT_GE(complete, 1U);
    EXPECT_LT(complete, disks);
    std::cout << disks << " disks, " << complete << " with room for the whole log\n";
}

TEST(RealLog, CostsNothingWhenItMayGrowNoFurther)
{
    const RealLog whole;
    ASSERT_EQ(whole.run(), 0) << whole.told();
    const RealLog small;

    // 400 kB for each file; without the signal that ends a program.
    EXPECT_EQ(small.run("trap '' XFSZ; ulimit -f 800"), 0);

    EXPECT_EQ(small.told(), logEnds + "File too large" + logPath);
    EXPECT_EQ(small.results(), whole.results());
    EXPECT_EQ(small.read("temp/korva/run.log").size(), 400U * 1024);
}

TEST(RealLog, IsRefusedToASecondProgramAndNotTouchedByIt)
{
    const RealLog f;
    sys::System system = sys::thisMachine();
    system.environment = [&](const std::string&) { return f.folder.path("temp"); };
    logging::FemapLogger first(system);
    fake::start(first, "ALWAYS");
    first.writeLog("first");
    first.flush();

    EXPECT_EQ(f.run(), 0);

    EXPECT_EQ(f.told(), "There is no log: another program has the file open: temp/korva/run.log\n");
    EXPECT_EQ(splitLines(f.read("InputValues.txt")).size(), nodeCount);
    first.writeLog("second");
    first.DeinitialiseLogger();
    EXPECT_EQ(f.read("temp/korva/run.log"), "ALWAYS: first\r\nALWAYS: second\r\n");
}

TEST(RealLog, IsNeverWrittenOverAnythingElse)
{
    const std::string model = modelOfManyNodes();
    for (const std::string level : {"DEBUG", "ALWAYS"}) {
        const RealLog f(level, "../../wing.neu");

        EXPECT_EQ(f.run(), 0);

        EXPECT_EQ(f.read("wing.neu"), model);
        EXPECT_EQ(f.told(),
                  "There is no log: this file is no log and stays as it is: "
                  "temp/korva/../../wing.neu\n");
        EXPECT_EQ(splitLines(f.read("InputValues.txt")).size(), nodeCount);
    }
}

TEST(RealLog, IsNoPipeAndNoDevice)
{
    const std::string noFile = "File not created: it is a device or a pipe, not a file: ";
    const RealLog pipe;
    ASSERT_EQ(mkfifo(pipe.folder.path("temp/korva/run.log").c_str(), 0600), 0);
    EXPECT_EQ(pipe.run("", "timeout 20"), 0);
    EXPECT_THAT(pipe.told(), AllOf(StartsWith("There is no log: "), HasSubstr(noFile)));

    const RealLog device("DEBUG", "../../../../../../../../dev/full");
    EXPECT_EQ(device.run(), 0);
    EXPECT_THAT(device.told(), AllOf(StartsWith("There is no log: "), HasSubstr(noFile)));
}

TEST(RealLog, TellsOfALevelThatIsNone)
{
    const RealLog f("debug");

    EXPECT_EQ(f.run(), 0);

    EXPECT_EQ(f.told(),
              "There is no log: \"debug\" is no level; the levels are ALWAYS, INFO, DEBUG, "
              "WARN, ERROR, NOTHING\n");
}

}  // namespace
}  // namespace study
