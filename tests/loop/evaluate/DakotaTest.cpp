#include "EvaluateFixture.h"

#include <gmock/gmock.h>

#include <filesystem>

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace loop::evaluate
{

namespace
{

class ForDakota : public EvaluateFixture
{
protected:
    int evaluatePoint(const std::string& parameters)
    {
        write("params.in", parameters);
        write("results.out", "old");
        return evaluate({"--dakota", path("params.in"), path("results.out")});
    }
};

TEST_F(ForDakota, APointGivesTheResponsesThatItWantsInItsOrder)
{
    EXPECT_EQ(evaluatePoint("1 variables\n2 Web, left\n2 functions\n1 ASV_1:End \"B\"\n"
                            "1 ASV_2:Total mass\n"),
              0)
        << errors.str();

    EXPECT_EQ(read("results.out"), "7 End \"B\"\n3.5 Total mass\n");
    EXPECT_EQ(read("InputValues.txt"), inputs);
}

TEST_F(ForDakota, APointThatFailsIsToldAsFailed)
{
    EXPECT_EQ(evaluatePoint("1 variables\n9 Skin\n1 functions\n1 ASV_1:Total mass\n"), 1);

    EXPECT_EQ(read("results.out"), "fail\n");
    EXPECT_THAT(errors.str(), StartsWith("velmar-evaluate: CAEInput ended with code 1"));
}

TEST_F(ForDakota, ACallThatDoesNotFitTheStudyRunsNothingAndLeavesNoResults)
{
    EXPECT_EQ(evaluatePoint("2 variables\n1 x1\n1 Skin\n2 functions\n2 ASV_1:Total mass\n"
                            "1 ASV_2:f\n"),
              1);

    const std::string file = path("params.in");
    EXPECT_THAT(errors.str(),
                AllOf(StartsWith(file + ":2: the study has no \"x1\"; "),
                      HasSubstr(file + ":5: ASV_1:Total mass is 2, but only values can be had; "),
                      HasSubstr(file + ":6: the study has no \"f\"; ")));
    EXPECT_FALSE(has("results.out"));
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(ForDakota, APointNeedsNumbersWithinTheBounds)
{
    write("panelBounds.csv", "name,kind,value,lower,upper\nSkin,Prop,1,0.5,2\n");

    EXPECT_EQ(evaluatePoint("2 variables\n3 Skin\nred Web, left\n0 functions\n"), 1);

    EXPECT_THAT(errors.str(), AllOf(HasSubstr("params.in:2: Skin is 3, beyond its bounds"),
                                    HasSubstr("params.in:3: Web, left is \"red\"")));
    EXPECT_FALSE(has("results.out"));
}

TEST_F(ForDakota, APointNeedsNumbersOfTheStudyForAllElse)
{
    write("InputValues.txt", "Skin  \r\nWeb, left  1\r\n");

    EXPECT_EQ(evaluatePoint("1 variables\n3 Web, left\n0 functions\n"), 1);

    EXPECT_THAT(errors.str(), StartsWith("InputValues.txt:1: Skin has no number"));
}

}  // namespace

}  // namespace loop::evaluate
