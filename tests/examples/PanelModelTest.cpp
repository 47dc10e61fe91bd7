#include "fake/Python.h"
#include "femap/embedded/Host.h"
#include "femap/neutral/NeutralFile.h"
#include "system/CodePage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

using femap::embedded::measureMassProperties;
using femap::neutral::Model;
using femap::neutral::OutputVector;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

namespace
{

const std::string examplesFolder = SOURCE_FOLDER "/examples/";

std::string committedPanel()
{
    return sys::DiskFiles().read(examplesFolder + "panel.neu");
}

Model panel()
{
    Model model;
    readNeutralFile(committedPanel(), "panel.neu", sys::windows1252(), model);
    return model;
}

const OutputVector& vector(const Model& model, int id)
{
    return *model.outputSets.find(1)->vectors.find(id);
}

template <class Table>
std::vector<std::string> titles(const Table& table)
{
    std::vector<std::string> result;
    for (const auto& row : table)
        result.push_back(row.title);
    return result;
}

TEST(PanelModel, IsWhatItsGeneratorWrites)
{
    if (!fake::hasPython())
        GTEST_SKIP() << "there is no Python 3 on this machine";

    EXPECT_TRUE(fake::writtenBy("examples/make_panel.py") == committedPanel())
        << "run examples/make_panel.py and commit the model with it";
}

TEST(PanelModel, HoldsEveryKindOfEntityThatAStudyCanUse)
{
    const Model model = panel();

    std::map<int, int> elementsByType;
    for (const femap::neutral::Element& element : model.elements)
        ++elementsByType[element.type];

    EXPECT_THAT(model.nodes, SizeIs(356));
    EXPECT_THAT(elementsByType,
                ElementsAre(Pair(femap::elementRod, 4), Pair(femap::elementBar, 24),
                            Pair(femap::elementBeam, 70), Pair(femap::elementPlate, 288),
                            Pair(femap::elementPlateParabolic, 4), Pair(femap::elementLaminate, 8),
                            Pair(femap::elementSolid, 8), Pair(femap::elementRigid, 1)));
    EXPECT_THAT(model.properties, SizeIs(8));
    EXPECT_THAT(model.materials, SizeIs(3));
    EXPECT_THAT(model.functions, SizeIs(2));
    EXPECT_THAT(model.loadSets, SizeIs(1));
    EXPECT_THAT(model.outputSets.find(1)->vectors, SizeIs(28));
    EXPECT_THAT(model.outputSets.find(2)->vectors, SizeIs(4));
}

TEST(PanelModel, HasTitlesWithBlanksDashesSlashesAndUmlauts)
{
    const Model model = panel();

    EXPECT_EQ("Träger Ø12 - Gurt/Steg", model.properties.find(4)->title);
    EXPECT_THAT(
        titles(model.materials),
        ElementsAre("AlMg3 - EN AW-5754/H22", "Stahl S355 - gewalzt/geölt", "GFK-Köper 0°/90°"));
    EXPECT_THAT(titles(model.functions),
                ElementsAre("Lasthistorie - Landung 1 g/2,5 g", "E-Modul über Temperatur"));
}

TEST(PanelModel, HasLoadsOnMeshAndGeometryAndTemperatures)
{
    const Model model = panel();

    const femap::neutral::LoadSet& loads = *model.loadSets.find(1);

    EXPECT_THAT(loads.meshLoads, SizeIs(8));
    EXPECT_THAT(loads.geometryLoads, SizeIs(2));
    EXPECT_THAT(loads.nodalTemperatures, SizeIs(2));
    EXPECT_THAT(loads.elementTemperatures, SizeIs(1));
    EXPECT_THAT(loads.definitions, SizeIs(11));
    EXPECT_EQ("Gerätelast Fz [Öse Ø12]", loads.definitions.front().title);
    EXPECT_THAT(loads.geometryLoads.back().load, ElementsAre(-1.5, 0, 0.25, 0, 0));
}

TEST(PanelModel, HasATotalTranslationAsLongAsItsComponents)
{
    const Model model = panel();

    const OutputVector& total = vector(model, 1);
    for (std::size_t i = 0; i < total.values.size(); ++i) {
        const double length = std::hypot(vector(model, 2).values[i], vector(model, 3).values[i],
                                         vector(model, 4).values[i]);
        EXPECT_NEAR(length, total.values[i], 1e-5) << "at node " << total.ids[i];
    }
}

TEST(PanelModel, BulgesMostInTheMiddleAndNotAtItsEdges)
{
    const Model model = panel();
    const int middle = 163;
    const int corner = 1;

    const OutputVector& upward = vector(model, 4);

    EXPECT_EQ(upward.maxval, upward.values[middle - 1]);
    EXPECT_EQ(0, upward.values[corner - 1]);
    EXPECT_THAT(vector(model, 54).ids, SizeIs(72));  // supports are along the edges only
}

TEST(PanelModel, WeighsAsMuchAsItsPartsDo)
{
    const Model model = panel();
    const double aluminium = 2.66e-9;
    const double steel = 7.85e-9;
    const double edgeArea = (2 * 24 + 2 * 10) * 50.0 * 50.0;
    const double skin = ((1200.0 * 600.0 - edgeArea) * 3 + edgeArea * 5) * aluminium;
    const double gussets = 4 * 100.0 * 60.0 * 4 * aluminium;
    const double stringers = 70 * 50.0 * 312 * aluminium;
    const double frames = 24 * 50.0 * 120 * aluminium;
    const double rods = 4 * std::sqrt(200.0 * 200 + 100 * 100 + 60 * 60) * 113.0973 * steel;
    const double block = 100.0 * 100.0 * 60.0 * steel;
    const double doubler = 8 * 50.0 * 50.0 * 4 * 0.25 * 1.85e-9;  // about (750, 300, 2)
    std::vector<std::string> remarks;

    const femap::MassProperties mass = measureMassProperties(model, model.elements.ids(), &remarks);

    EXPECT_NEAR(skin + gussets + stringers + frames + rods + block + doubler, mass.structuralMass,
                1e-9);
    EXPECT_NEAR(600 + 150 * doubler / mass.totalMass, mass.totalCG[0], 1e-6);
    EXPECT_NEAR(300, mass.totalCG[1], 1e-6);
    EXPECT_THAT(remarks, IsEmpty());
}

}  // namespace
