#include "StudyFixture.h"
#include "fake/NeutralText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace study
{
namespace
{

using neutral::block;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::string element(int id, int property, int type, int topology, const std::string& nodes)
{
    return std::to_string(id) + ",124," + std::to_string(property) + "," + std::to_string(type) +
           "," + std::to_string(topology) + ",1,0,0,0,0,0,0,0,0,\n" + nodes +
           ",0,0,0,0,0,0,\n0,0,0,0,0,0,0,0,0,0,\n0.,0.,0.,0,0,0,0,0,0,\n0.,0.,0.,\n0.,0.,0.,\n"
           "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,\n";
}

std::string property(int id, int type, int layup, const std::string& values)
{
    return std::to_string(id) + ",110,0," + std::to_string(type) + ",1,0," + std::to_string(layup) +
           ",\nProperty\n0,0,0,0,\n0,\n" + values + "\n0,\n0,\n";
}

// A laminate of 2 x 3 with two plies of the density 8, each 0.25 thick, and 0.5 of other mass on a
// unit of area; a mass of 5 at its corner (2, 3, 0); a tube and a spring between two other corners.
std::string wing()
{
    const std::string node = ",0,0,1,46,0,0,0,0,0,0,";
    std::string reals;
    for (int i = 0; i < 49; ++i)
        reals += "0.,";
    return neutral::header("11.") + block(601, neutral::material(1, "Glass", reals + "8.,")) +
           block(402, property(1, 21, 7, "2,\n0.,0.5,") +
                          property(2, 27, 0, "13,\n0.,0.,0.,0.,0.,\n0.,0.,5.,0.,0.,\n0.,5.,5.,") +
                          property(3, 3, 0, "1,\n0.,") + property(4, 6, 0, "1,\n0.,")) +
           block(927, "7,\nSkin\n2,\n1,0,0,0.25,0.,\n1,0,0,0.25,90.,\n0,\n") +
           block(403, "1" + node + "0.,0.,0.,0,0,\n2" + node + "2.,0.,0.,0,0,\n3" + node +
                          "2.,3.,0.,0,0,\n4" + node + "0.,3.,0.,0,0,\n") +
           block(404, element(1, 1, 21, 4, "1,2,3,4") + element(2, 2, 27, 9, "3,0,0,0") +
                          element(3, 3, 3, 0, "1,2,0,0") + element(4, 4, 6, 0, "1,4,0,0")) +
           block(450, "1,\nResult\n0,1,\n0.,\n1,\nNote\n0,\n") +
           block(451, neutral::vectorHead(1, 1, "Total Translation") + "1,0.5,\n-1,0.,\n");
}

}  // namespace

// The laminate weighs 6 x 2 x 0.25 x 8 = 24 and carries 3 of other mass, the mass element 5. The
// centre lies at (27 x 1 + 5 x 2) / 32 and (27 x 1.5 + 5 x 3) / 32.
TEST(StudyMass, OfLaminateAndMassElementIsMeasuredAndWhatIsMissingIsToldOnce)
{
    StudyFixture f;
    f.write("beam.neu", wing());

    ASSERT_EQ(f.run("set OutputSelection Mass Properties\n"
                    "choose MassStructural | MassNonStructural | MassTotal | TotalCG\n"
                    "click OutputsButton\n"
                    "click RefreshOutputs\n"
                    "print OutputsList\n"),
              0)
        << f.error();

    EXPECT_THAT(
        f.outputLines(),
        ElementsAre("FEMAP: Elements that the model host cannot weigh are missing in the masses: 1 "
                    "of 4 (tube 1)",
                    "FEMAP: Mass elements count as structural mass here; FEMAP may count them as "
                    "non-structural: 1 of 4 (mass 1)",
                    StartsWith("StructuralMass\t29\t"), StartsWith("NonStructuralMass\t3\t"),
                    StartsWith("TotalMass\t32\t"), StartsWith("TotalCGx\t1.15625\t"),
                    StartsWith("TotalCGy\t1.734375\t"), StartsWith("TotalCGz\t0\t")));
}

TEST(StudyMass, ResultsWithoutTheirEndAreReadAndTold)
{
    StudyFixture f;
    const std::string whole = wing();
    f.write("beam.neu", whole.substr(0, whole.rfind("   -1")));

    ASSERT_EQ(f.run("set OutputSelection Nodes\npick 1\nchoose 1\nclick OutputsButton\n"
                    "print OutputsList\n"),
              0)
        << f.error();

    EXPECT_THAT(f.outputLines(),
                ElementsAre(AllOf(StartsWith("FEMAP: The results may be cut short"),
                                  HasSubstr("compare them with the solver's")),
                            StartsWith("TotalTrans1AtNode1\t0.5\t")));
}

}  // namespace study
