#include "fake/RealModels.h"
#include "femap/embedded/Host.h"
#include "femap/neutral/NeutralFile.h"
#include "system/CodePage.h"
#include "system/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using femap::MassProperties;
using femap::embedded::measureMassProperties;
using femap::neutral::Model;
using testing::Each;
using testing::ElementsAre;
using testing::Pointwise;

namespace
{

constexpr int topologyLine3 = 1;
constexpr int topologyTri3 = 2;
constexpr int topologyTri6 = 3;
constexpr int topologyQuad4 = 4;
constexpr int topologyTet4 = 6;
constexpr int topologyWedge6 = 7;
constexpr int topologyBrick8 = 8;
constexpr int topologyTet10 = 10;
constexpr int topologyWedge15 = 11;
constexpr int topologyBrick20 = 12;
constexpr int topologyPyramid5 = 14;

// Nodes 1 to 8 at the corners of a block of 2 x 3 x 4, the lower ones first. Material 1 has the
// density 10, property 1 the section or thickness 0.5 and 7 of other mass on each unit.
struct BlockFixture
{
    BlockFixture()
    {
        int id = 0;
        for (const double z : {0.0, 4.0}) {
            model.nodes.put({.id = ++id, .x = 0, .y = 0, .z = z});
            model.nodes.put({.id = ++id, .x = 2, .y = 0, .z = z});
            model.nodes.put({.id = ++id, .x = 2, .y = 3, .z = z});
            model.nodes.put({.id = ++id, .x = 0, .y = 3, .z = z});
        }
        model.materials.put({.id = 1}).mval[49] = 10;
        model.properties.put(
            {.id = 1, .matlID = 1, .type = 17, .pval = {0.5, 0, 0, 0, 0, 0, 0, 7}});
    }

    MassProperties measure(int topology, int type, const std::array<int, 20>& nodes)
    {
        model.elements.put(
            {.id = 5, .propID = 1, .type = type, .topology = topology, .node = nodes});
        return measureMassProperties(model, {5});
    }

    Model model;
};

MATCHER(IsClose, "")
{
    return std::abs(std::get<0>(arg) - std::get<1>(arg)) < 1e-9;
}

void expectClose(const std::vector<double>& actual, const std::vector<double>& expected)
{
    EXPECT_THAT(actual, Pointwise(IsClose(), expected));
}

}  // namespace

TEST(MassProperties, OfNothingAreAllZero)
{
    const MassProperties result = measureMassProperties(Model(), {});

    EXPECT_EQ(result.length, 0);
    EXPECT_EQ(result.area, 0);
    EXPECT_EQ(result.volume, 0);
    EXPECT_EQ(result.totalMass, 0);
    EXPECT_THAT(result.structuralCG, ElementsAre(0, 0, 0));
    EXPECT_THAT(result.nonStructuralCG, ElementsAre(0, 0, 0));
    EXPECT_THAT(result.totalCG, ElementsAre(0, 0, 0));
    EXPECT_THAT(result.inertia, ElementsAre(0, 0, 0, 0, 0, 0));
    EXPECT_THAT(result.inertiaCG, ElementsAre(0, 0, 0, 0, 0, 0));
}

TEST(MassProperties, OfARod)
{
    BlockFixture f;

    const MassProperties result = f.measure(0, femap::elementRod, {1, 5});

    EXPECT_EQ(result.length, 4);
    EXPECT_EQ(result.area, 0);
    EXPECT_EQ(result.volume, 0);
    EXPECT_EQ(result.structuralMass, 4 * 0.5 * 10);
    EXPECT_EQ(result.nonStructuralMass, 4 * 7);
    EXPECT_EQ(result.totalMass, 48);
    EXPECT_THAT(result.structuralCG, ElementsAre(0, 0, 2));
    EXPECT_THAT(result.nonStructuralCG, ElementsAre(0, 0, 2));
    EXPECT_THAT(result.totalCG, ElementsAre(0, 0, 2));
    EXPECT_THAT(result.inertia, ElementsAre(48 * 4, 0, 48 * 4, 0, 0, 0));
    EXPECT_THAT(result.inertiaCG, Each(0));
}

TEST(MassProperties, AParabolicLineIsMeasuredByItsEnds)
{
    BlockFixture f;

    EXPECT_EQ(f.measure(topologyLine3, femap::elementBeam, {1, 5, 3}).length, 4);
}

TEST(MassProperties, OfAQuadrilateral)
{
    BlockFixture f;

    const MassProperties result = f.measure(topologyQuad4, femap::elementPlate, {1, 2, 3, 4});

    EXPECT_DOUBLE_EQ(result.area, 6);
    EXPECT_EQ(result.length, 0);
    EXPECT_DOUBLE_EQ(result.structuralMass, 6 * 0.5 * 10);
    EXPECT_DOUBLE_EQ(result.nonStructuralMass, 6 * 7);
    expectClose(result.totalCG, {1, 1.5, 0});
    expectClose(result.inertia, {72 * 2.25, 72 * 1.5, 72 * 1.0, 0, 0, 72 * 3.25});
    expectClose(result.inertiaCG, {0, 0, 0, 0, 0, 0});
}

