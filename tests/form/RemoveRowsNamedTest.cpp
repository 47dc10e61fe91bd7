#include "fake/GridRows.h"
#include "fake/RandomSeed.h"
#include "form/ParameterGrid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

using fake::fill;
using fake::namesOf;
using fake::rowsOf;
using form::ParameterGrid;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

TEST(RemoveRowsNamed, DoesNothingWhenNoRowHasTheName)
{
    ParameterGrid grid(5);
    fill(grid, {"a", "b"});

    const ParameterGrid::NameScan scan = grid.removeRowsNamed("c");

    EXPECT_THAT(scan.removed, IsEmpty());
    EXPECT_FALSE(scan.ranPastTheEnd);
    EXPECT_FALSE(scan.removalRefused);
    EXPECT_THAT(namesOf(grid), ElementsAre("a", "b"));
}

TEST(RemoveRowsNamed, ComparesTheWholeNameExactly)
{
    ParameterGrid grid(5);
    fill(grid, {"A", "ab", "a ", "x\ta"});

    const ParameterGrid::NameScan scan = grid.removeRowsNamed("a");

    EXPECT_THAT(scan.removed, IsEmpty());
    EXPECT_EQ(grid.Rows(), 5);
}

TEST(RemoveRowsNamed, RunsPastTheEndAfterRemovingARowAboveTheLast)
{
    ParameterGrid grid(5);
    fill(grid, {"a", "b", "c"});

    const ParameterGrid::NameScan scan = grid.removeRowsNamed("b");

    EXPECT_THAT(scan.removed, ElementsAre("b\t\t\t\t"));
    EXPECT_TRUE(scan.ranPastTheEnd);
    EXPECT_THAT(namesOf(grid), ElementsAre("a", "c"));
}

TEST(RemoveRowsNamed, EndsWithTheLastRowWhenThatIsTheDuplicate)
{
    ParameterGrid grid(5);
    fill(grid, {"a", "b", "c"});

    const ParameterGrid::NameScan scan = grid.removeRowsNamed("c");

    EXPECT_THAT(scan.removed, ElementsAre("c\t\t\t\t"));
    EXPECT_FALSE(scan.ranPastTheEnd);
    EXPECT_THAT(namesOf(grid), ElementsAre("a", "b"));
}

TEST(RemoveRowsNamed, SkipsTheRowThatMovesUpIntoTheRemovedPlace)
{
    ParameterGrid grid(5);
    fill(grid, {"a\t1", "a\t2", "b", "a\t3", "a\t4"});

    const ParameterGrid::NameScan scan = grid.removeRowsNamed("a");

    EXPECT_THAT(scan.removed, ElementsAre("a\t1\t\t\t", "a\t3\t\t\t"));
    EXPECT_TRUE(scan.ranPastTheEnd);
    EXPECT_THAT(rowsOf(grid), ElementsAre("a\t2\t\t\t", "b\t\t\t\t", "a\t4\t\t\t"));
}

TEST(RemoveRowsNamed, IsRefusedForTheOnlyParameterRow)
{
    ParameterGrid grid(5);
    fill(grid, {"a\t1"});

    const ParameterGrid::NameScan scan = grid.removeRowsNamed("a");

    EXPECT_THAT(scan.removed, IsEmpty());
    EXPECT_TRUE(scan.removalRefused);
    EXPECT_FALSE(scan.ranPastTheEnd);
    EXPECT_THAT(rowsOf(grid), ElementsAre("a\t1\t\t\t"));
}

TEST(RemoveRowsNamed, KeepsTheSelectionInside)
{
    ParameterGrid grid(5);
    fill(grid, {"a", "b", "c"});
    grid.Row = 3;
    grid.RowSel = 3;

    grid.removeRowsNamed("a");

    EXPECT_EQ(grid.Row, 2);
    EXPECT_EQ(grid.RowSel, 2);
}

