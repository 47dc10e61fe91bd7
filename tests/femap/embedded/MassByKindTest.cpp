#include "fake/RealModels.h"
#include "femap/embedded/Host.h"
#include "femap/neutral/NeutralFile.h"
#include "system/CodePage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using femap::MassProperties;
using femap::embedded::measureMassProperties;
using femap::neutral::Element;
using femap::neutral::Model;
using femap::neutral::Property;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

constexpr int quad4 = 4;
constexpr int point = 9;
constexpr double precision = 1e-12;

// Nodes 1 to 4 at the corners of a rectangle of 2 x 3 in the plane z = 0, node 5 at (1, 2, 3).
// The density of material 1 is 10, that of material 2 is 4. Layup 1 has a ply of each: 0.1 and
// above it 0.2 thick. Property 1 is a laminate of it with 0.5 of other mass on each unit of area.
// Property 2 is a mass of 5 with the offset (0.5, 0, -1) and the inertia 1 to 6.
struct KindFixture
{
    KindFixture()
    {
        model.nodes.put({.id = 1});
        model.nodes.put({.id = 2, .x = 2});
        model.nodes.put({.id = 3, .x = 2, .y = 3});
        model.nodes.put({.id = 4, .y = 3});
        model.nodes.put({.id = 5, .x = 1, .y = 2, .z = 3});
        model.materials.put({.id = 1}).mval[49] = 10;
        model.materials.put({.id = 2}).mval[49] = 4;
        model.layups.put({.id = 1, .plies = {{1, 0.1}, {2, 0.2}}});
        model.properties.put({.id = 1, .type = 21, .layupID = 1, .pval = {0, 0.5}});
        model.properties.put(
            {.id = 2, .type = 27, .pval = {0, 1, 2, 3, 4, 5, 6, 5, 0.5, 0, -1, 5, 5}});
        model.elements.put(
            {.id = 1, .propID = 1, .type = 21, .topology = quad4, .node = {1, 2, 3, 4}});
        model.elements.put({.id = 2, .propID = 2, .type = 27, .topology = point, .node = {5}});
    }

    Property& laminate() { return *model.properties.find(1); }
    Property& lump() { return *model.properties.find(2); }
    Element& plate() { return *model.elements.find(1); }

    MassProperties measure(const std::vector<int>& ids)
    {
        return measureMassProperties(model, ids, &remarks);
    }

    Model model;
    std::vector<std::string> remarks;
};

auto isNear(double value)
{
    return DoubleNear(value, precision);
}

}  // namespace

// A unit of area weighs 10 x 0.1 + 4 x 0.2 = 1.8. The bottom lies 0.15 below the nodes, the plies'
// middles 0.05 and 0.2 above it: the centre lies at (1 x 0.05 + 0.8 x 0.2) / 1.8 - 0.15 = -1 / 30.
TEST(MassByKind, ALaminateWeighsWhatItsPliesDo)
{
    KindFixture f;

    const MassProperties result = f.measure({1});

    EXPECT_DOUBLE_EQ(result.area, 6);
    EXPECT_DOUBLE_EQ(result.structuralMass, 6 * 1.8);
    EXPECT_DOUBLE_EQ(result.nonStructuralMass, 6 * 0.5);
    EXPECT_DOUBLE_EQ(result.totalMass, 13.8);
    EXPECT_THAT(result.totalCG, ElementsAre(isNear(1), isNear(1.5), isNear(-1.0 / 30)));
    // 13.8 x (1.5^2 + 1/900) = 31.0653333, 13.8 x 1 x 1.5 = 20.7, 13.8 x (1 + 1/900) = 13.8153333,
    // 13.8 x 1 x -1/30 = -0.46, 13.8 x 1.5 x -1/30 = -0.69, 13.8 x 3.25 = 44.85
    EXPECT_THAT(result.inertia, ElementsAre(isNear(13.8 * 2.25 + 13.8 / 900), isNear(20.7),
                                            isNear(13.8 + 13.8 / 900), isNear(-0.46), isNear(-0.69),
                                            isNear(44.85)));
    EXPECT_THAT(f.remarks, IsEmpty());
}

