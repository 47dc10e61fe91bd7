#include "form/NameIndex.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace form
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::size_t> placesOf(NameIndex& index, const std::string& name)
{
    std::vector<std::size_t> places;
    for (NameIndex::Positions rows = index.rowsNamed(name); !rows.atEnd(); rows.goOn())
        places.push_back(rows.position());
    return places;
}

void removeFirst(NameIndex& index, const std::string& name)
{
    index.rowsNamed(name).remove();
}

TEST(NameIndex, FindsNothingBeforeANameWasAdded)
{
    NameIndex index;

    EXPECT_THAT(placesOf(index, "a"), IsEmpty());
    index.add("b");
    EXPECT_THAT(placesOf(index, "a"), IsEmpty());
}

TEST(NameIndex, GivesThePlacesOfANameInTheirOrder)
{
    NameIndex index;

    for (const char* const name : {"a", "b", "a", "", "a"})
        index.add(name);

    EXPECT_THAT(placesOf(index, "a"), ElementsAre(0, 2, 4));
    EXPECT_THAT(placesOf(index, "b"), ElementsAre(1));
    EXPECT_THAT(placesOf(index, ""), ElementsAre(3));
}

TEST(NameIndex, LosesAPlaceThatIsRemoved)
{
    NameIndex index;
    for (int i = 0; i < 4; ++i)
        index.add("a");

    NameIndex::Positions rows = index.rowsNamed("a");
    rows.goOn();
    rows.remove();
    rows.goOn();
    rows.remove();
    EXPECT_TRUE(rows.atEnd());
    index.add("a");

    EXPECT_THAT(placesOf(index, "a"), ElementsAre(0, 2, 4));
}

TEST(NameIndex, TakesANameAgainThatItLost)
{
    NameIndex index;
    index.add("a");
    removeFirst(index, "a");
    const std::vector<std::size_t> lost = placesOf(index, "a");

    index.add("a");

    EXPECT_THAT(lost, IsEmpty());
    EXPECT_THAT(placesOf(index, "a"), ElementsAre(1));
}

TEST(NameIndex, KnowsEveryNameHoweverManyCameAndWent)
{
    constexpr int names = 5000;
    NameIndex index;
    index.reserve(names / 10);

    for (int i = 0; i < names; ++i) {
        index.add("name" + std::to_string(i));
        if (i % 3 == 0)
            removeFirst(index, "name" + std::to_string(i));
    }

    for (int i = 0; i < names; ++i) {
        const std::size_t count = placesOf(index, "name" + std::to_string(i)).size();
        ASSERT_EQ(count, i % 3 == 0 ? 0U : 1U) << i;
    }
}

TEST(NameIndex, IsEmptyOnceItIsCleared)
{
    NameIndex index;
    index.add("a");

    index.clear();
    index.add("b");

    EXPECT_THAT(placesOf(index, "a"), IsEmpty());
    EXPECT_THAT(placesOf(index, "b"), ElementsAre(0));
}

}  // namespace
}  // namespace form