TEST(RemoveRowsNamed, StaysQuickInALargeGrid)
{
    constexpr int rows = 100'000;
    ParameterGrid grid(5);
    for (int i = 0; i < rows; ++i)
        grid.AddItem("name" + std::to_string(i));
    grid.RemoveItem(1);
    const auto start = std::chrono::steady_clock::now();

    std::size_t removed = 0;
    for (int i = 0; i < rows; ++i) {
        const std::string name = "name" + std::to_string(i);
        removed += grid.removeRowsNamed(name).removed.size();
        grid.AddItem(name);
    }

    const auto spent = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(removed, static_cast<std::size_t>(rows));
    EXPECT_EQ(grid.Rows(), rows + 1);
    EXPECT_EQ(grid.text(1, 0), "name0");
    // Looking at every row for every name would take minutes.
    EXPECT_LT(spent, std::chrono::seconds(60));
}

// The same grid written for clearness: every scan visits every row.
class PlainGrid
{
public:
    int count() const { return static_cast<int>(rows.size()); }

    ParameterGrid::NameScan removeRowsNamed(const std::string& name)
    {
        ParameterGrid::NameScan scan;
        const int last = count();
        for (int row = 1; row <= last; ++row) {
            if (row > count()) {
                scan.ranPastTheEnd = true;
                break;
            }
            const auto place = rows.begin() + (row - 1);
            if (place->substr(0, place->find('\t')) != name)
                continue;
            if (count() == 1) {
                scan.removalRefused = true;
                break;
            }
            scan.removed.push_back(*place);
            rows.erase(place);
        }
        return scan;
    }

    void sortByName()
    {
        std::stable_sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) {
            return a.substr(0, a.find('\t')) < b.substr(0, b.find('\t'));
        });
    }

    std::vector<std::string> rows = {"\t"};
};

// Carries out the same random steps on both and fails at the first difference.
class RandomGrids
{
public:
    explicit RandomGrids(unsigned seed) : random_(seed) {}

    void compareOne()
    {
        ParameterGrid grid(2);
        PlainGrid plain;
        names_ = 1 + below(5);
        const int steps = below(60);
        for (int i = 0; i < steps && !testing::Test::HasFailure(); ++i) {
            step(grid, plain);
            ASSERT_EQ(grid.Rows() - 1, plain.count());
            // Not after every step: reading rows closes the gaps that removals leave.
            if (below(4) == 0) {
                ASSERT_EQ(rowsOf(grid), plain.rows);
            }
        }
        ASSERT_EQ(rowsOf(grid), plain.rows);
    }

private:
    int below(int bound) { return std::uniform_int_distribution<>(0, bound - 1)(random_); }
    std::string name()
    {
        const int number = below(names_ + 1);
        return number == 0 ? "" : "name" + std::to_string(number);
    }

    void step(ParameterGrid& grid, PlainGrid& plain)
    {
        const int kind = below(20);
        const int row = 1 + below(plain.count());
        if (kind < 10) {
            const std::string text = name() + "\t" + std::to_string(++values_);
            grid.AddItem(text);
            plain.rows.push_back(text);
        }
        else if (kind < 17) {
            scan(grid, plain, name());
        }
        else if (kind == 17 && plain.count() > 1) {
            grid.RemoveItem(row);
            plain.rows.erase(plain.rows.begin() + (row - 1));
        }
        else if (kind == 18) {
            std::string& text = plain.rows[static_cast<std::size_t>(row - 1)];
            const std::string changed = name();
            text = changed + text.substr(text.find('\t'));
            grid.setText(row, form::nameColumn, changed);
        }
        else if (kind == 19) {
            grid.sortByName();
            plain.sortByName();
        }
    }

    static void scan(ParameterGrid& grid, PlainGrid& plain, const std::string& name)
    {
        const ParameterGrid::NameScan actual = grid.removeRowsNamed(name);
        const ParameterGrid::NameScan expected = plain.removeRowsNamed(name);
        ASSERT_EQ(actual.removed, expected.removed);
        ASSERT_EQ(actual.ranPastTheEnd, expected.ranPastTheEnd);
        ASSERT_EQ(actual.removalRefused, expected.removalRefused);
    }

    std::mt19937 random_;
    int names_ = 1;
    int values_ = 0;
};

TEST(RemoveRowsNamed, DoesWhatAVisitOfEveryRowWouldDoInRandomGrids)
{
    RandomGrids grids(fake::randomSeed());

    for (int i = 0; i < 5'000 && !HasFailure(); ++i)
        grids.compareOne();
}

}  // namespace
