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

std::vector<std::uint32_t> placesOf(NameIndex& index, const std::string& name)
{
    std::vector<std::uint32_t> places;
    const NameIndex::Chain* const chain = index.find(name);
    for (std::uint32_t place = chain == nullptr ? NameIndex::none : chain->first;
         place != NameIndex::none; place = index.after(place))
        places.push_back(place);
    return places;
}

void unlinkFirst(NameIndex& index, const std::string& name)
{
    NameIndex::Chain* const chain = index.find(name);
    index.unlink(*chain, NameIndex::none, chain->first);
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

TEST(NameIndex, LosesAPlaceThatIsTakenOutOfItsChain)
{
    NameIndex index;
    for (int i = 0; i < 4; ++i)
        index.add("a");

    index.unlink(*index.find("a"), 0, 1);
    index.unlink(*index.find("a"), 2, 3);
    index.add("a");

    EXPECT_THAT(placesOf(index, "a"), ElementsAre(0, 2, 4));
}

TEST(NameIndex, TakesANameAgainThatItLost)
{
    NameIndex index;
    index.add("a");
    unlinkFirst(index, "a");
    const std::vector<std::uint32_t> lost = placesOf(index, "a");

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
            unlinkFirst(index, "name" + std::to_string(i));
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
