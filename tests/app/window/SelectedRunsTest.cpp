#include "app/window/SelectedRuns.h"
#include "fake/RandomSeed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <vector>

using window::SelectedRuns;

namespace
{

TEST(SelectedRunsOfAList, AreNoneAtFirst)
{
    const SelectedRuns runs;

    EXPECT_EQ(runs.count(), 0);
    EXPECT_EQ(runs.first(), -1);
    EXPECT_FALSE(runs.haveHoles());
}

TEST(SelectedRunsOfAList, AreWhatAPlainListOfMarksSays)
{
    constexpr int items = 12;
    std::mt19937 random(fake::randomSeed());
    std::uniform_int_distribution<int> place(0, items);
    SelectedRuns runs;
    std::vector<bool> marks(items, false);
    for (int round = 0; round < 5000; ++round) {
        const int first = place(random);
        const int end = place(random);
        const bool selected = place(random) % 2 == 0;
        runs.set(first, end, selected);
        for (int item = first; item < end; ++item)
            marks[static_cast<std::size_t>(item)] = selected;

        const auto lowest = std::ranges::find(marks, true);
        const auto count = static_cast<int>(std::ranges::count(marks, true));
        const auto last = std::find(marks.rbegin(), marks.rend(), true).base();
        ASSERT_EQ(runs.count(), count);
        ASSERT_EQ(runs.first(),
                  lowest == marks.end() ? -1 : static_cast<int>(lowest - marks.begin()));
        ASSERT_EQ(runs.haveHoles(), count > 0 && last - lowest > count);
    }
}

TEST(SelectedRunsOfAList, WithoutOthersAreWhatTheseAreNot)
{
    SelectedRuns runs;
    runs.set(2, 9, true);
    SelectedRuns others;
    others.set(0, 3, true);
    others.set(5, 6, true);

    const SelectedRuns rest = runs.without(others);

    EXPECT_EQ(rest.runs(), (std::map<int, int>{{3, 5}, {6, 9}}));
    EXPECT_EQ(runs.without(SelectedRuns()).runs(), runs.runs());
    EXPECT_EQ(runs.without(runs).count(), 0);
}

}  // namespace
