#include "selection/FieldCatalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace selection
{
namespace
{

TEST(FieldCatalogue, HasNoListForAnUnknownKind)
{
    EXPECT_EQ(findFieldList("Curve", ""), nullptr);
    EXPECT_EQ(findFieldList("", ""), nullptr);
    EXPECT_EQ(findFieldList("node", ""), nullptr);
}

TEST(FieldCatalogue, IgnoresTheSubTypeOfAKindThatHasOneList)
{
    EXPECT_EQ(findFieldList("Matl", "Plate"), findFieldList("Matl", ""));
}

TEST(FieldCatalogue, GivesEverySubTypeWithoutAListTheUndefinedProperty)
{
    EXPECT_EQ(findFieldList("Prop", "Shear")->caption, "Undefined Property");
    EXPECT_EQ(findFieldList("Prop", "")->caption, "Undefined Property");
    EXPECT_EQ(findFieldList("Prop", "Solid")->caption, "Undefined Property");
}

struct RangeCase
{
    int id;
    VectorGroup group;
    bool isOfElements;
};

class VectorRanges : public testing::TestWithParam<RangeCase>
{};

TEST_P(VectorRanges, SortAVectorByItsNumber)
{
    const VectorRange* const range = findVectorRange(GetParam().id);

    ASSERT_NE(range, nullptr);
    EXPECT_EQ(range->group, GetParam().group);
    EXPECT_EQ(range->isOfElements, GetParam().isOfElements);
}

INSTANTIATE_TEST_SUITE_P(Bounds, VectorRanges,
                         testing::Values(RangeCase{1, VectorGroup::Node, false},
                                         RangeCase{2999, VectorGroup::Node, false},
                                         RangeCase{3000, VectorGroup::LineElement, true},
                                         RangeCase{5999, VectorGroup::LineElement, true},
                                         RangeCase{6000, VectorGroup::Plate, true},
                                         RangeCase{59999, VectorGroup::Plate, true},
                                         RangeCase{60000, VectorGroup::Solid, true},
                                         RangeCase{79999, VectorGroup::Solid, true},
                                         RangeCase{80000, VectorGroup::FurtherElement, true},
                                         RangeCase{89999, VectorGroup::FurtherElement, true},
                                         RangeCase{90000, VectorGroup::Patran, false},
                                         RangeCase{99999, VectorGroup::Patran, false},
                                         RangeCase{100000, VectorGroup::PlateCorner, false},
                                         RangeCase{299999, VectorGroup::PlateCorner, false},
                                         RangeCase{300000, VectorGroup::Last, false},
                                         RangeCase{2147483647, VectorGroup::Last, false}),
                         [](const auto& each) { return "Vector" + std::to_string(each.param.id); });

TEST(VectorRanges, HoldNoNumberBelowOne)
{
    EXPECT_EQ(findVectorRange(0), nullptr);
    EXPECT_EQ(findVectorRange(-1), nullptr);
}

TEST(OutputCategories, StandForAllElementsUnderAnyOtherName)
{
    EXPECT_EQ(findOutputCategory("").caption, "Undefined Output Property");
    EXPECT_EQ(findOutputCategory("node").caption, "Undefined Output Property");
    EXPECT_EQ(findOutputCategory("Gap").group, VectorGroup::AllElements);
}

}  // namespace
}  // namespace selection