TEST(MassByKind, TheOffsetOfAPlateMovesItsMassAlongItsNormal)
{
    KindFixture f;
    f.plate().offset[0] = 0.5;

    EXPECT_THAT(f.measure({1}).totalCG,
                ElementsAre(isNear(1), isNear(1.5), isNear(0.5 - 1.0 / 30)));

    f.plate().node = {4, 3, 2, 1};  // seen from below
    EXPECT_THAT(f.measure({1}).totalCG,
                ElementsAre(isNear(1), isNear(1.5), isNear(1.0 / 30 - 0.5)));

    f.laminate() = {.id = 1, .matlID = 1, .type = 17, .pval = {0.1}};
    f.plate().type = 17;
    EXPECT_THAT(f.measure({1}).totalCG, ElementsAre(isNear(1), isNear(1.5), isNear(-0.5)));
}

TEST(MassByKind, ALaminateWithABottomOfItsOwnIsRemarkedOn)
{
    KindFixture f;
    f.laminate().pval[0] = -0.4;

    // 0.25 further down than with the bottom at -0.15
    EXPECT_THAT(f.measure({1}).totalCG[2], isNear(-1.0 / 30 - 0.25));
    EXPECT_THAT(f.remarks, ElementsAre("Value 0 of laminates is taken as their bottom surface, "
                                       "which no page confirms; compare the centre of gravity: "
                                       "1 of 1 (laminate plate 1)"));
}

TEST(MassByKind, ALaminateWithoutAllItsPliesIsRemarkedOn)
{
    const std::string remark =
        "Laminates without a layup or a material of its plies are missing in the structural mass: "
        "1 of 1 (laminate plate 1)";
    KindFixture f;

    for (const auto& layup :
         {femap::neutral::Layup{1, {{1, 0.1}, {3, 0.2}}}, femap::neutral::Layup{1, {}}}) {
        f.model.layups.put(layup);
        const MassProperties result = f.measure({1});
        EXPECT_EQ(result.structuralMass, 0);
        EXPECT_DOUBLE_EQ(result.nonStructuralMass, 3);
        EXPECT_THAT(f.remarks, ElementsAre(remark));
    }
    f.laminate().layupID = 9;
    EXPECT_EQ(f.measure({1}).structuralMass, 0);
    EXPECT_THAT(f.remarks, ElementsAre(remark));
}

