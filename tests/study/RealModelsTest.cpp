#include "StudyFixture.h"
#include "fake/RealModels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <charconv>
#include <string>

namespace study
{

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

namespace
{

class RealModels : public testing::Test
{
protected:
    // Starts the form on a copy of the model and goes on with the script.
    int replay(const std::string& model, const std::string& script)
    {
        f.write(model, fake::contentOfModel(model));
        return f.runScript("start " + f.folder.path(model) + "$model.log$DEBUG\n" + script);
    }

    StudyFixture f;
};

using RealModelsElsewhere = fake::OnModelsBesideTheProject<RealModels>;

double valueIn(const std::string& row)
{
    double value = 0;
    std::from_chars(row.data() + row.find('\t') + 1, row.data() + row.size(), value);
    return value;
}

const std::string selectAllLoads =
    "set InputSelection LoadDefinition\npick all\nclick InputsButton\nprint InputsList\n";

}  // namespace

TEST_F(RealModelsElsewhere, OfALaminateGiveTheTotalTranslationOfANode)
{
    const int code = replay("lam1.neu",
                            "set OutputSelection Nodes\npick 100\nchoose 1\nclick OutputsButton\n"
                            "print OutputsList\n");

    EXPECT_EQ(code, 0) << f.error();
    EXPECT_THAT(f.outputLines(), ElementsAre("TotalTrans1AtNode100\t175.33037\t100\t1\tOutput"));
}

TEST_F(RealModelsElsewhere, OfALaminateGiveNoRowWhereAVectorHasNoValue)
{
    const int code = replay("lam1.neu",
                            "set OutputSelection Nodes\npick all\nchoose 171\n"
                            "click OutputsButton\nprint OutputsList\n");

    EXPECT_EQ(code, 0) << f.error();
    EXPECT_THAT(f.outputLines(), ElementsAre("TotalAppli171AtNode100\t100\t100\t171\tOutput"));
}

TEST_F(RealModelsElsewhere, OfALaminateRefreshARowOfAPlyThatTheControlFileKept)
{
    f.write("lam1Control.txt", "\r\n\r\nLamPly1Von1000033AtElem8\t\t8\t1000033\tOutput\r\n");

    const int code = replay("lam1.neu", "click RefreshOutputs\nprint OutputsList\n");

    EXPECT_EQ(code, 0) << f.error();
    EXPECT_THAT(f.outputLines(),
                ElementsAre("LamPly1Von1000033AtElem8\t392349.75\t8\t1000033\tOutput"));
}

TEST_F(RealModelsElsewhere, OfAPlateGiveItsAreaAndMass)
{
    f.write("callbackControl.txt",
            "\r\n\r\nTotalArea\t\tArea\t\tMassProperties\r\n"
            "TotalMass\t\tMassTotal\t\tMassProperties\r\n");

    const int code = replay("callback.NEU", "click RefreshOutputs\nprint OutputsList\n");

    EXPECT_EQ(code, 0) << f.error();
    const auto rows = f.outputLines();
    ASSERT_THAT(rows, SizeIs(2));
    EXPECT_NEAR(valueIn(rows[0]), 100, 1e-6);
    EXPECT_NEAR(valueIn(rows[1]), 0.006347025, 1e-10);
}

TEST_F(RealModels, WithRadiationLoadsGiveFourRowsForEachLoad)
{
    const int code = replay("ME361.NEU", "activate LoadSet 2\n" + selectAllLoads);

    EXPECT_EQ(code, 0) << f.error();
    for (const char* const name : {"Radiate_1_Emissivity\t", "Radiate_1_Absorptivity\t",
                                   "Radiate_1_Temperature\t", "Radiate_1_View Factor\t"}) {
        std::string cleaned = name;
        std::erase(cleaned, ' ');
        EXPECT_THAT(f.outputLines(), Contains(StartsWith(cleaned)));
    }
}

TEST_F(RealModels, WithNodalTemperaturesGiveRowsNamedTemperature)
{
    const int code = replay("ME361.NEU", selectAllLoads);

    EXPECT_EQ(code, 0) << f.error();
    EXPECT_THAT(f.outputLines(), AllOf(SizeIs(9), Each(HasSubstr("_Temperature\t 0\tLoadNTemp"))));
}

TEST_F(RealModels, WithPressureLoadsGiveARowForEachLoad)
{
    const int code = replay("C731.NEU", selectAllLoads);

    EXPECT_EQ(code, 0) << f.error();
    EXPECT_THAT(f.outputLines(), AllOf(SizeIs(40), Each(StartsWith("NASTRAN1_1_Pressure\t 1\t"))));
}

TEST_F(RealModels, WithHeatFluxesGiveFluxRows)
{
    const int code = replay("MB361_CFlux.NEU", "activate LoadSet 2\n" + selectAllLoads);

    EXPECT_EQ(code, 0) << f.error();
    EXPECT_THAT(f.outputLines(), Contains(StartsWith("CFlux1_1_Flux\t")));
}

}  // namespace study
