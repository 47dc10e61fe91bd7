#include "selection/OutputNames.h"

#include <gtest/gtest.h>

namespace selection
{
namespace
{

TEST(OutputNames, KeepTenCharactersOfTheTitleForAValueAndFourteenForAnExtreme)
{
    EXPECT_EQ(startOfValueNames("Träger-Ø / T1 Translation", "27", "Node"), "TrägerØT1T27AtNode");
    EXPECT_EQ(nameOfExtreme("Träger-Ø / T1 Translation", "27", extremes[1], "Elem"),
              "TrägerØT1TransMinAtElem27");
}

TEST(OutputNames, OfAMassHaveTheSuffixOfTheirComponent)
{
    EXPECT_EQ(nameOfMass(*findMassQuantity("MassTotal"), 0), "TotalMass");
    EXPECT_EQ(nameOfMass(*findMassQuantity("TotalCG"), 2), "TotalCGz");
}

TEST(OutputNames, KnowTheExtremesByTheKindOfTheirRows)
{
    EXPECT_EQ(findExtreme("maxval"), &extremes[0]);
    EXPECT_EQ(findExtreme("minval"), &extremes[1]);
    EXPECT_EQ(findExtreme("Output"), nullptr);
}

TEST(EntityWord, StandsBeforeTheIDAtTheEndOfAName)
{
    EXPECT_EQ(entityWordIn("PlateTopVo7033AtElem130"), "Elem");
    EXPECT_EQ(entityWordIn("TotalTranslatMinAtNode1"), "Node");
    EXPECT_EQ(entityWordIn("TotalMass"), "");
    EXPECT_EQ(entityWordIn("Inertia1"), "");
    EXPECT_EQ(entityWordIn("Elem1"), "");
    EXPECT_EQ(entityWordIn("xAtElem"), "");
    EXPECT_EQ(entityWordIn(""), "");
}

}  // namespace
}  // namespace selection
