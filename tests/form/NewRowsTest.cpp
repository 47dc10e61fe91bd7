#include "fake/GridRows.h"
#include "form/NewRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace form
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

struct NewRowsTest : testing::Test
{
    ParameterGrid grid{2};
    NewRows fresh{grid};

    NewRowsTest() { fake::fill(grid, {"b\t1", "d\t2"}); }
};

TEST_F(NewRowsTest, AreThoseThatTheActionAdded)
{
    fresh.begin();
    grid.AddItem("c\t3");
    grid.AddItem("a\t4");
    grid.sortByName();
    fresh.end();

    EXPECT_THAT(fresh.rows(), ElementsAre(1, 3));
    EXPECT_TRUE(fresh.contains(3));
    EXPECT_FALSE(fresh.contains(2));
}

TEST_F(NewRowsTest, TakeInARowThatCameBackWithAnotherValue)
{
    fresh.begin();
    grid.removeRowsNamed("b");
    grid.AddItem("b\t7");
    fresh.end();

    EXPECT_THAT(fresh.rows(), ElementsAre(2));
}

TEST_F(NewRowsTest, AreTheLastOnesOfThoseThatAreTheSame)
{
    fresh.begin();
    grid.AddItem("b\t1");
    grid.AddItem("b\t1");
    fresh.end();

    EXPECT_THAT(fresh.rows(), ElementsAre(3, 4));
}

TEST_F(NewRowsTest, AreNoneWhereRowsOnlyWentOrMoved)
{
    grid.AddItem("a\t5");
    fresh.begin();
    grid.sortByName();
    grid.RemoveItem(2);
    fresh.end();

    EXPECT_THAT(fresh.rows(), IsEmpty());
}

TEST_F(NewRowsTest, AreNoneInAGridThatWasEmptied)
{
    fresh.begin();
    grid.replaceRows({});
    fresh.end();

    EXPECT_THAT(fresh.rows(), IsEmpty());
}

TEST_F(NewRowsTest, AreForgottenOrGoneWithTheNextChange)
{
    fresh.begin();
    grid.AddItem("c\t3");
    fresh.end();
    grid.RemoveItem(1);
    EXPECT_THAT(fresh.rows(), IsEmpty());
    EXPECT_FALSE(fresh.contains(3));

    fresh.begin();
    grid.AddItem("e\t3");
    fresh.end();
    EXPECT_THAT(fresh.rows(), ElementsAre(3));
    fresh.forget();
    EXPECT_THAT(fresh.rows(), IsEmpty());
}

}  // namespace
}  // namespace form
