#include "fake/GenerateFixture.h"
#include "generate/GenerationDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace generate
{
namespace
{

using testing::Contains;
using testing::Each;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr int rows = 1024;  // in each grid

/// A form with many rows and a clock that goes on by so much whenever someone looks at it.
class ApplyProgress : public testing::TestWithParam<std::string>
{
protected:
    GenerateFixture f;
    std::vector<int> percents;          // on FEMAP's bar
    std::vector<std::string> captions;  // of the status line, at the same time

    void SetUp() override
    {
        f.form.Optimizer.Text = GetParam();
        f.form.status.tellHint("before");
        fake::CallWatch& femap = f.watchFemap();
        femap.before("feAppStatusUpdate", [this, &femap] {
            percents.push_back(std::stoi(femap.calls.back().arguments));
            captions.push_back(f.form.StatusLine.Caption);
        });
        for (int i = 1; i <= rows; ++i) {
            const std::string id = std::to_string(i);
            f.addInput({"ThicknessAtProp" + id, "1.5", "Prop", id, "pval", "0"});
            f.addOutput({"ElemForce1AtElem" + id, "2.5", id, "1", "Output"});
        }
    }
    void applyWithClock(double secondsPerLook)
    {
        f.system.monotonicSeconds = [this, secondsPerLook] { return f.seconds += secondsPerLook; };
        GenerateButton_Click(f.context);
    }
};

TEST_P(ApplyProgress, GoesFromTheFirstRowOfTheFirstFileToTheLastRowOfTheLast)
{
    applyWithClock(2);

    ASSERT_THAT(percents, SizeIs(testing::Ge(8U)));
    EXPECT_TRUE(std::is_sorted(percents.begin(), percents.end()));
    EXPECT_LE(percents.front(), 100 / 8);
    EXPECT_EQ(percents.back(), 100);
    EXPECT_LT(percents[percents.size() - 2], 100);
    EXPECT_THAT(captions, Each(testing::StartsWith("Writing files … ")));
}

TEST_P(ApplyProgress, LeavesNoTraceInTheFormInFemapOrInTheLog)
{
    applyWithClock(2);

    // Behind the result; it was told before this action.
    EXPECT_THAT(f.form.StatusLine.Caption, EndsWith(" written into " + inWork("") + ". before"));
    EXPECT_EQ(f.femap.statusMaximum, 0);
    EXPECT_THAT(f.log(), Not(Contains(HasSubstr("Writing files"))));
}

TEST_P(ApplyProgress, IsNotShownOfLessThanASecond)
{
    applyWithClock(0.001);

    EXPECT_THAT(percents, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Tools, ApplyProgress, testing::Values("Velmar", "Ombra", "none"),
                         [](const auto& tool) { return tool.param; });

}  // namespace
}  // namespace generate
