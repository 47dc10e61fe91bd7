#include "selection/SelectionFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <numeric>

namespace selection
{
namespace
{

// Far more than it takes, and far less than anything quadratic would.
constexpr double secondsAllowed = 5;

#ifdef NDEBUG
constexpr int nodeCount = 100000;
constexpr char lastByName[] = "zAtNode99999";
#else
constexpr int nodeCount = 20000;
constexpr char lastByName[] = "zAtNode9999";
#endif

// Of the processor, so that a busy machine fails no test.
double secondsOf(const std::function<void()>& action)
{
    const std::clock_t start = std::clock();
    action();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

class LargeSelection : public testing::Test
{
protected:
    SelectionFixture f;
    std::vector<int> ids = std::vector<int>(nodeCount);

    void SetUp() override
    {
        f.context.log.DeinitialiseLogger();
        std::iota(ids.begin(), ids.end(), 1);
        f.addNodes(ids);
    }
};

TEST_F(LargeSelection, OfInputsTakesSecondsAndTogglesWhenItIsRepeated)
{
    const auto select = [&] { f.selectInput("Nodes", ids, {"x", "y", "z"}); };

    EXPECT_LT(secondsOf(select), secondsAllowed);
    EXPECT_EQ(f.form.InputsList.Rows(), 3 * nodeCount + 1);

    // Every row goes but the last one, which makes place for a fresh one.
    EXPECT_LT(secondsOf(select), secondsAllowed);
    EXPECT_THAT(f.names(f.form.InputsList), testing::ElementsAre(lastByName));
}

TEST_F(LargeSelection, OfOutputsTakesSecondsAndReplacesWhenItIsRepeated)
{
    for (const int vector : {1, 2, 3})
        f.addVector(vector, "Total Translation", ids, std::vector<double>(nodeCount, 0.5));
    f.dialog.UpdateCollection();
    const auto select = [&] {
        f.pick(ids);
        f.list.chooseAll();
        f.selectOutput("Nodes");
    };

    EXPECT_LT(secondsOf(select), secondsAllowed);
    EXPECT_EQ(f.form.OutputsList.Rows(), 3 * nodeCount + 1);

    EXPECT_LT(secondsOf(select), secondsAllowed);
    EXPECT_EQ(f.form.OutputsList.Rows(), 3 * nodeCount + 1);
}

}  // namespace
}  // namespace selection
