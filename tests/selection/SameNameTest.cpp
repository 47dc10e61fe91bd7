#include "selection/OutcomeFixture.h"

namespace selection
{
namespace
{

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class OneNameForTwo : public SelectionOutcome
{
protected:
    void SetUp() override
    {
        SelectionOutcome::SetUp();
        f.model().materials.put({.id = 1, .title = "Steel", .mval = {1.0}});
    }
};

TEST_F(OneNameForTwo, IsToldWhenTheSecondTakesThePlaceOfTheFirst)
{
    LevelledLog log(f, "DEBUG");

    selectInputs("Materials", {1}, {"CompressionLimit1", "CompressionLimit2"});

    EXPECT_THAT(f.form.InputsList.text(1, form::inputColumn::member), "CompressionLimit2");
    expectTold(log,
               "CompressionLimiAtMatl1 names two quantities: Matl 1 CompressionLimit1 is "
               "taken out, Matl 1 CompressionLimit2 takes its place");
}

TEST_F(OneNameForTwo, IsToldWhenBothAreGone)
{
    selectInputs("Materials", {1}, {"CompressionLimit1", "Density"});
    LevelledLog log(f, "DEBUG");

    selectInputs("Materials", {1}, {"CompressionLimit2"});

    EXPECT_THAT(inputs(), ElementsAre("DensityAtMatl1"));
    expectTold(log,
               "CompressionLimiAtMatl1 names two quantities: Matl 1 CompressionLimit1 is "
               "taken out, Matl 1 CompressionLimit2 is not added");
}

TEST_F(OneNameForTwo, IsToldWhenTheFirstIsTheOnlyRow)
{
    selectInputs("Materials", {1}, {"CompressionLimit1"});
    LevelledLog log(f, "DEBUG");

    selectInputs("Materials", {1}, {"CompressionLimit2"});

    expectTold(log,
               "CompressionLimiAtMatl1 names two quantities: Matl 1 CompressionLimit1 stays, "
               "Matl 1 CompressionLimit2 is not added");
}

TEST_F(OneNameForTwo, IsToldOfTheFirstWithTheNumberOfOthersAndTheLogHasAll)
{
    f.model().materials.put({.id = 2, .title = "Brass", .mval = {1.0}});
    LevelledLog log(f, "DEBUG");

    selectInputs("Materials", {1, 2}, {"CompressionLimit1", "CompressionLimit2"});

    const std::string first =
        "CompressionLimiAtMatl1 names two quantities: Matl 1 "
        "CompressionLimit1 is taken out, Matl 1 CompressionLimit2 takes "
        "its place";
    EXPECT_EQ(status(), first + " (and 1 more)");
    EXPECT_THAT(log.lines(),
                AllOf(Contains("DEBUG: " + first),
                      Contains("DEBUG: CompressionLimiAtMatl2 names two quantities: Matl 2 "
                               "CompressionLimit1 is taken out, Matl 2 CompressionLimit2 takes "
                               "its place")));
}

TEST_F(OneNameForTwo, IsToldOfOutputs)
{
    f.addVector(2, "Stress 1", {1}, {4});
    f.addVector(12, "Stress", {1}, {5});
    selectOutputs("Nodes", {1}, {"2 - Stress 1", "1 - Total Translation"});
    LevelledLog log(f, "DEBUG");

    selectOutputs("Nodes", {1}, {"12 - Stress"});

    EXPECT_THAT(outputs(), ElementsAre("TotalTrans1AtNode1", "Stress12AtNode1"));
    expectTold(log,
               "Stress12AtNode1 names two quantities: 1 2 Output is taken out, 1 12 Output "
               "takes its place");
}

TEST_F(OneNameForTwo, IsNoMatterOfARowThatIsChosenAgain)
{
    selectInputs("Materials", {1}, {"CompressionLimit1", "Density"});
    LevelledLog log(f, "DEBUG");

    selectInputs("Materials", {1}, {"CompressionLimit1"});

    EXPECT_THAT(f.messages(), IsEmpty());
    EXPECT_THAT(log.lines(), Not(Contains(HasSubstr("two quantities"))));
}

}  // namespace
}  // namespace selection
