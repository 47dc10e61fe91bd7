#include "fake/NeutralText.h"
#include "fake/RealModels.h"
#include "femap/embedded/LoadMatchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using namespace neutral;
using femap::EntityType;
using femap::neutral::Load;
using femap::neutral::LoadSet;
using femap::neutral::Model;
using femap::neutral::OutputVector;
using femap::neutral::TemperatureLoad;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::SizeIs;

namespace
{

Model open(const std::string& name)
{
    return read(fake::contentOfModel(name));
}

class NeutralFileModelsElsewhere : public fake::OnModelsBesideTheProject<>
{};

auto isLoad(int entityID, int type, int face, const std::array<double, 5>& values)
{
    return AllOf(Field(&Load::entityID, entityID), Field(&Load::type, type),
                 Field(&Load::faceNumber, face), Field(&Load::load, values),
                 Field(&Load::definitionID, 1));
}

void expectFixedTemperatures(const LoadSet& set)
{
    EXPECT_EQ(set.title, "fix_temp");
    EXPECT_THAT(set.nodalTemperatures, SizeIs(9));
    EXPECT_THAT(set.nodalTemperatures,
                Each(AllOf(Field(&TemperatureLoad::temp, 0.0), Field(&TemperatureLoad::phase, -1.0),
                           Field(&TemperatureLoad::definitionID, 1))));
    EXPECT_EQ(set.nodalTemperatures.front().entityID, 1001);
    EXPECT_EQ(set.nodalTemperatures.back().entityID, 5201);
    EXPECT_THAT(set.definitions, ElementsAre(isDefinition(1, "fix_temp", 15, 9)));
}

}  // namespace

TEST_F(NeutralFileModelsElsewhere, TheLaminateModelHasItsMeshAndMaterial)
{
    const Model model = open("lam1.neu");

    EXPECT_EQ(model.nodes.size(), 100U);
    EXPECT_EQ(model.elements.size(), 81U);
    EXPECT_TRUE(std::all_of(model.elements.begin(), model.elements.end(),
                            [](const auto& element) { return element.type == 21; }));
    EXPECT_EQ(model.nodes.find(10)->x, 10);
    EXPECT_EQ(model.elements.find(1)->node[2], 12);
    EXPECT_EQ(model.elements.find(1)->color, 139);
    EXPECT_EQ(model.properties.find(1)->title, "LAMINATE PLATE Property");
    EXPECT_THAT(model.properties.find(1)->pval, SizeIs(75));
    EXPECT_EQ(model.properties.find(1)->pval[2], 5000);
    EXPECT_EQ(model.materials.find(1)->title, "Glass/EP, Jones p. 70");
    EXPECT_THAT(model.materials.find(1)->mval, SizeIs(200));
    EXPECT_EQ(model.materials.find(1)->type, 1);
    EXPECT_TRUE(model.functions.empty());
}

TEST_F(NeutralFileModelsElsewhere, TheLaminateModelHasItsResults)
{
    const Model model = open("lam1.neu");

    ASSERT_THAT(model.outputSets, SizeIs(1));
    const auto& set = *model.outputSets.find(1);
    EXPECT_EQ(set.title, "NX NASTRAN Case 1");
    EXPECT_EQ(set.vectors.size(), 305U);
    const OutputVector& translation = *set.vectors.find(1);
    EXPECT_EQ(translation.title, "Total Translation");
    EXPECT_EQ(translation.location, EntityType::Node);
    EXPECT_EQ(translation.maxval, 175.33037);
    EXPECT_EQ(*translation.valueAt(100), 175.33037);
    EXPECT_EQ(translation.minval, 0);
    EXPECT_EQ(*translation.valueAt(1), 0);
    const OutputVector& failure = *set.vectors.find(6060);
    EXPECT_EQ(failure.location, EntityType::Element);
    EXPECT_EQ(failure.maxval, 530.42603);
    EXPECT_EQ(*failure.valueAt(18), 530.42603);
    EXPECT_EQ(failure.minval, 1.9527702);
    EXPECT_EQ(*failure.valueAt(73), 1.9527702);
    EXPECT_THAT(set.vectors.find(171)->ids, ElementsAre(100));
    EXPECT_THAT(set.vectors.find(171)->values, ElementsAre(100));
}

TEST_F(NeutralFileModelsElsewhere, TheLoadOfTheLaminateModelGetsADefinitionItLacks)
{
    const Model model = open("lam1.neu");

    const LoadSet& set = *model.loadSets.find(1);
    EXPECT_THAT(set.meshLoads, ElementsAre(isLoad(100, 1, 0, {0, 0, 100, 0, 0})));
    EXPECT_THAT(set.definitions, ElementsAre(isDefinition(1, "", 13, 1)));
}

