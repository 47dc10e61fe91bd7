#include "fake/NeutralText.h"
#include "fake/RealModels.h"
#include "femap/neutral/NeutralFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace neutral;
using femap::neutral::Layup;
using femap::neutral::Model;
using femap::neutral::Ply;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

namespace
{

constexpr const char* laminate = "5,110,0,21,1,0,7,\nSkin\n0,0,0,0,\n0,\n2,\n0.,0.,\n0,\n0,\n";

std::string layups(const std::string& records, const std::string& version = "11.")
{
    return header(version) + block(927, records);
}

auto isPly(int material, double thickness)
{
    return testing::AllOf(Field(&Ply::matlID, material), Field(&Ply::thickness, thickness));
}

std::vector<std::string> remarksOn(const std::string& text, Model& model)
{
    return femap::neutral::readNeutralFile(text, "wing.neu", sys::windows1252(), model);
}

}  // namespace

TEST(NeutralFileLayup, ALayupHasItsPliesFromBottomToTop)
{
    const Model model =
        read(layups("7,\nSkin\n3,\n1,0,0,0.25,45.,\n2,0,0,1.5,0.,\n1,0,0,0.25\n0,\n"
                    "3,\n<NULL>\n0,\n0,\n"));

    EXPECT_THAT(model.layups.ids(), ElementsAre(3, 7));
    EXPECT_THAT(model.layups.find(7)->plies,
                ElementsAre(isPly(1, 0.25), isPly(2, 1.5), isPly(1, 0.25)));
    EXPECT_THAT(model.layups.find(3)->plies, IsEmpty());
}

TEST(NeutralFileLayup, ALaminateNamesItsLayup)
{
    const Model model = read(header("11.") + block(402, laminate));

    EXPECT_EQ(model.properties.find(5)->layupID, 7);
}

TEST(NeutralFileLayup, ALayupThatDoesNotFitIsRefusedWithItsLine)
{
    const auto refusal = [](int line, const std::string& problem) {
        return error(line, "block 927 (layups): " + problem);
    };

    EXPECT_EQ(errorOf(layups("0,\nSkin\n0,\n0,\n")), refusal(8, "the ID 0 is not greater than 0"));
    EXPECT_EQ(errorOf(layups("7,\nSkin\n-1,\n0,\n")), refusal(10, "a count is less than 0"));
    EXPECT_EQ(errorOf(layups("7,\nSkin\n1,\n1,0,0,\n0,\n")), refusal(11, "field 4 is missing"));
    EXPECT_EQ(errorOf(layups("7,\nSkin\n1,\n1,0,0,x,\n0,\n")),
              refusal(11, "field 4 is not a number"));
    EXPECT_EQ(errorOf(layups("7,\nSkin\n1,\n1,0,0,0.25,0.,\n2,0,0,0.25,0.,\n0,\n")),
              refusal(12, "no 0 follows the plies of a layup"));
    EXPECT_EQ(errorOf(layups("7,\nSkin\n2000000000,\n1,0,0,0.25,0.,\n0,\n")),
              refusal(12, "field 2 is missing"));
    EXPECT_EQ(errorOf(layups("7,\nSkin\n1,\n1,0,0,0.25,0.,\n")),
              refusal(12, "the block ends in the middle of a record"));
}

TEST(NeutralFileLayup, LayupsOfAnOlderVersionThatDoNotFitAreLeftOutAndTold)
{
    Model model;

    const std::vector<std::string> remarks =
        remarksOn(layups("7,\nSkin\n1,\n1,0.25,45.,0,\n0,\n", "9.3"), model);

    EXPECT_TRUE(model.layups.empty());
    EXPECT_THAT(remarks, ElementsAre("The layups could not be read, so laminates have no mass; "
                                     "export version 11: wing.neu"));
}

TEST(NeutralFileLayup, LayupsOfAnOlderVersionThatFitAreRead)
{
    Model model;

    EXPECT_THAT(remarksOn(layups("7,\nSkin\n1,\n1,0,0,0.25,45.,\n0,\n", "9.3"), model), IsEmpty());
    EXPECT_THAT(model.layups.ids(), ElementsAre(7));
}

TEST(NeutralFileLayup, TheSameFileOnceMoreAddsNoLayup)
{
    Model model;
    readInto(model, layups("7,\nSkin\n0,\n0,\n"));
    readInto(model, layups("7,\nSkin\n1,\n1,0,0,0.25,45.,\n0,\n"));

    EXPECT_THAT(model.layups.ids(), ElementsAre(7));
    EXPECT_THAT(model.layups.find(7)->plies, ElementsAre(isPly(1, 0.25)));
}

using NeutralFileLayupElsewhere = fake::OnModelsBesideTheProject<>;

TEST_F(NeutralFileLayupElsewhere, TheLaminateModelHasItsEightPlies)
{
    const Model model = read(fake::contentOfModel("lam1.neu"));

    ASSERT_THAT(model.layups.ids(), ElementsAre(1));
    EXPECT_EQ(model.properties.find(1)->layupID, 1);
    const Layup& layup = *model.layups.find(1);
    EXPECT_EQ(layup.plies.size(), 8U);
    EXPECT_THAT(layup.plies, testing::Each(isPly(1, 0.005)));
}
