#include "selection/MassQuantities.h"
#include "selection/OutputList.h"
#include "selection/SelectionFixture.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace selection
{
namespace
{

using testing::Contains;
using testing::ElementsAre;

const femap::MassProperties knownMass = {1.5,
                                         2.5,
                                         3.5,
                                         4.5,
                                         5.5,
                                         6.5,
                                         {7.1, 7.2, 7.3},
                                         {8.1, 8.2, 8.3},
                                         {9.1, 9.2, 9.3},
                                         {10.1, 10.2, 10.3, 10.4, 10.5, 10.6},
                                         {11.1, 11.2, 11.3, 11.4, 11.5, 11.6}};

struct MassCase
{
    const char* entry;
    Texts rows;
    Texts log;
};

class MassPropertyRows : public testing::Test
{
protected:
    SelectionFixture f;
};

class MassRows : public MassPropertyRows, public testing::WithParamInterface<MassCase>
{};

TEST_P(MassRows, HoldTheMeasuredValues)
{
    fake::CallWatch& femap = f.watchFemap();
    femap.answers["feMeasureMeshMassProp"] = knownMass;

    const Texts log =
        f.logOf([&] { UpdateOutputList(f.context, "MeshMass", nullptr, {GetParam().entry}); });

    Texts rows;
    for (const std::string& row : GetParam().rows)
        rows.push_back(row + "\tMassProperties");
    EXPECT_EQ(f.rows(f.form.OutputsList), rows);
    Texts expected = {"DEBUG: No Error found Before updating output list",
                      "DEBUG: Acquired Femap lock", "DEBUG: Found MeshMass entity type",
                      "DEBUG: Called elemSet.AddAll(8)",
                      "DEBUG: Called feMeasureMeshMassProp to compute total mass values"};
    for (const std::string& line : GetParam().log)
        expected.push_back("DEBUG: Added variable to Output list Variable Name=" + line);
    expected.push_back("DEBUG: Released FEMAP lock");
    expected.push_back("DEBUG: After updating output list");
    EXPECT_EQ(log, expected);
    EXPECT_THAT(femap.calls, Contains("feMeasureMeshMassProp 1 0 0 0"));
}

const MassCase massCases[] = {
    {"0", {"TotalLength\t1.5\tLength\t"}, {"TotalLength  value=1.5"}},
    {"1", {"TotalArea\t2.5\tArea\t"}, {"TotalArea  value=2.5"}},
    {"2", {"TotalVolume\t3.5\tVol\t"}, {"TotalVolume  value=3.5"}},
    {"3", {"StructuralMass\t4.5\tMassStructural\t"}, {"StructuralMass  value=4.5"}},
    {"4", {"NonStructuralMass\t5.5\tMassNonStructural\t"}, {"NonStructuralMass  value=5.5"}},
    {"5", {"TotalMass\t6.5\tMassTotal\t"}, {"TotalMass  value=6.5"}},
    {"6",
     {"StructuralCGx\t7.1\tStructuralCG\t0", "StructuralCGy\t7.2\tStructuralCG\t1",
      "StructuralCGz\t7.3\tStructuralCG\t2"},
     {"StructuralCG  value: x=7.1 y=7.2 z=7.3"}},
    {"7",
     {"NonStructuralCGx\t8.1\tNonStructuralCG\t0", "NonStructuralCGy\t8.2\tNonStructuralCG\t1",
      "NonStructuralCGz\t8.3\tNonStructuralCG\t2"},
     {"NonStructuralCG  value: x=8.1 y=8.2 z=8.3"}},
    {"8",
     {"TotalCGx\t9.1\tTotalCG\t0", "TotalCGy\t9.2\tTotalCG\t1", "TotalCGz\t9.3\tTotalCG\t2"},
     {"TotalCG  value: x=9.1 y=9.2 z=9.3"}},
    {"9",
     {"Inertia1\t10.1\tInertia\t0", "Inertia2\t10.2\tInertia\t1", "Inertia3\t10.3\tInertia\t2",
      "Inertia4\t10.4\tInertia\t3", "Inertia5\t10.5\tInertia\t4", "Inertia6\t10.6\tInertia\t5"},
     {"Inertia1 value=10.1", "Inertia2 value=10.2", "Inertia3 value=10.3", "Inertia4 value=10.4",
      "Inertia5 value=10.5", "Inertia6 value=10.6"}},
    {"10",
     {"InertiaCG1\t11.1\tInertiaCG\t0", "InertiaCG2\t11.2\tInertiaCG\t1",
      "InertiaCG3\t11.3\tInertiaCG\t2", "InertiaCG4\t11.4\tInertiaCG\t3",
      "InertiaCG5\t11.5\tInertiaCG\t4", "InertiaCG6\t11.6\tInertiaCG\t5"},
     {"InertiaCG1 value=11.1", "InertiaCG2 value=11.2", "InertiaCG3 value=11.3",
      "InertiaCG4 value=11.4", "InertiaCG5 value=11.5", "InertiaCG6 value=11.6"}},
};

INSTANTIATE_TEST_SUITE_P(EveryQuantity, MassRows, testing::ValuesIn(massCases),
                         [](const auto& each) { return "Index" + std::string(each.param.entry); });

TEST_F(MassPropertyRows, AddsAQuantityAgainThatIsChosenAgain)
{
    UpdateOutputList(f.context, "MeshMass", nullptr, {"5", "0"});

    UpdateOutputList(f.context, "MeshMass", nullptr, {"5"});

    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("TotalMass", "TotalLength", "TotalMass"));
}

TEST_F(MassPropertyRows, IgnoresAQuantityBeyondTheList)
{
    UpdateOutputList(f.context, "MeshMass", nullptr, {"11", "-1"});

    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre(""));
}

TEST_F(MassPropertyRows, RaisesWhenFemapMeasuredTooFewComponents)
{
    femap::MassProperties measured;
    measured.inertia = {1, 2};
    f.watchFemap().answers["feMeasureMeshMassProp"] = measured;

    EXPECT_THROW(UpdateOutputList(f.context, "MeshMass", nullptr, {"9"}), sys::RuntimeError);
}

TEST(MassQuantities, AreFoundByTheirTag)
{
    for (const MassQuantity& quantity : massQuantities)
        EXPECT_EQ(findMassQuantity(quantity.tag), &quantity);
    EXPECT_EQ(findMassQuantity("Volume"), nullptr);
    EXPECT_EQ(findMassQuantity(""), nullptr);
}

TEST(MassQuantities, RaiseForAComponentThatIsNotThere)
{
    const MassQuantity& inertia = *findMassQuantity("Inertia");

    EXPECT_EQ(massValue(inertia, knownMass, 5), 10.6);
    EXPECT_THROW(massValue(inertia, knownMass, 6), sys::RuntimeError);
    EXPECT_THROW(massValue(inertia, knownMass, -1), sys::RuntimeError);
}

}  // namespace
}  // namespace selection
