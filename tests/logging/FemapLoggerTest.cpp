#include "fake/LoggerFixture.h"
#include "logging/FemapLogger.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using fake::LoggerFixture;
using sys::RuntimeError;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{

const std::string rule(70, '-');

TEST(InitialiseLogger, SetsTheSixLevelWords)
{
    LoggerFixture f;
    const std::string before = f.log.LogLevel_always + f.log.LogLevel_info + f.log.LogLevel_debug +
                               f.log.LogLevel_warning + f.log.LogLevel_error +
                               f.log.LogLevel_nothing;

    f.start("NOTHING");

    EXPECT_EQ(before, "");
    EXPECT_EQ(f.log.LogLevel_always, "ALWAYS");
    EXPECT_EQ(f.log.LogLevel_info, "INFO");
    EXPECT_EQ(f.log.LogLevel_debug, "DEBUG");
    EXPECT_EQ(f.log.LogLevel_warning, "WARN");
    EXPECT_EQ(f.log.LogLevel_error, "ERROR");
    EXPECT_EQ(f.log.LogLevel_nothing, "NOTHING");
}

TEST(InitialiseLogger, ChangesAnUnknownLevelToNothingAndTouchesNoFile)
{
    for (const std::string unknown : {"Debug", "info", "", "NOTHING", "ALWAYS ", "VERBOSE"}) {
        LoggerFixture f;
        f.files.missingFolders = {LoggerFixture::inFolder("/temp", "")};
        std::string name;
        std::string level = unknown;

        f.log.InitialiseLogger(name, level);
        f.log.writeLog("lost");
        f.log.writeLogWithLevel("ALWAYS", "lost");
        f.log.writeLoghighlighted("lost");
        f.log.DeinitialiseLogger();

        EXPECT_EQ(level, "NOTHING");
        EXPECT_EQ(name, "");
        EXPECT_THAT(f.files.contents, IsEmpty()) << unknown;
        EXPECT_THAT(f.files.createdFolders, IsEmpty()) << unknown;
        EXPECT_EQ(f.files.operations, 0) << unknown;
    }
}

TEST(InitialiseLogger, LeavesAKnownLevelAndAGivenNameAsTheyAre)
{
    for (const std::string known : {"ALWAYS", "INFO", "DEBUG", "WARN", "ERROR"}) {
        LoggerFixture f;
        std::string name = "beam.log";
        std::string level = known;

        f.log.InitialiseLogger(name, level);

        EXPECT_EQ(level, known);
        EXPECT_EQ(name, "beam.log");
        EXPECT_EQ(f.log.path(), LoggerFixture::inFolder("/temp", "beam.log"));
    }
}

TEST(InitialiseLogger, GivesAnEmptyFileNameTheDefaultName)
{
    LoggerFixture f;
    std::string name;
    std::string level = "INFO";

    f.log.InitialiseLogger(name, level);

    EXPECT_EQ(name, "VelmarFemapInterfaceLog.log");
    EXPECT_EQ(f.log.path(), LoggerFixture::inFolder("/temp", "VelmarFemapInterfaceLog.log"));
    EXPECT_TRUE(f.files.contents.contains(f.log.path()));
}

TEST(InitialiseLogger, AppendsAFileNameWithAPathOfItsOwnUnchanged)
{
    LoggerFixture f;

    f.start("INFO", "C:/logs/beam.log");

    EXPECT_EQ(f.log.path(), LoggerFixture::inFolder("/temp", "C:/logs/beam.log"));
}

TEST(InitialiseLogger, PrefersTempToTmp)
{
    LoggerFixture f;
    f.environment = {{"TEMP", "/one"}, {"TMP", "/two"}};

    f.start("INFO");

    EXPECT_EQ(f.log.path(), LoggerFixture::inFolder("/one", "run.log"));
}

TEST(InitialiseLogger, TakesTmpWhenTempIsEmpty)
{
    LoggerFixture f;
    f.environment = {{"TMP", "/two"}};

    f.start("INFO");

    EXPECT_EQ(f.log.path(), LoggerFixture::inFolder("/two", "run.log"));
}

TEST(InitialiseLogger, UsesTheRootOfTheDriveWhenTempAndTmpAreEmpty)
{
    LoggerFixture f;
    f.environment.clear();

    f.start("INFO");

    EXPECT_EQ(f.log.path(), LoggerFixture::inFolder("", "run.log"));
}

TEST(InitialiseLogger, CreatesTheSubFolderOnlyWhenItIsMissing)
{
    const std::string folder = std::string("/temp") + sys::pathSeparator + "korva";
    LoggerFixture without;
    without.files.missingFolders = {folder};
    LoggerFixture with;

    without.start("INFO");
    with.start("INFO");

    EXPECT_THAT(without.files.createdFolders, ElementsAre(folder));
    EXPECT_THAT(with.files.createdFolders, IsEmpty());
}

TEST(InitialiseLogger, RaisesAndStaysOffWhenTheTemporaryFolderIsMissing)
{
    const std::string folder = std::string("/temp") + sys::pathSeparator + "korva";
    LoggerFixture f;
    f.files.missingFolders = {"/temp", folder};

    EXPECT_THROW(f.start("ALWAYS"), RuntimeError);
    f.log.writeLog("lost");

    EXPECT_EQ(f.log.path(), "");
    EXPECT_THAT(f.files.contents, IsEmpty());
}

TEST(InitialiseLogger, RaisesAndStaysOffWhenTheFileCannotBeOpened)
{
    LoggerFixture f;
    f.files.failingOperation = 1;

    EXPECT_THROW(f.start("ALWAYS"), RuntimeError);
    EXPECT_THAT(f.log.failure(), StartsWith("There is no log: "));
    f.log.writeLogWithLevel(f.log.LogLevel_always, "lost");
    f.log.DeinitialiseLogger();

    EXPECT_EQ(f.log.path(), "");
    EXPECT_EQ(f.files.operations, 1);
}

TEST(InitialiseLogger, EmptiesTheLogOfTheRunBefore)
{
    LoggerFixture f;
    f.files.contents[LoggerFixture::inFolder("/temp", "run.log")] =
        "ALWAYS: Execution starts at 2024-03-07\r\nold\r\n";

    f.start("INFO");
    f.log.writeLog("new");

    EXPECT_EQ(f.content(), "INFO: new\r\n");
}

TEST(InitialiseLogger, CompletesTheFileThatWasOpenWhenItIsCalledAgain)
{
    LoggerFixture f;
    f.start("INFO", "first.log");
    f.log.writeLog("kept");

    f.start("Debug", "second.log");
    f.log.writeLog("lost");

    EXPECT_EQ(f.files.contents[LoggerFixture::inFolder("/temp", "first.log")], "INFO: kept\r\n");
    EXPECT_EQ(f.files.contents.size(), 1U);
    EXPECT_EQ(f.log.path(), "");
}

struct LevelRow
{
    std::string configured;
    std::vector<std::string> written;
};

class LevelOfTheRun : public testing::TestWithParam<LevelRow>
{};

TEST_P(LevelOfTheRun, DecidesWhichMessagesAreWritten)
{
    LoggerFixture f;
    f.start(GetParam().configured);

    std::vector<std::string> written;
    for (const std::string level :
         {"ALWAYS", "INFO", "DEBUG", "WARN", "ERROR", "NOTHING", "Other", ""}) {
        const std::string before = f.content();
        f.log.writeLogWithLevel(level, "x");
        const std::string line = f.content().substr(before.size());
        EXPECT_EQ(line, f.log.lets(level) ? level + ": x\r\n" : "");
        if (!line.empty())
            written.push_back(level);
    }

    EXPECT_EQ(written, GetParam().written);
}

// clang-format off
const LevelRow levelRows[] = {
    {"ALWAYS", {"ALWAYS", "INFO", "DEBUG", "WARN", "ERROR", "NOTHING", "Other", ""}},
    {"INFO",   {"ALWAYS", "INFO"}},
    {"DEBUG",  {"ALWAYS", "INFO", "DEBUG"}},
    {"WARN",   {"ALWAYS", "INFO", "DEBUG", "WARN"}},
    {"ERROR",  {"ALWAYS", "INFO", "DEBUG", "WARN"}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(FemapLogger, LevelOfTheRun, testing::ValuesIn(levelRows),
                         [](const auto& row) { return row.param.configured; });

TEST(FemapLogger, WritesNothingBeforeItIsInitialised)
{
    LoggerFixture f;

    EXPECT_EQ(f.log.writeLog("lost"), "");
    f.log.writeLogWithLevel("ALWAYS", "lost");
    f.log.writeLoghighlighted("lost");
    f.log.flush();
    f.log.DeinitialiseLogger();

    EXPECT_FALSE(f.log.lets("ALWAYS"));
    EXPECT_EQ(f.files.operations, 0);
}

TEST(WriteLog, CarriesTheLevelOfTheRunAndIsNeverFiltered)
{
    for (const std::string level : {"ALWAYS", "INFO", "DEBUG", "WARN", "ERROR"}) {
        LoggerFixture f;
        f.start(level);

        const std::string result = f.log.writeLog("At start of ClearAll_Click");

        EXPECT_EQ(result, "");
        EXPECT_EQ(f.content(), level + ": At start of ClearAll_Click\r\n");
    }
}

TEST(WriteLogWithLevel, KeepsAMessageWithLineBreaksAsItIs)
{
    LoggerFixture f;
    f.start("ALWAYS");

    f.log.writeLogWithLevel("DEBUG", "one\ntwo\r\nthree");

    EXPECT_EQ(f.content(), "DEBUG: one\ntwo\r\nthree\r\n");
}

TEST(WriteLogWithLevel, WritesCharactersOfTheCodePageAsOneByte)
{
    LoggerFixture f;
    f.start("ALWAYS");

    f.log.writeLogWithLevel("INFO", "Träger Ø12 梁");

    EXPECT_EQ(f.content(),
              "INFO: Tr\xE4ger \xD8"
              "12 ?\r\n");
}

TEST(WriteLoghighlighted, PutsTheMessageBetweenTwoRulesWithoutALevelWord)
{
    for (const std::string level : {"ALWAYS", "INFO", "DEBUG", "WARN", "ERROR"}) {
        LoggerFixture f;
        f.start(level);

        f.log.writeLoghighlighted("Type mismatch");

        EXPECT_EQ(f.content(), rule + "\r\nType mismatch\r\n" + rule + "\r\n");
    }
}

TEST(DeinitialiseLogger, CompletesTheFileAndSwitchesTheLogOff)
{
    LoggerFixture f;
    f.start("INFO");
    f.log.writeLog("kept");

    f.log.DeinitialiseLogger();
    f.log.writeLog("lost");
    f.log.DeinitialiseLogger();

    EXPECT_EQ(f.files.contents.at(LoggerFixture::inFolder("/temp", "run.log")), "INFO: kept\r\n");
    EXPECT_EQ(f.log.path(), "");
}

TEST(FemapLogger, CompletesTheFileWhenItGoes)
{
    LoggerFixture f;
    {
        logging::FemapLogger log(f.system);
        fake::start(log, "INFO");
        log.writeLog("kept");
    }

    EXPECT_EQ(f.files.contents.at(LoggerFixture::inFolder("/temp", "run.log")), "INFO: kept\r\n");
}

TEST(FemapLogger, GoesQuietlyWhenTheFileCannotBeCompleted)
{
    LoggerFixture f;
    {
        logging::FemapLogger log(f.system);
        fake::start(log, "INFO");
        log.writeLog("lost");
        f.files.failingOperation = f.files.operations + 1;
    }

    EXPECT_EQ(f.files.operations, 2);
}

}  // namespace
