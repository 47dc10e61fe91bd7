#include "fake/LoggerFixture.h"
#include "logging/FemapLogger.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <string>

using fake::LoggerFixture;
using sys::RuntimeError;
using testing::StartsWith;

namespace
{

TEST(InitialiseLogger, TellsOfALevelThatIsNoneUnlessNoLogIsWanted)
{
    for (const std::string unknown : {"DEBUG ", "Debug", "VERBOSE"}) {
        LoggerFixture f;

        f.start(unknown);

        EXPECT_EQ(f.log.failure(), "There is no log: \"" + unknown +
                                       "\" is no level; the levels are ALWAYS, INFO, DEBUG, WARN, "
                                       "ERROR, NOTHING");
    }
    for (const std::string known : {"", "NOTHING", "ALWAYS", "DEBUG"}) {
        LoggerFixture f;

        f.start(known);

        EXPECT_EQ(f.log.failure(), "") << known;
    }
}

TEST(InitialiseLogger, LeavesAFileThatIsNoLogAsItIs)
{
    const std::string path = LoggerFixture::inFolder("/temp", "run.log");
    for (const std::string content :
         {"   -1\r\n   100\r\n", "\r\nALWAYS: Execution starts at 2024\r\n", "\n", "x"}) {
        LoggerFixture f;
        f.files.contents[path] = content;

        EXPECT_THROW(f.start("ALWAYS"), RuntimeError);
        f.log.writeLog("lost");
        f.log.DeinitialiseLogger();

        EXPECT_EQ(f.files.contents[path], content);
        EXPECT_EQ(f.log.failure(),
                  "There is no log: this file is no log and stays as it is: " + path);
    }
}

TEST(InitialiseLogger, BeginsInAnEmptyFile)
{
    LoggerFixture f;
    f.files.contents[LoggerFixture::inFolder("/temp", "run.log")] = "";

    f.start("INFO");
    f.log.writeLog("new");

    EXPECT_EQ(f.content(), "INFO: new\r\n");
}

TEST(InitialiseLogger, IsRefusedALogThatAnotherHasOpen)
{
    LoggerFixture f;
    f.start("INFO");
    f.log.writeLog("kept");
    logging::FemapLogger second(f.system);
    std::string name = "run.log";
    std::string level = "INFO";

    EXPECT_THROW(second.InitialiseLogger(name, level), RuntimeError);

    EXPECT_THAT(second.failure(),
                StartsWith("There is no log: another program has the file open: "));
    EXPECT_EQ(f.content(), "INFO: kept\r\n");
    f.log.DeinitialiseLogger();
    f.files.contents.clear();
    EXPECT_NO_THROW(second.InitialiseLogger(name, level));
    EXPECT_EQ(second.failure(), "");
}

TEST(FemapLogger, EndsAtTheFirstWriteThatFailsAndRaisesNothing)
{
    LoggerFixture f;
    f.start("ALWAYS");
    f.log.writeLog("a line");
    f.files.failingOperation = f.files.operations + 1;

    f.log.flush();
    f.log.writeLog("lost");
    f.log.flush();
    f.log.DeinitialiseLogger();

    EXPECT_EQ(f.log.failure(),
              "The log ends here: File not written: No space left on device: "
              "/temp/korva/run.log");
    EXPECT_EQ(f.log.path(), "");
    EXPECT_FALSE(f.log.lets("ALWAYS"));
    EXPECT_EQ(f.files.operations, f.files.failingOperation);
}

TEST(FemapLogger, RaisesFromNoneOfItsWrites)
{
    const std::string piece(1 << 18, 'x');  // so many bytes go to the disk at once
    const std::function<void(LoggerFixture&)> writes[] = {
        [&](LoggerFixture& f) { f.log.writeLog(piece); },
        [&](LoggerFixture& f) { f.log.writeLogWithLevel("ALWAYS", piece); },
        [&](LoggerFixture& f) { f.log.writeLoghighlighted(piece); },
        [&](LoggerFixture& f) { logging::logPosition(f.log, piece); },
        [&](LoggerFixture& f) { logging::logPositionAndClearErrorIfAny(f.log, f.error, piece); },
        [&](LoggerFixture& f) { f.log.DeinitialiseLogger(); },
    };
    for (const auto& write : writes) {
        LoggerFixture f;
        f.start("ALWAYS");
        f.log.writeLog("a line");
        f.files.failingOperation = f.files.operations + 1;

        EXPECT_NO_THROW(write(f));

        EXPECT_EQ(f.files.operations, f.files.failingOperation);
        EXPECT_THAT(f.log.failure(), StartsWith("The log ends here: "));
    }
}

class MemoryThatIsUsedUp : public sys::CodePage
{
public:
    bool encode(std::string_view, std::string&) const override { throw std::bad_alloc(); }
    std::string decode(std::string_view) const override { return {}; }
};

TEST(FemapLogger, EndsWhenNoMemoryIsLeftForIt)
{
    const MemoryThatIsUsedUp codePage;
    LoggerFixture f;
    sys::System system{f.files, codePage, f.system.localTime, f.system.monotonicSeconds,
                       f.system.environment};
    logging::FemapLogger log(system);
    fake::start(log, "ALWAYS");
    log.writeLog("Träger");

    log.flush();

    EXPECT_EQ(log.failure(), "The log ends here: no memory is left");
    EXPECT_FALSE(log.lets("ALWAYS"));
}

}  // namespace