// The centre is (1, 2, 3) + (0.5, 0, -1) = (1.5, 2, 2); about the origin the inertia is its own and
// 5 times 4 + 4, 1.5 x 2, 1.5^2 + 4, 2 x 1.5, 2 x 2 and 1.5^2 + 4.
TEST(MassByKind, AMassElementHasMassOffsetAndInertiaOfItsProperty)
{
    KindFixture f;

    const MassProperties result = f.measure({2});

    EXPECT_EQ(result.structuralMass, 5);
    EXPECT_EQ(result.nonStructuralMass, 0);
    EXPECT_EQ(result.totalMass, 5);
    EXPECT_THAT(result.totalCG, ElementsAre(1.5, 2, 2));
    EXPECT_THAT(result.inertiaCG, ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_THAT(result.inertia, ElementsAre(41, 17, 34.25, 19, 25, 37.25));
    EXPECT_THAT(f.remarks,
                ElementsAre("Mass elements count as structural mass here; FEMAP may count them as "
                            "non-structural: 1 of 1 (mass 1)",
                            "Values 8 to 10 of mass elements are taken as offset, which no page "
                            "confirms; compare the centre of gravity: 1 of 1 (mass 1)"));
}

// 13.8 at (1, 1.5, -1/30) and 5 at (1.5, 2, 2): (21.3, 30.7, 9.54) / 18.8
TEST(MassByKind, PlateAndMassTogetherBalanceBetweenThem)
{
    KindFixture f;

    const MassProperties result = f.measure({1, 2});

    EXPECT_DOUBLE_EQ(result.totalMass, 18.8);
    EXPECT_THAT(result.totalCG,
                ElementsAre(isNear(21.3 / 18.8), isNear(30.7 / 18.8), isNear(9.54 / 18.8)));
}

TEST(MassByKind, AMassThatDiffersByDirectionIsRemarkedOn)
{
    KindFixture f;
    f.lump().pval = {0, 0, 0, 0, 0, 0, 0, 5};

    EXPECT_EQ(f.measure({2}).totalMass, 5);
    EXPECT_THAT(f.remarks,
                testing::Contains("Mass elements with other values in y and z than in x count with "
                                  "that in x: 1 of 1 (mass 1)"));
}

TEST(MassByKind, AMassInACoordinateSystemOfItsOwnIsMeasuredAtItsNodeAndRemarkedOn)
{
    const std::string remark =
        "Mass elements with a coordinate system of their own count without offset and inertia: "
        "1 of 1 (mass 1)";
    KindFixture f;
    f.lump().refCS = 3;

    const MassProperties result = f.measure({2});

    EXPECT_EQ(result.totalMass, 5);
    EXPECT_THAT(result.totalCG, ElementsAre(1, 2, 3));
    EXPECT_THAT(result.inertiaCG, testing::Each(0));
    EXPECT_THAT(f.remarks, testing::Contains(remark));

    f.lump().pval = {0, 0, 0, 0, 0, 0, 0, 5, 0, 0, 0, 5, 5};  // neither offset nor inertia
    f.measure({2});
    EXPECT_THAT(f.remarks, testing::Not(testing::Contains(remark)));
}

TEST(MassByKind, AMassWithoutNodeOrPropertyIsRemarkedOn)
{
    KindFixture f;
    f.model.elements.find(2)->propID = 9;

    f.measure({2});
    EXPECT_THAT(f.remarks, ElementsAre("Elements without a property are missing in the masses: "
                                       "1 of 1 (mass 1)"));

    f.model.elements.find(2)->node = {77};
    f.measure({2});
    EXPECT_THAT(f.remarks, ElementsAre("Elements without their nodes or a known shape are missing "
                                       "in the masses: 1 of 1 (mass 1)"));
}

// The section of end B stands at 20, its other mass at 27.
TEST(MassByKind, ABeamWithTwoSectionsWeighsTheirMean)
{
    KindFixture f;
    std::vector<double> values(30);
    values[0] = 0.5;
    values[7] = 1;
    values[20] = 0.25;
    values[27] = 2;
    f.model.properties.put({.id = 3, .matlID = 1, .type = 5, .pval = values});
    f.model.elements.put({.id = 3, .propID = 3, .type = 5, .node = {1, 2}});

    const MassProperties beam = f.measure({3});
    EXPECT_EQ(beam.structuralMass, 2 * 10 * (0.5 + 0.25) / 2);
    EXPECT_EQ(beam.nonStructuralMass, 2 * (1.0 + 2) / 2);

    f.model.elements.find(3)->type = 2;
    f.model.properties.find(3)->type = 2;  // a bar has one section
    EXPECT_EQ(f.measure({3}).structuralMass, 2 * 10 * 0.5);
}

TEST(MassByKind, KindsThatCannotBeWeighedAreNamedWithTheirNumber)
{
    KindFixture f;
    const auto put = [&](int id, int type, int topology, const std::array<int, 20>& nodes) {
        f.model.elements.put(
            {.id = id, .propID = 1, .type = type, .topology = topology, .node = nodes});
    };
    put(11, 3, 0, {1, 2});
    put(12, 3, 0, {2, 3});
    put(13, 39, 8, {1, 2, 3, 4, 1, 2, 3, 4});
    put(14, 38, 17, {1, 2});
    put(15, 99, quad4, {1, 2, 3, 4});
    put(16, 23, quad4, {1, 2, 3, 4});
    put(17, 24, quad4, {1, 2, 3, 4});

    const MassProperties result = f.measure({1, 11, 12, 13, 14, 15, 16, 17});

    EXPECT_DOUBLE_EQ(result.structuralMass, 10.8);
    EXPECT_EQ(result.length, 5);
    EXPECT_THAT(f.remarks, ElementsAre("Elements that the model host cannot weigh are missing in "
                                       "the masses: 7 of 8 (axisymmetric 2, laminate solid 1, "
                                       "tube 2, type 99 1, weld 1)"));
}

TEST(MassByKind, KindsWithoutAMassAreNotRemarkedOn)
{
    KindFixture f;
    std::vector<int> ids;
    for (const int type : {6, 7, 9, 10, 29, 32, 33, 34, 41, 42}) {
        ids.push_back(100 + type);
        f.model.elements.put({.id = 100 + type, .propID = 1, .type = type, .node = {1, 2}});
    }

    const MassProperties result = f.measure(ids);

    EXPECT_EQ(result.totalMass, 0);
    EXPECT_EQ(result.length, 0);
    EXPECT_THAT(f.remarks, IsEmpty());
}

TEST(MassByKind, WhatIsMissingInTheModelIsRemarkedOn)
{
    KindFixture f;
    f.model.properties.put({.id = 3, .matlID = 9, .type = 17, .pval = {0.5}});
    f.model.properties.put({.id = 4, .matlID = 1, .type = 17, .pval = {0}});
    for (int id = 11; id <= 14; ++id)
        f.model.elements.put(
            {.id = id, .propID = 1, .type = 17, .topology = quad4, .node = {1, 2, 3, 4}});
    f.model.elements.find(11)->propID = 99;
    f.model.elements.find(12)->propID = 3;
    f.model.elements.find(13)->propID = 4;
    f.model.elements.find(14)->node = {1, 2, 3, 99};

    f.measure({11, 12, 13, 14});

    EXPECT_THAT(
        f.remarks,
        ElementsAre(
            "Elements without their nodes or a known shape are missing in the masses: 1 of 4 "
            "(plate 1)",
            "Elements without a property are missing in the masses: 1 of 4 (plate 1)",
            "Elements without a material are missing in the structural mass: 1 of 4 (plate 1)",
            "Elements whose density, section or thickness is 0 have no structural mass: 1 of 4 "
            "(plate 1)"));
}

using MassByKindElsewhere = fake::OnModelsBesideTheProject<>;

// Its 81 squares cover 10 x 10 and carry eight plies of 0.005. The file has no density, so there is
// none to weigh; with the density 2, a unit of area weighs 8 x 0.005 x 2 = 0.08.
TEST_F(MassByKindElsewhere, TheLaminateModelWeighsWhatItsPliesDo)
{
    Model model;
    readNeutralFile(fake::contentOfModel("lam1.neu"), "lam1.neu", sys::windows1252(), model);
    std::vector<std::string> remarks;

    const MassProperties asItIs = measureMassProperties(model, model.elements.ids(), &remarks);
    EXPECT_EQ(asItIs.totalMass, 0);
    EXPECT_THAT(remarks, ElementsAre("Elements whose density, section or thickness is 0 have no "
                                     "structural mass: 81 of 81 (laminate plate 81)"));

    model.materials.find(1)->mval[49] = 2;
    const MassProperties result = measureMassProperties(model, model.elements.ids(), &remarks);
    EXPECT_NEAR(result.area, 100, 1e-8);
    EXPECT_NEAR(result.structuralMass, 8, 1e-9);
    EXPECT_NEAR(result.totalCG[0], 5, 1e-9);
    EXPECT_NEAR(result.totalCG[1], 5, 1e-9);
    EXPECT_NEAR(result.totalCG[2], 0, 1e-12);
    EXPECT_THAT(remarks, IsEmpty());
}