TEST_F(NeutralFileModelsElsewhere, ThePlateModelHasItsMeshAndMaterial)
{
    const Model model = open("callback.NEU");

    EXPECT_EQ(model.nodes.size(), 100U);
    EXPECT_EQ(model.elements.size(), 81U);
    EXPECT_TRUE(std::all_of(model.elements.begin(), model.elements.end(), [](const auto& element) {
        return element.type == 17 && element.topology == 4;
    }));
    EXPECT_EQ(model.properties.find(1)->pval[0], 0.25);
    EXPECT_EQ(model.materials.find(1)->mval[0], 9900000);
    EXPECT_EQ(model.materials.find(1)->mval[49], 0.000253881);
    EXPECT_TRUE(model.outputSets.empty());
}

TEST_F(NeutralFileModelsElsewhere, ThePlateModelHasItsLoadDefinition)
{
    const Model model = open("callback.NEU");

    const LoadSet& set = *model.loadSets.find(1);
    EXPECT_THAT(set.definitions, ElementsAre(isDefinition(1, "Force on Node", 13, 1)));
    EXPECT_THAT(set.meshLoads, SizeIs(10));
    for (int i = 0; i < 10; ++i)
        EXPECT_THAT(set.meshLoads.at(static_cast<std::size_t>(i)),
                    isLoad(10 * (i + 1), 1, 0, {0, 0, 200, 0, 0}));
}

TEST(NeutralFileModels, ThePressureModelHasItsLoads)
{
    const Model model = open("C731.NEU");

    EXPECT_EQ(model.nodes.size(), 105U);
    EXPECT_EQ(model.elements.size(), 40U);
    const LoadSet& set = *model.loadSets.find(1);
    EXPECT_THAT(set.meshLoads, SizeIs(40));
    EXPECT_THAT(set.meshLoads.front(), isLoad(1, 42, 1, {1, 0, 0, 0, 0}));
    EXPECT_THAT(set.meshLoads.back(), isLoad(120, 42, 1, {1, 0, 0, 0, 0}));
    EXPECT_THAT(set.definitions, ElementsAre(isDefinition(1, "NASTRAN 1", 13, 42)));
}

TEST(NeutralFileModels, TheRadiationModelHasItsLoads)
{
    const Model model = open("ME361.NEU");

    EXPECT_EQ(model.nodes.size(), 525U);
    EXPECT_EQ(model.elements.size(), 40U);
    EXPECT_EQ(model.properties.find(1)->title, "EALL");
    EXPECT_THAT(model.properties.find(1)->pval, SizeIs(190));
    expectFixedTemperatures(*model.loadSets.find(1));
    const LoadSet& radiation = *model.loadSets.find(2);
    EXPECT_THAT(radiation.meshLoads, SizeIs(4));
    EXPECT_THAT(radiation.meshLoads.front(), isLoad(1019, 46, 4, {0.0000000111642, 0, 600, 0, 0}));
    EXPECT_THAT(radiation.definitions, ElementsAre(isDefinition(1, "Radiate", 13, 46)));
}

TEST(NeutralFileModels, TheHeatFluxModelHasItsLoads)
{
    const Model model = open("MB361_CFlux.NEU");

    EXPECT_EQ(model.nodes.size(), 525U);
    EXPECT_EQ(model.elements.size(), 40U);
    expectFixedTemperatures(*model.loadSets.find(1));
    const LoadSet& flux = *model.loadSets.find(2);
    EXPECT_THAT(flux.meshLoads, SizeIs(9));
    EXPECT_THAT(flux.meshLoads.front(), isLoad(1021, 10, 0, {156.25, 0, 0, 0, 0}));
    EXPECT_THAT(flux.meshLoads.back(), isLoad(3121, 10, 0, {625, 0, 0, 0, 0}));
    EXPECT_THAT(flux.definitions, ElementsAre(isDefinition(1, "CFlux1", 13, 10)));
}

TEST_F(NeutralFileModelsElsewhere, AllOfThemGoIntoOneModel)
{
    Model model = open("callback.NEU");
    for (const char* const name : {"ME361.NEU", "lam1.neu"})
        readInto(model, fake::contentOfModel(name));

    EXPECT_EQ(model.nodes.size(), 625U);
    EXPECT_EQ(model.loadSets.size(), 2U);
    EXPECT_EQ(model.outputSets.find(1)->vectors.size(), 305U);
}
