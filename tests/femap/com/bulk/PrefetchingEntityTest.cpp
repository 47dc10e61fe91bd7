#include "fake/RandomSeed.h"
#include "femap/com/bulk/PrefetchedNodes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace femap::com::bulk
{
namespace
{

using testing::ElementsAre;

// What one of them answers, a refusal with its words.
std::string answer(Entity& entity, const std::string& question, int id)
{
    try {
        if (question == "Get")
            return std::to_string(static_cast<int>(entity.Get(id)));
        if (question == "Type")
            return std::to_string(entity.Type());
        if (question == "permBC")
            return toText(entity.member(question, id % 8));
        const femap::Value value = entity.member(question);
        return std::to_string(value.index()) + ':' + toText(value);
    }
    catch (const RuntimeError& error) {
        return error.description();
    }
}

using PortionAndFlaw = std::tuple<std::size_t, EntityFlaw>;

class AnyWalk : public testing::TestWithParam<PortionAndFlaw>
{};

INSTANTIATE_TEST_SUITE_P(
    OfEachSortAndSize, AnyWalk,
    testing::Combine(testing::Values(1, 2, 7, 1000),
                     testing::Values(EntityFlaw::None, EntityFlaw::NoList, EntityFlaw::NoFetch,
                                     EntityFlaw::FewerValues, EntityFlaw::OtherValues,
                                     EntityFlaw::NoColumns)));

}  // namespace

TEST_P(AnyWalk, HasTheAnswersOfThePlainWay)
{
    const auto [portion, flaw] = GetParam();
    PrefetchedNodes nodes;
    PrefetchingEntity ahead = nodes.make(portion, flaw);
    const std::unique_ptr<Entity> plain = nodes.f.context.femap().entity("Node");
    std::mt19937 random(fake::randomSeed());
    const Calls questions = {"Get",  "Get", "x",      "y",     "z",       "type",
                             "Type", "ID",  "permBC", "title", "defCSys", "X"};
    const std::vector<MemberName> members = {{"x"},         {"y"},     {"type"},   {"z"},
                                             {"permBC", 1}, {"title"}, {"defCSys"}};

    for (int step = 0; step < 4000; ++step) {
        if (step % 200 == 0) {
            std::vector<int> ids;
            for (int id = 0; id < 90; ++id)
                if (random() % 4 != 0)
                    ids.push_back(id);
            ahead.prefetch(ids, {members.begin(), members.begin() + 1 + random() % 7});
        }
        const std::string& question = questions[random() % questions.size()];
        const int id = static_cast<int>(random() % 90);
        ASSERT_EQ(answer(ahead, question, id), answer(*plain, question, id))
            << question << " of " << id << " in step " << step;
    }
}

TEST(PrefetchingEntity, FetchesPortionByPortionAndComparesOneEntity)
{
    PrefetchedNodes nodes;
    PrefetchingEntity ahead = nodes.make(16);

    ahead.prefetch(nodes.ids(), {{"x"}, {"y"}});
    for (const int id : nodes.ids()) {
        ASSERT_EQ(ahead.Get(id), ReturnCode::Ok);
        ASSERT_EQ(ahead.member("x"), femap::Value(id / 16.0));
        ASSERT_EQ(ahead.member("y"), femap::Value(-id / 2 / 3.0));
    }

    EXPECT_THAT(nodes.calls,
                ElementsAre("list", "fetch 16", "Get 2", "x", "y", "fetch 16", "fetch 8"));
}

TEST(PrefetchingEntity, FetchesNothingThatIsNotAskedFor)
{
    PrefetchedNodes nodes;
    PrefetchingEntity ahead = nodes.make(16);

    ahead.prefetch(nodes.ids(), {{"x"}});
    for (const int id : nodes.ids())
        ASSERT_EQ(ahead.Get(id), ReturnCode::Ok);

    EXPECT_THAT(nodes.calls, ElementsAre("list"));
}

TEST(PrefetchingEntity, KeepsWhatItFetchedForAnyOrder)
{
    PrefetchedNodes nodes;
    PrefetchingEntity ahead = nodes.make(16);
    std::vector<int> order = nodes.ids();
    std::mt19937 random(7);

    ahead.prefetch(nodes.ids(), {{"x"}});
    for (int round = 0; round < 3; ++round) {
        std::shuffle(order.begin(), order.end(), random);
        for (const int id : order) {
            ahead.Get(id);
            ASSERT_EQ(ahead.member("x"), femap::Value(id / 16.0));
        }
    }

    EXPECT_EQ(nodes.countOf("fetch 16"), 2);
    EXPECT_EQ(nodes.countOf("fetch 8"), 1);
    EXPECT_EQ(nodes.countOf("x"), 1);
}

TEST(PrefetchingEntity, LoadsAnEntityPlainlyOnceForWhatCannotBeFetched)
{
    PrefetchedNodes nodes;
    PrefetchingEntity ahead = nodes.make(100);

    ahead.prefetch(nodes.ids(), {{"x"}, {"z"}, {"color"}, {"y"}});
    for (const int id : nodes.ids()) {
        ahead.Get(id);
        for (const char* const name : {"x", "z", "color", "y"})
            ahead.member(name);
    }

    EXPECT_EQ(nodes.countOf("z"), 40);
    EXPECT_EQ(nodes.countOf("color"), 40);
    EXPECT_EQ(nodes.countOf("x"), 1);
    EXPECT_EQ(std::count_if(nodes.calls.begin(), nodes.calls.end(),
                            [](const std::string& call) { return call.starts_with("Get"); }),
              40);
}

TEST(PrefetchingEntity, AsksOnceAboutEntitiesThatAreNotThere)
{
    PrefetchedNodes nodes;
    PrefetchingEntity ahead = nodes.make(100);
    std::vector<int> ids(80);
    std::iota(ids.begin(), ids.end(), 1);

    ahead.prefetch(ids, {{"x"}});
    std::ptrdiff_t missing = 0;
    for (const int id : ids)
        missing += ahead.Get(id) == ReturnCode::Ok ? 0 : 1;

    EXPECT_EQ(missing, 40);
    EXPECT_THAT(nodes.calls, ElementsAre("list", "Get 1"));
}

TEST(PrefetchingEntity, GoesThePlainWayWithFewEntities)
{
    PrefetchedNodes nodes;
    PrefetchingEntity ahead = nodes.make(100);

    ahead.prefetch({2, 4}, {{"x"}});
    ahead.Get(2);
    ahead.member("x");
    ahead.Get(4);
    ahead.member("x");

    EXPECT_THAT(nodes.calls, ElementsAre("Get 2", "x", "Get 4", "x"));
}

TEST(PrefetchingEntity, NeverTakesMoreCallsThanThePlainWay)
{
    for (int count = 0; count <= 40; ++count)
        for (const std::size_t portion : {1, 3, 1000}) {
            PrefetchedNodes nodes(count);
            PrefetchingEntity ahead = nodes.make(portion);
            const Calls members = {"x", "z", "y", "defCSys"};
            std::vector<MemberName> plan;
            for (const std::string& member : members)
                plan.push_back({member});

            ahead.prefetch(nodes.ids(), plan);
            for (const int id : nodes.ids()) {
                ahead.Get(id);
                for (const std::string& member : members)
                    ahead.member(member);
            }

            // The list takes three calls, the first fetch one more.
            const auto extra = 2 * nodes.countOf("list") + (nodes.countOf("list") > 0 ? 1 : 0);
            EXPECT_LE(std::ssize(nodes.calls) + extra, 5 * count) << portion;
        }
}

TEST(PrefetchingEntity, DoesNotFetchAgainAfterItFailed)
{
    for (const EntityFlaw flaw : {EntityFlaw::NoList, EntityFlaw::NoFetch, EntityFlaw::FewerValues,
                                  EntityFlaw::OtherValues}) {
        PrefetchedNodes nodes;
        PrefetchingEntity ahead = nodes.make(16, flaw);
        ahead.prefetch(nodes.ids(), {{"x"}});
        ahead.Get(2);
        EXPECT_EQ(ahead.member("x"), femap::Value(0.125));
        EXPECT_FALSE(nodes.capability->isUsable);
        nodes.calls.clear();

        PrefetchingEntity next = nodes.make(16);
        next.prefetch(nodes.ids(), {{"x"}});
        next.Get(4);
        EXPECT_EQ(next.member("x"), femap::Value(0.25));

        EXPECT_THAT(nodes.calls, ElementsAre("Get 4", "x"));
    }
}

TEST(PrefetchingEntity, LeavesAMemberThatIsRefusedPlainlyToThePlainWay)
{
    PrefetchedNodes nodes;
    PrefetchingEntity ahead = nodes.make(16);
    nodes.noted->beforeCall = [](const std::string& call) {
        if (call == "y")
            refuse("y");
    };

    ahead.prefetch(nodes.ids(), {{"x"}, {"y"}});
    ahead.Get(2);
    EXPECT_EQ(ahead.member("x"), femap::Value(0.125));
    EXPECT_THROW(ahead.member("y"), RuntimeError);
    ahead.Get(4);
    EXPECT_EQ(ahead.member("x"), femap::Value(0.25));
    EXPECT_THROW(ahead.member("y"), RuntimeError);

    EXPECT_TRUE(nodes.capability->isUsable);
    EXPECT_EQ(nodes.countOf("x"), 1);
}

TEST(PrefetchingEntity, RefusesToReadAnEntityThatWentAway)
{
    PrefetchedNodes nodes;
    PrefetchingEntity ahead = nodes.make(16);
    ahead.prefetch(nodes.ids(), {{"x"}});
    ASSERT_EQ(ahead.Get(2), ReturnCode::Ok);
    nodes.f.model().nodes = {};

    try {
        ahead.member("z");
        FAIL() << "did not raise";
    }
    catch (const RuntimeError& error) {
        EXPECT_EQ(error.description(), "FEMAP no longer has the entity 2");
    }
}

TEST(PrefetchingEntity, TrustsNoFetchedValuesOfAnEntityThatCannotBeLoaded)
{
    PrefetchedNodes nodes;
    PrefetchingEntity ahead = nodes.make(16);
    ahead.prefetch(nodes.ids(), {{"x"}});
    ahead.Get(4);
    nodes.noted->beforeCall = [](const std::string& call) {
        if (call == "Get 2")
            refuse("Get");
    };

    EXPECT_EQ(ahead.member("x"), femap::Value(0.25));
    EXPECT_FALSE(nodes.capability->isUsable);
}

TEST(PrefetchingEntity, LetsTheEndOfFemapThrough)
{
    PrefetchedNodes nodes;
    PrefetchingEntity fetching = nodes.make(16, EntityFlaw::FemapIsGone);
    fetching.prefetch(nodes.ids(), {{"x"}});
    fetching.Get(2);
    EXPECT_THROW(fetching.member("x"), ConnectionLost);
    EXPECT_TRUE(nodes.capability->isUsable);

    PrefetchingEntity comparing = nodes.make(16);
    nodes.noted->beforeCall = [](const std::string&) { throw ConnectionLost("gone"); };
    comparing.prefetch(nodes.ids(), {{"x"}});
    comparing.Get(2);
    EXPECT_THROW(comparing.member("x"), ConnectionLost);
    EXPECT_TRUE(nodes.capability->isUsable);
}

}  // namespace femap::com::bulk
