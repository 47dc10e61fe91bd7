#include "fake/LoggerFixture.h"
#include "logging/Module1.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

using fake::LoggerFixture;
using logging::GetTimeStamp;
using logging::logDebug;
using logging::logPosition;
using logging::logPositionAndClearErrorIfAny;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

// Counts how often it is read as text.
class CountedText
{
public:
    operator std::string_view() const
    {
        ++read;
        return "text";
    }
    mutable int read = 0;
};

TEST(LogPosition, WritesThePositionAtDebugLevel)
{
    LoggerFixture f;
    f.start("DEBUG");

    logPosition(f.log, "At start of ClearAll_Click");

    EXPECT_EQ(f.content(), "DEBUG: Position at At start of ClearAll_Click\r\n");
}

TEST(LogPosition, WritesNothingAtInfoLevel)
{
    LoggerFixture f;
    f.start("INFO");

    logPosition(f.log, "At start of ClearAll_Click");

    EXPECT_EQ(f.content(), "");
}

TEST(LogDebug, JoinsTextsCharactersAndWholeNumbers)
{
    LoggerFixture f;
    f.start("DEBUG");
    const std::string name = "ThicknessAtProp12";

    logDebug(f.log, "Name=", name, ' ', 'x', " ID=", 12, " count=", std::int64_t{-5}, "/",
             std::size_t{7}, std::string_view("."));

    EXPECT_EQ(f.content(), "DEBUG: Name=ThicknessAtProp12 x ID=12 count=-5/7.\r\n");
}

TEST(LogDebug, JoinsAndWritesNothingWhileTheLogIsOff)
{
    LoggerFixture off;
    off.start("NOTHING");
    LoggerFixture filtered;
    filtered.start("INFO");
    const int operationsOfTheOpenLog = filtered.files.operations;
    const CountedText part;

    logDebug(off.log, "value=", part);
    logDebug(filtered.log, "value=", part);

    EXPECT_EQ(part.read, 0);
    EXPECT_EQ(off.files.operations, 0);
    EXPECT_EQ(filtered.files.operations, operationsOfTheOpenLog);
    EXPECT_EQ(filtered.content(), "");
}

TEST(LogPositionAndClearErrorIfAny, SaysThatThereIsNoError)
{
    LoggerFixture f;
    f.start("ALWAYS");

    logPositionAndClearErrorIfAny(f.log, f.error, "After reading pval");

    EXPECT_EQ(f.content(), "DEBUG: No Error found After reading pval\r\n");
}

TEST(LogPositionAndClearErrorIfAny, TakesAnErrorWithoutDescriptionForNoneAndClearsIt)
{
    LoggerFixture f;
    f.start("ALWAYS");
    f.error.attempt([] { throw RuntimeError(ErrorNumber::ObjectFailed, ""); });

    logPositionAndClearErrorIfAny(f.log, f.error, "here");

    EXPECT_EQ(f.content(), "DEBUG: No Error found here\r\n");
    EXPECT_FALSE(f.error.isPending());
}

TEST(LogPositionAndClearErrorIfAny, ReportsThePendingErrorInFourStepsAndClearsIt)
{
    LoggerFixture f;
    f.start("ALWAYS");
    f.error.attempt([] { throw RuntimeError(ErrorNumber::NoSuchMember, "No such member: Kxz"); });

    logPositionAndClearErrorIfAny(f.log, f.error, "After reading Kxz");

    EXPECT_EQ(f.content(),
              "ERROR: --------------------After reading Kxz--------------------\r\n"
              "DEBUG: Error occured After reading Kxz\r\n"
              "----------------------------------------------------------------------\r\n"
              "No such member: Kxz\r\n"
              "----------------------------------------------------------------------\r\n"
              "ERROR: No such member: Kxz\r\n");
    EXPECT_FALSE(f.error.isPending());
    EXPECT_EQ(f.error.description(), "");
}

TEST(LogPositionAndClearErrorIfAny, ShowsOnlyTheHighlightedDescriptionAtInfoLevel)
{
    LoggerFixture f;
    f.start("INFO");
    f.error.attempt([] { throw RuntimeError(ErrorNumber::NoSuchMember, "why"); });

    logPositionAndClearErrorIfAny(f.log, f.error, "here");

    const std::string rule(70, '-');
    EXPECT_EQ(f.content(), rule + "\r\nwhy\r\n" + rule + "\r\n");
}

TEST(LogPositionAndClearErrorIfAny, ClearsTheErrorWhileTheLogIsOff)
{
    LoggerFixture f;
    f.error.attempt([] { throw RuntimeError(ErrorNumber::NoSuchMember, "why"); });

    logPositionAndClearErrorIfAny(f.log, f.error, "here");

    EXPECT_FALSE(f.error.isPending());
    EXPECT_EQ(f.files.operations, 0);
}

TEST(GetTimeStamp, FillsEveryFieldWithLeadingZeros)
{
    LoggerFixture f;
    f.time = {2024, 3, 7, 9, 5, 2, 45};

    const std::string stamp = GetTimeStamp(f.system);

    EXPECT_EQ(stamp, "2024-03-07 Time 09:05:02.045");
}

TEST(GetTimeStamp, EndsWithThreeDigitsOfMilliseconds)
{
    LoggerFixture f;
    const auto stampAt = [&](int millisecond) {
        f.time = {1999, 12, 31, 23, 59, 58, millisecond};
        return GetTimeStamp(f.system);
    };

    EXPECT_EQ(stampAt(0), "1999-12-31 Time 23:59:58.000");
    EXPECT_EQ(stampAt(7), "1999-12-31 Time 23:59:58.007");
    EXPECT_EQ(stampAt(123), "1999-12-31 Time 23:59:58.123");
    EXPECT_EQ(stampAt(999), "1999-12-31 Time 23:59:58.999");
}

}  // namespace
