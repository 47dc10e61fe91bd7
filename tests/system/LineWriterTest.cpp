#include "fake/MemoryFiles.h"
#include "system/LineWriter.h"
#include "system/RuntimeError.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

using sys::LineWriter;
using sys::RuntimeError;

namespace
{

class LineWriterTest : public testing::Test
{
protected:
    LineWriter writer() { return {files.create("/out"), sys::windows1252()}; }
    const std::string& content() { return files.contents.at("/out"); }

    fake::MemoryFiles files;
};

TEST_F(LineWriterTest, EndsEveryLineWithCarriageReturnAndLineFeed)
{
    LineWriter lines = writer();

    lines.line("one");
    lines.line("");
    lines.line(" two ");
    lines.close();

    EXPECT_EQ(content(), "one\r\n\r\n two \r\n");
}

TEST_F(LineWriterTest, LeavesAnEmptyFileWhenNothingWasWritten)
{
    LineWriter lines = writer();

    lines.close();

    EXPECT_EQ(content(), "");
    EXPECT_FALSE(lines.isOpen());
}

TEST_F(LineWriterTest, BringsTheLinesSoFarIntoTheFileWhenFlushed)
{
    LineWriter lines = writer();
    lines.line("one");
    const std::string before = content();

    lines.flush();
    const std::string flushed = content();
    lines.line("two");
    lines.close();

    EXPECT_EQ(before, "");
    EXPECT_EQ(flushed, "one\r\n");
    EXPECT_EQ(content(), "one\r\ntwo\r\n");
}

TEST_F(LineWriterTest, WritesLargeTextInFewPieces)
{
    LineWriter lines = writer();
    const std::string text(98, 'x');
    std::string expected;

    for (int i = 0; i < 10'000; ++i) {
        lines.line(text);
        expected += text + "\r\n";
    }
    lines.close();

    EXPECT_EQ(content(), expected);
    EXPECT_LT(files.operations, 10);
}

TEST_F(LineWriterTest, KnowsTheFirstLineThatLostACharacter)
{
    LineWriter lines = writer();

    lines.line("ä");
    const std::size_t atFirst = lines.firstLossyLine();
    lines.line("σ");
    lines.line("ε");

    EXPECT_EQ(atFirst, 0U);
    EXPECT_EQ(lines.firstLossyLine(), 2U);
}

TEST_F(LineWriterTest, PutsTheLineTogetherFromItsPieces)
{
    LineWriter lines = writer();
    const std::array<std::string_view, 3> pieces = {"one", "", " ä"};

    lines.line(pieces);
    lines.close();

    EXPECT_EQ(content(), "one \xE4\r\n");
}

TEST_F(LineWriterTest, EncodesEachLineOnceWhenItIsAskedInBetween)
{
    LineWriter lines = writer();

    lines.line("ä");
    lines.firstLossyLine();
    lines.line("ö");
    lines.firstLossyLine();
    lines.line("u");
    lines.flush();
    lines.line("é");
    lines.close();

    EXPECT_EQ(content(), "\xE4\r\n\xF6\r\nu\r\n\xE9\r\n");
    EXPECT_EQ(lines.firstLossyLine(), 0U);
}

TEST_F(LineWriterTest, CountsTheLinesBeforeALostCharacterOverAllPieces)
{
    LineWriter lines = writer();
    const std::string large(1 << 17, 'x');

    for (int i = 0; i < 5; ++i)
        lines.line(large);
    lines.line("ä");
    lines.line("σ ä");
    lines.close();

    EXPECT_EQ(lines.firstLossyLine(), 7U);
    EXPECT_TRUE(content().ends_with("x\r\n\xE4\r\n? \xE4\r\n"));
}

TEST_F(LineWriterTest, DropsWhatWasGatheredWhenDiscarded)
{
    LineWriter lines = writer();
    lines.line("one");

    lines.discard();

    EXPECT_EQ(content(), "");
    EXPECT_FALSE(lines.isOpen());
}

TEST_F(LineWriterTest, CannotBeClosedAsIfCompleteAfterAWriteFailed)
{
    LineWriter lines = writer();
    lines.line("one");
    files.failingOperation = files.operations + 1;

    EXPECT_THROW(lines.flush(), RuntimeError);
    EXPECT_THROW(lines.flush(), RuntimeError);
    EXPECT_THROW(lines.close(), RuntimeError);

    EXPECT_FALSE(lines.isOpen());
}

TEST_F(LineWriterTest, RaisesFromTheLineThatFillsThePieceWhenTheDiskIsFull)
{
    LineWriter lines = writer();
    files.failingOperation = files.operations + 1;

    EXPECT_THROW(lines.line(std::string(1 << 20, 'x')), RuntimeError);

    EXPECT_FALSE(lines.isOpen());
}

TEST_F(LineWriterTest, RaisesWhenFlushingOrClosingFails)
{
    for (const int step : {2, 3}) {
        LineWriter lines = writer();
        lines.line("one");
        files.failingOperation = files.operations + step;

        EXPECT_THROW(
            {
                lines.flush();
                lines.close();
            },
            RuntimeError);
        EXPECT_FALSE(lines.isOpen());
    }
}

TEST_F(LineWriterTest, RaisesOnceItIsClosed)
{
    LineWriter lines = writer();
    lines.close();

    EXPECT_THROW(lines.close(), RuntimeError);
}

}  // namespace
