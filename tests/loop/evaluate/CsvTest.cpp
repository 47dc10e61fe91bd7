#include "fake/RandomSeed.h"
#include "loop/evaluate/Csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using loop::evaluate::csvLine;
using loop::evaluate::CsvRecord;
using loop::evaluate::readCsv;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

using Cells = std::vector<std::string>;

std::vector<Cells> cellsOf(std::string_view text)
{
    std::vector<Cells> cells;
    for (const CsvRecord& record : readCsv(text))
        cells.push_back(record.cells);
    return cells;
}

TEST(ATable, HasItsCellsBetweenCommasAndItsRecordsOnLines)
{
    EXPECT_THAT(cellsOf("a,b\r\n1,2\n,\n"),
                ElementsAre(Cells{"a", "b"}, Cells{"1", "2"}, Cells{"", ""}));
    EXPECT_THAT(cellsOf("a,b\n1,2"), ElementsAre(Cells{"a", "b"}, Cells{"1", "2"}));
    EXPECT_THAT(cellsOf(""), IsEmpty());
}

TEST(ATable, MayBeginWithTheByteOrderMarkOfOtherPrograms)
{
    EXPECT_THAT(cellsOf("\xEF\xBB\xBF\"a\",b\n"), ElementsAre(Cells{"a", "b"}));
}

TEST(ACell, MayHoldAnythingBetweenQuotationMarks)
{
    EXPECT_THAT(cellsOf("\"a,b\",\"say \"\"x\"\"\",\"two\r\nlines\"\n"),
                ElementsAre(Cells{"a,b", "say \"x\"", "two\r\nlines"}));
}

TEST(ACell, KeepsMarksAndReturnsThatStandInTheMiddle)
{
    EXPECT_THAT(cellsOf("5\" plate,a\rb,\"c\"d\n"), ElementsAre(Cells{"5\" plate", "a\rb", "cd"}));
}

TEST(AnEmptyLine, IsNoRecordButAnEmptyCellInMarksIs)
{
    EXPECT_THAT(cellsOf("a\n\n\r\n\"\"\nb\n"), ElementsAre(Cells{"a"}, Cells{""}, Cells{"b"}));
}

TEST(ARecord, KnowsItsLineAndWhetherItIsWhole)
{
    const std::vector<CsvRecord> records = readCsv("a\n\"b\nc\"\n\nd,\"e");

    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[1], (CsvRecord{2, {"b\nc"}, true, false}));
    EXPECT_EQ(records[2], (CsvRecord{5, {"d", "e"}, false, true}));
}

TEST(ALineOfATable, HasMarksOnlyWhereTheyAreNeeded)
{
    EXPECT_EQ(csvLine(Cells{"a b", "1.5", "x,y", "5\""}), "a b,1.5,\"x,y\",\"5\"\"\"\r\n");
    EXPECT_EQ(csvLine(Cells{""}), "\"\"\r\n");
    EXPECT_EQ(csvLine(Cells{"", ""}), ",\r\n");
}

std::string randomText(std::mt19937& random, std::string_view characters, std::size_t longest)
{
    std::string text(random() % (longest + 1), ' ');
    for (char& c : text)
        c = characters[random() % characters.size()];
    return text;
}

TEST(AnyRecords, AreReadAsTheyWereWritten)
{
    constexpr std::string_view characters = "ab ,\"\r\n;\xEF\xBB\xBF\t'";
    std::mt19937 random(fake::randomSeed());
    for (int i = 0; i < 3000; ++i) {
        std::vector<Cells> written(random() % 5);
        std::string text;
        for (Cells& cells : written) {
            cells.resize(1 + random() % 4);
            for (std::string& cell : cells)
                cell = randomText(random, characters, 6);
            text += csvLine(cells);
        }

        ASSERT_EQ(cellsOf(text), written) << testing::PrintToString(text);
    }
}

TEST(AnyBytes, AreReadAsSomeRecordsWithoutLosingALine)
{
    constexpr std::string_view characters = "a,\"\r\n";
    std::mt19937 random(fake::randomSeed());
    for (int i = 0; i < 3000; ++i) {
        const std::string text = randomText(random, characters, 40);

        std::string again;
        for (const CsvRecord& record : readCsv(text))
            again += csvLine(record.cells);

        ASSERT_EQ(cellsOf(again), cellsOf(text)) << testing::PrintToString(text);
    }
}

}  // namespace
