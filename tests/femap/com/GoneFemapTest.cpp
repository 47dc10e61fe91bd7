#include "femap/com/Apartment.h"
#include "standin/Generations.h"
#include "standin/StartedStandin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace comtest
{

using femap::ConnectionLost;
using femap::EntityType;

namespace
{

struct GoneFemap : testing::TestWithParam<const char*>
{
    femap::com::Apartment apartment;
    std::string calls = temporaryFile("standin-gone.txt");
    StartedStandin standin{std::string(GetParam()) + " --model \"" + panelModel() +
                           "\" --calls \"" + calls + '"'};
    std::unique_ptr<femap::Application> femap = femap::com::ComConnector(nullptr).attach();
};

INSTANTIATE_TEST_SUITE_P(OfBothGenerations, GoneFemap, bothGenerations, nameOfGeneration);

}  // namespace

TEST_P(GoneFemap, IsNoticedAtTheCallThatItDiesIn)
{
    const std::unique_ptr<femap::EntitySet> set = femap->feSet();
    set->AddAll(EntityType::Node);
    standin.control().call("standinDieAt", 3);
    EXPECT_GT(set->Next(), 0);
    EXPECT_GT(set->Next(), 0);

    EXPECT_THROW(set->Next(), ConnectionLost);

    EXPECT_TRUE(standin.ends());
    EXPECT_EQ(linesOf(calls).back(), "died");
}

TEST_P(GoneFemap, IsNotCalledAgainAndItsObjectsGoQuietly)
{
    std::unique_ptr<femap::EntitySet> set = femap->feSet();
    std::unique_ptr<femap::Entity> node = femap->entity("Node");
    standin.control().call("standinDieAt", 1);
    EXPECT_THROW(femap->feAppLock(), ConnectionLost);
    const DWORD before = GetTickCount();

    EXPECT_THROW(set->count(), ConnectionLost);
    EXPECT_THROW(node->member("x"), ConnectionLost);
    EXPECT_THROW(femap->feOutput(), ConnectionLost);
    EXPECT_THROW(femap->feAppMessage(femap::MessageColour::Normal, "x"), ConnectionLost);
    node.reset();
    set.reset();
    femap.reset();

    EXPECT_LT(GetTickCount() - before, 1000U);
}

TEST_P(GoneFemap, MakesWayForTheNextOne)
{
    standin.control().call("standinDieAt", 1);
    EXPECT_THROW(femap->feAppLock(), ConnectionLost);
    femap.reset();
    EXPECT_TRUE(standin.ends());

    StartedStandin next(GetParam());
    femap = femap::com::ComConnector(nullptr).attach();

    EXPECT_EQ(femap->ModelName(), "");
    femap.reset();
}

}  // namespace comtest