TEST(MassProperties, ACentroidIsThatOfTheAreaNotOfTheCorners)
{
    BlockFixture f;
    f.model.nodes.put({.id = 9, .x = 1, .y = 3});

    // A right-angled trapezium with the parallel sides 2 and 1.
    const MassProperties result = f.measure(topologyQuad4, femap::elementPlate, {1, 2, 9, 4});

    EXPECT_DOUBLE_EQ(result.area, 4.5);
    expectClose(result.totalCG, {7.0 / 9, 4.0 / 3, 0});
}

TEST(MassProperties, OfTriangles)
{
    BlockFixture f;

    const MassProperties result = f.measure(topologyTri3, femap::elementPlate, {1, 2, 4});

    EXPECT_DOUBLE_EQ(result.area, 3);
    EXPECT_DOUBLE_EQ(result.structuralMass, 3 * 0.5 * 10);
    expectClose(result.totalCG, {2.0 / 3, 1, 0});
    EXPECT_DOUBLE_EQ(f.measure(topologyTri6, 18, {1, 2, 4, 0, 5, 6, 7}).area, 3);
}

TEST(MassProperties, OfABrick)
{
    BlockFixture f;

    const MassProperties result =
        f.measure(topologyBrick8, femap::elementSolid, {1, 2, 3, 4, 5, 6, 7, 8});

    EXPECT_DOUBLE_EQ(result.volume, 24);
    EXPECT_EQ(result.area, 0);
    EXPECT_DOUBLE_EQ(result.structuralMass, 240);
    EXPECT_EQ(result.nonStructuralMass, 0);
    expectClose(result.structuralCG, {1, 1.5, 2});
    expectClose(result.nonStructuralCG, {0, 0, 0});
    expectClose(result.inertia,
                {240 * 6.25, 240 * 1.5, 240 * 5.0, 240 * 2.0, 240 * 3.0, 240 * 3.25});
    EXPECT_DOUBLE_EQ(f.measure(topologyBrick20, 26, {1, 2, 3, 4, 5, 6, 7, 8, 1, 1, 1, 1}).volume,
                     24);
}

TEST(MassProperties, OfATetrahedron)
{
    BlockFixture f;

    const MassProperties result = f.measure(topologyTet4, femap::elementSolid, {1, 2, 4, 0, 5});

    EXPECT_DOUBLE_EQ(result.volume, 4);
    expectClose(result.totalCG, {0.5, 0.75, 1});
    EXPECT_DOUBLE_EQ(f.measure(topologyTet10, 26, {1, 2, 4, 0, 5, 0, 0, 0, 6, 7, 8}).volume, 4);
}

TEST(MassProperties, OfAWedge)
{
    BlockFixture f;

    const MassProperties result =
        f.measure(topologyWedge6, femap::elementSolid, {1, 2, 4, 0, 5, 6, 8});

    EXPECT_DOUBLE_EQ(result.volume, 12);
    expectClose(result.totalCG, {2.0 / 3, 1, 2});
    EXPECT_DOUBLE_EQ(f.measure(topologyWedge15, 26, {1, 2, 4, 0, 5, 6, 8, 0, 3}).volume, 12);
}

TEST(MassProperties, OfAPyramid)
{
    BlockFixture f;

    const MassProperties result = f.measure(topologyPyramid5, femap::elementSolid, {1, 2, 3, 4, 5});

    EXPECT_DOUBLE_EQ(result.volume, 8);
    expectClose(result.totalCG, {0.75, 1.125, 1});
}

TEST(MassProperties, ASolidNumberedTheOtherWayRoundCountsTheSame)
{
    BlockFixture f;

    const MassProperties result =
        f.measure(topologyBrick8, femap::elementSolid, {5, 6, 7, 8, 1, 2, 3, 4});

    EXPECT_DOUBLE_EQ(result.volume, 24);
    expectClose(result.totalCG, {1, 1.5, 2});
}

TEST(MassProperties, AnElementOfNoExtentHasNoMass)
{
    BlockFixture f;

    const MassProperties plate = f.measure(topologyTri3, femap::elementPlate, {1, 1, 1});
    const MassProperties solid = f.measure(topologyTet4, femap::elementSolid, {1, 2, 3, 0, 4});

    EXPECT_EQ(plate.area, 0);
    expectClose(plate.totalCG, {0, 0, 0});
    EXPECT_NEAR(solid.volume, 0, 1e-12);
}

