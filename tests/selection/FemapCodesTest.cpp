// What FEMAP answers by a code alone, where it would shorten a selection or a measurement.
#include "femap/embedded/HostObjects.h"
#include "selection/SelectionFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace selection
{
namespace
{

using femap::ReturnCode;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class CodesOfFemap : public testing::Test
{
protected:
    SelectionFixture f;
    fake::CallWatch& femap = f.watchFemap();

    void SetUp() override
    {
        f.addNodes({1, 2, 3});
        f.addVector(1, "Total Translation", {1, 2, 3}, {0.5, 1.5, 2.5});
        f.dialog.UpdateCollection();
    }
    void selectMass()
    {
        f.list.chooseAll();
        f.selectOutput("Mass Properties");
    }
    const std::string& status() const { return f.form.StatusLine.Caption; }
};

TEST_F(CodesOfFemap, ThatItPutsNoElementsIntoASetEndsTheMeasurement)
{
    femap.answers["AddAll"] = ReturnCode::Fail;
    femap.before("AddAll", [&] { f.femap.sets.rbegin()->second->add({1}); });

    EXPECT_THAT([this] { selectMass(); },
                testing::ThrowsMessage<sys::RuntimeError>(
                    "FEMAP could not put all elements into a set to measure them"));

    EXPECT_EQ(femap.count("feMeasureMeshMassProp"), 0);
}

TEST_F(CodesOfFemap, ThatAMassIsNegativeGivesItsRowsAndAHint)
{
    femap::MassProperties measured;
    measured.totalMass = -2.5;
    measured.isNegative = true;
    femap.answers["feMeasureMeshMassProp"] = measured;

    selectMass();

    EXPECT_GT(f.form.OutputsList.Rows(), 10);
    EXPECT_THAT(status(), HasSubstr("FEMAP measured a negative mass or volume: the corners of a "
                                    "solid element are numbered the wrong way."));
}

TEST_F(CodesOfFemap, ThatItMayNotHaveListedAllVectorsIsToldWithTheRows)
{
    f.pick({2});
    f.list.choose({"1 - Total Translation"});
    f.selectOutput("Nodes");
    EXPECT_THAT(status(), Not(HasSubstr("listed")));

    femap.answers["AddAll"] = ReturnCode::Fail;
    femap.before("AddAll", [&] { f.femap.sets.rbegin()->second->add({1}); });
    f.pick({2});
    f.list.choose({"1 - Total Translation"});
    f.selectOutput("Nodes");

    EXPECT_THAT(status(), HasSubstr("FEMAP may not have listed all output vectors"));
}

TEST_F(CodesOfFemap, ThatItCopiesNoSetLeavesTheRowsAsTheyAre)
{
    f.addElements({{10, femap::elementPlate}, {11, femap::elementPlate}});
    f.addVector(7020, "Plate Stress", {10, 11}, {1, 2});
    femap.answers["Copy"] = ReturnCode::Fail;
    f.pick({10, 11});
    f.list.chooseAll();

    EXPECT_THAT(
        [this] { f.selectOutput("Elements"); },
        testing::ThrowsMessage<sys::RuntimeError>("FEMAP could not copy the selected elements"));

    EXPECT_THAT(f.rows(f.form.OutputsList), ElementsAre("\t\t\t\t"));
}

}  // namespace
}  // namespace selection
