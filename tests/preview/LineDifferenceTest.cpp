#include "fake/RandomSeed.h"
#include "preview/LineDifference.h"
#include "property/Generators.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

namespace preview
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

using Lines = std::vector<std::string_view>;

// What becomes of the first text when the changes are made.
Lines changed(const Lines& before, const Lines& after, const std::vector<Change>& changes)
{
    Lines result;
    std::size_t next = 0;
    for (const Change& change : changes) {
        EXPECT_GE(change.before, next) << "changes come in order";
        for (; next < change.before; ++next)
            result.push_back(before[next]);
        EXPECT_EQ(result.size(), change.after);
        for (std::size_t i = 0; i < change.afterCount; ++i)
            result.push_back(after[change.after + i]);
        next += change.beforeCount;
    }
    for (; next < before.size(); ++next)
        result.push_back(before[next]);
    return result;
}

std::size_t linesIn(const std::vector<Change>& changes)
{
    std::size_t lines = 0;
    for (const Change& change : changes)
        lines += change.beforeCount + change.afterCount;
    return lines;
}

}  // namespace

void PrintTo(const Change& change, std::ostream* out)
{
    *out << change.before << ',' << change.beforeCount << " -> " << change.after << ','
         << change.afterCount;
}

TEST(LinesOfAText, KeepTheirEnds)
{
    EXPECT_THAT(linesOf("a\r\n\nb"), ElementsAre("a\r\n", "\n", "b"));
    EXPECT_THAT(linesOf("a\n"), ElementsAre("a\n"));
    EXPECT_THAT(linesOf(""), IsEmpty());
}

TEST(ChangesBetweenTexts, AreAsFewAsCanBe)
{
    const Lines text = {"a", "b", "c", "d", "e"};

    EXPECT_THAT(changesBetween(text, text), IsEmpty());
    EXPECT_THAT(changesBetween({}, text), ElementsAre(Change{0, 0, 0, 5}));
    EXPECT_THAT(changesBetween(text, {}), ElementsAre(Change{0, 5, 0, 0}));
    EXPECT_THAT(changesBetween(text, Lines{"a", "b", "x", "d", "e"}),
                ElementsAre(Change{2, 1, 2, 1}));
    EXPECT_THAT(changesBetween(text, Lines{"x", "a", "b", "d", "e", "y"}),
                ElementsAre(Change{0, 0, 0, 1}, Change{2, 1, 3, 0}, Change{5, 0, 5, 1}));
}

TEST(ChangesBetweenTexts, MakeOneTextOfTheOther)
{
    property::Random random(fake::randomSeed());
    for (int round = 0; round < 300; ++round) {
        const int kinds = random.between(1, 6);
        const auto text = [&] {
            static constexpr std::string_view some[] = {"a", "b", "c", "d", "e", "f"};
            Lines lines;
            for (int left = random.below(round < 290 ? 12 : 3000); left > 0; --left)
                lines.push_back(some[random.below(kinds)]);
            return lines;
        };
        const Lines before = text();
        const Lines after = text();

        const std::vector<Change> changes = changesBetween(before, after);

        EXPECT_EQ(changed(before, after, changes), after);
    }
}

TEST(ChangesBetweenTexts, AreFoundAllOverALongText)
{
    const std::size_t count = 30'000;
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < count; ++i)
        texts.push_back("line " + std::to_string(i));
    const Lines before(texts.begin(), texts.end());
    Lines after = before;
    for (std::size_t i = 0; i < count; i += 100)
        after[i] = "changed";
    after.erase(after.begin() + 50);

    const std::vector<Change> changes = changesBetween(before, after);

    EXPECT_EQ(changed(before, after, changes), after);
    EXPECT_EQ(linesIn(changes), 2 * count / 100 + 1);
}

TEST(ChangesBetweenTexts, TakeNoLongerThanTheLinesOfTextsThatHaveNothingInCommon)
{
    const std::size_t count = 50'000;
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < 2 * count; ++i)
        texts.push_back(std::to_string(i));
    const Lines before(texts.begin(), texts.begin() + count);
    const Lines after(texts.begin() + count, texts.end());

    const std::vector<Change> changes = changesBetween(before, after);

    EXPECT_THAT(changes, SizeIs(1));
    EXPECT_EQ(linesIn(changes), 2 * count);
}

}  // namespace preview
