#include "fake/GridRows.h"
#include "form/AppliedRows.h"

#include <gtest/gtest.h>

namespace form
{
namespace
{

struct AppliedRowsTest : testing::Test
{
    ParameterGrid inputs{inputColumn::count};
    ParameterGrid outputs{outputColumn::count};
    AppliedRows applied;

    AppliedRowsTest()
    {
        fake::fill(inputs, {"a\t1\tNode\t1\tx\t", "b\t2\tNode\t1\ty\t"});
        fake::fill(outputs, {"c\t3\t1\t1\tNode"});
    }
    RowCounts counts(const std::string& model = "m") const
    {
        return applied.compare(model, inputs, outputs);
    }
};

TEST_F(AppliedRowsTest, CountsEveryRowWhereNoControlFileIsKnown)
{
    EXPECT_EQ(counts(), (RowCounts{3, 0, 3}));
}

TEST_F(AppliedRowsTest, HoldARowThatTheControlFileOfTheModelHasCellForCell)
{
    applied.take("m", inputs, outputs);

    EXPECT_TRUE(applied.hold("m", "b\t2\tNode\t1\ty\t", true));
    EXPECT_TRUE(applied.hold("m", "c\t3\t1\t1\tNode", false));
    EXPECT_FALSE(applied.hold("m", "b\t2.5\tNode\t1\ty\t", true)) << "another value";
    EXPECT_FALSE(applied.hold("m", "b\t2\tNode\t1\ty\t", false)) << "in the other grid";
    EXPECT_FALSE(applied.hold("another", "b\t2\tNode\t1\ty\t", true));
}

TEST_F(AppliedRowsTest, CountsNoneWhenTheControlFileHoldsAll)
{
    applied.take("m", inputs, outputs);

    EXPECT_EQ(counts(), (RowCounts{3, 0, 0}));
    EXPECT_EQ(counts("another"), (RowCounts{3, 0, 3}));
}

TEST_F(AppliedRowsTest, CountsAChangedRowOnce)
{
    applied.take("m", inputs, outputs);

    inputs.setText(1, valueColumn, "1.5");

    EXPECT_EQ(counts(), (RowCounts{3, 0, 1}));
}

TEST_F(AppliedRowsTest, CountsRowsThatWentAndRowsThatCame)
{
    applied.take("m", inputs, outputs);

    inputs.RemoveItem(1);
    outputs.AddItem("d\t4\t1\t1\tNode");
    outputs.AddItem("e\t5\t1\t1\tNode");

    EXPECT_EQ(counts(), (RowCounts{4, 0, 3}));
}

TEST_F(AppliedRowsTest, TellsInputsFromOutputs)
{
    applied.take("m", inputs, outputs);

    fake::fill(inputs, {"a\t1\tNode\t1\tx\t"});
    outputs.AddItem("b\t2\tNode\t1\ty");

    EXPECT_EQ(counts(), (RowCounts{3, 0, 2}));
}

TEST_F(AppliedRowsTest, CountsNoBlankRowAndRowsWithoutAValue)
{
    fake::fill(inputs, {""});
    outputs.setText(1, valueColumn, "");

    EXPECT_EQ(counts(), (RowCounts{1, 1, 1}));
}

TEST_F(AppliedRowsTest, DoesNotMindTheOrderAndCountsEachOfEqualRows)
{
    fake::fill(inputs, {"b\t2\tNode\t1\ty\t", "b\t2\tNode\t1\ty\t", "a\t1\tNode\t1\tx\t"});
    applied.take("m", inputs, outputs);

    inputs.sortByName();
    EXPECT_EQ(counts().notApplied, 0);
    inputs.RemoveItem(2);
    EXPECT_EQ(counts().notApplied, 1);
}

TEST_F(AppliedRowsTest, NameTheLastOfEqualRowsThatAreTooMany)
{
    fake::fill(inputs, {"b\t2\tNode\t1\ty\t", "b\t2\tNode\t1\ty\t", "a\t1\tNode\t1\tx\t"});
    applied.take("m", inputs, outputs);

    for (int i = 0; i < 2; ++i) {
        inputs.AddItem("b\t2\tNode\t1\ty\t");
        outputs.AddItem("c\t3\t1\t1\tNode");
    }
    inputs.AddItem("d\t4\tNode\t1\tz\t");

    EXPECT_EQ(counts(), (RowCounts{9, 0, 5, {4, 5}, {2, 3}}));
    EXPECT_EQ(counts("another"), (RowCounts{9, 0, 9}));
}

TEST(ParameterGridChanges, GrowWithEveryChangeAndNotByReading)
{
    ParameterGrid grid(inputColumn::count);
    std::uint64_t before = grid.changes();
    const auto grew = [&] { return std::exchange(before, grid.changes()) != grid.changes(); };

    grid.AddItem("a");
    EXPECT_TRUE(grew());
    grid.setText(1, 1, "x");
    EXPECT_TRUE(grew());
    grid.sortByName();
    EXPECT_TRUE(grew());
    grid.removeRowsNamed("a");
    EXPECT_TRUE(grew());
    grid.setRows(4);
    EXPECT_TRUE(grew());
    grid.RemoveItem(1);
    EXPECT_TRUE(grew());
    grid.rows();
    grid.rowText(1);
    grid.Row = 2;
    EXPECT_FALSE(grew());
}

}  // namespace
}  // namespace form