TEST(MassProperties, SeveralElementsAreGathered)
{
    BlockFixture f;
    f.model.properties.put({.id = 2, .matlID = 1, .pval = {2}});
    f.model.elements.put({.id = 1, .propID = 1, .type = 1, .node = {1, 2}});
    f.model.elements.put({.id = 2, .propID = 2, .type = 1, .node = {5, 6}});

    const MassProperties result = measureMassProperties(f.model, {1, 2});

    // Structural 10 at the bottom and 40 at the top, other mass 14 at the bottom.
    EXPECT_EQ(result.length, 4);
    EXPECT_EQ(result.structuralMass, 50);
    EXPECT_EQ(result.nonStructuralMass, 14);
    EXPECT_EQ(result.totalMass, 64);
    expectClose(result.structuralCG, {1, 0, 3.2});
    expectClose(result.nonStructuralCG, {1, 0, 0});
    expectClose(result.totalCG, {1, 0, 2.5});
    expectClose(result.inertia, {640, 0, 704, 160, 0, 64});
    expectClose(result.inertiaCG, {240, 0, 240, 0, 0, 0});
}

TEST(MassProperties, APlateIsAsThickAsItsCornersInTheMean)
{
    BlockFixture f;
    f.model.properties.put({.id = 1, .matlID = 1, .type = 17, .pval = {0.5, 1.5, 0, 2.5}});

    EXPECT_DOUBLE_EQ(f.measure(topologyQuad4, femap::elementPlate, {1, 2, 3, 4}).structuralMass,
                     6 * 10 * (0.5 + 1.5 + 0.5 + 2.5) / 4);
    EXPECT_DOUBLE_EQ(f.measure(topologyTri3, femap::elementPlate, {1, 2, 4}).structuralMass,
                     3 * 10 * (0.5 + 1.5 + 0.5) / 3);
    f.model.properties.find(1)->type = femap::elementPlateParabolic;
    EXPECT_DOUBLE_EQ(f.measure(topologyTri6, 18, {1, 2, 4, 0, 5, 6, 7}).structuralMass,
                     3 * 10 * (0.5 + 1.5 + 0.5) / 3);
}

TEST(MassProperties, OtherPlanarPropertiesHaveNoThicknessesAtCorners)
{
    BlockFixture f;
    f.model.properties.put({.id = 1, .matlID = 1, .type = 13, .pval = {0.5, 1.5}});

    EXPECT_DOUBLE_EQ(f.measure(topologyQuad4, femap::elementMembrane, {1, 2, 3, 4}).structuralMass,
                     6 * 10 * 0.5);
}

TEST(MassProperties, WithoutAMaterialThereIsNoStructuralMass)
{
    BlockFixture f;
    f.model.properties.find(1)->matlID = 0;

    const MassProperties result = f.measure(topologyQuad4, femap::elementPlate, {1, 2, 3, 4});

    EXPECT_DOUBLE_EQ(result.area, 6);
    EXPECT_EQ(result.structuralMass, 0);
    EXPECT_DOUBLE_EQ(result.nonStructuralMass, 42);
    expectClose(result.structuralCG, {0, 0, 0});
    expectClose(result.totalCG, {1, 1.5, 0});
}

TEST(MassProperties, WithoutAPropertyJustTheExtentCounts)
{
    BlockFixture f;
    f.model.elements.put({.id = 6, .propID = 99, .type = 1, .node = {1, 2}});

    const MassProperties result = measureMassProperties(f.model, {6});

    EXPECT_EQ(result.length, 2);
    EXPECT_EQ(result.totalMass, 0);
}

TEST(MassProperties, AnElementOrNodeThatIsMissingCountsNothing)
{
    BlockFixture f;

    EXPECT_EQ(measureMassProperties(f.model, {77}).totalMass, 0);
    EXPECT_EQ(f.measure(topologyQuad4, femap::elementPlate, {1, 2, 3, 99}).area, 0);
    EXPECT_EQ(f.measure(topologyQuad4, femap::elementPlate, {1, 2, 3}).area, 0);
}

TEST(MassProperties, RigidElementsAndSpringsCountNothing)
{
    BlockFixture f;

    EXPECT_EQ(f.measure(0, 6, {1, 2}).length, 0);
    EXPECT_EQ(f.measure(13, femap::elementRigid, {1, 2}).length, 0);
}

using MassPropertiesElsewhere = fake::OnModelsBesideTheProject<>;

TEST_F(MassPropertiesElsewhere, OfARealModelAgreeWithItsKnownArea)
{
    Model model;
    readNeutralFile(fake::contentOfModel("callback.NEU"), "callback.NEU", sys::windows1252(),
                    model);

    const MassProperties result = measureMassProperties(model, model.elements.ids());

    EXPECT_NEAR(result.area, 100, 1e-8);
    EXPECT_NEAR(result.totalMass, 0.006347025, 5e-12);
}
