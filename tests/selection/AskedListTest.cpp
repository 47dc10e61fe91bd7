#include "selection/AskedList.h"

#include <gtest/gtest.h>

namespace selection
{

TEST(AskedListTest, NamesTheEntitiesAsRanges)
{
    EXPECT_EQ((AskedList{{1, 2, 3, 7, 9, 10}}).text(), "list 1: 1-3, 7, 9-10");
}

TEST(AskedListTest, TellsHowManyListsThereAreWhereThatIsKnown)
{
    EXPECT_EQ((AskedList{{4}, 2, 7}).text(), "list 2 of 7: 4");
    EXPECT_EQ((AskedList{{4}, 2}).text(), "list 2: 4");
}

TEST(AskedListTest, OfAWholeModelHasNoEntities)
{
    EXPECT_EQ(AskedList{}.text(), "list 1");
}

}  // namespace selection
