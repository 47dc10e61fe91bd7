#include "fake/GenerateFixture.h"
#include "generate/GenerationDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
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

struct Shown
{
    std::vector<int> percents;          // on FEMAP's bar
    std::vector<std::string> captions;  // of the status line, at the same time
};

class WatchedFemap : public femap::ForwardingApplication
{
public:
    WatchedFemap(std::unique_ptr<femap::Application> real, const form::Label& status, Shown& shown)
        : ForwardingApplication(std::move(real)), status_(status), shown_(shown)
    {}

    void feAppStatusUpdate(int current) override
    {
        shown_.percents.push_back(current);
        shown_.captions.push_back(status_.Caption);
        ForwardingApplication::feAppStatusUpdate(current);
    }

private:
    const form::Label& status_;
    Shown& shown_;
};

/// A form with many rows and a clock that goes on by so much whenever someone looks at it.
class ApplyProgress : public testing::TestWithParam<std::string>
{
protected:
    GenerateFixture f;
    Shown shown;

    void SetUp() override
    {
        f.form.Optimizer.Text = GetParam();
        f.form.status.tellHint("before");
        f.context.application = std::make_unique<WatchedFemap>(std::move(f.context.application),
                                                               f.form.StatusLine, shown);
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

    ASSERT_THAT(shown.percents, SizeIs(testing::Ge(8U)));
    EXPECT_TRUE(std::is_sorted(shown.percents.begin(), shown.percents.end()));
    EXPECT_LE(shown.percents.front(), 100 / 8);
    EXPECT_EQ(shown.percents.back(), 100);
    EXPECT_LT(shown.percents[shown.percents.size() - 2], 100);
    EXPECT_THAT(shown.captions, Each(testing::StartsWith("Writing files … ")));
}

TEST_P(ApplyProgress, LeavesNoTraceInTheFormInFemapOrInTheLog)
{
    applyWithClock(2);

    // Behind the result; it was told before this action.
    EXPECT_THAT(f.form.StatusLine.Caption, EndsWith(" written into " + inWork("") + ". before"));
    EXPECT_EQ(f.femap.statusMaximum, 0);
    EXPECT_EQ(f.context.progress, nullptr);
    EXPECT_THAT(f.log(), Not(Contains(HasSubstr("Writing files"))));
}

TEST_P(ApplyProgress, IsNotShownOfLessThanASecond)
{
    applyWithClock(0.001);

    EXPECT_THAT(shown.percents, IsEmpty());
}

TEST_P(ApplyProgress, EndsWithAnErrorThatEndsTheWriting)
{
    f.files.failingOperation = 3;

    EXPECT_THROW(applyWithClock(2), sys::RuntimeError);

    EXPECT_EQ(f.context.progress, nullptr);
    EXPECT_EQ(f.femap.statusMaximum, 0);
}

INSTANTIATE_TEST_SUITE_P(Tools, ApplyProgress, testing::Values("Velmar", "Ombra", "none"),
                         [](const auto& tool) { return tool.param; });

}  // namespace
}  // namespace generate
