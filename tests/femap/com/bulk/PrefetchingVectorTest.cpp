#include "fake/RandomSeed.h"
#include "femap/com/bulk/PrefetchedVectors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace femap::com::bulk
{
namespace
{

using testing::ElementsAre;

// What one of them answers, a refusal with its words.
std::string answer(OutputVector& vector, const std::string& question, int id, int entity)
{
    try {
        if (question == "Get")
            return std::to_string(static_cast<int>(vector.Get(id)));
        if (question == "ID")
            return std::to_string(vector.ID());
        if (question == "Title")
            return vector.Title();
        if (question == "classicID")
            return std::to_string(vector.classicID());
        if (question == "maximum")
            return toText(vector.maxval());
        if (question == "minimum")
            return toText(vector.minval());
        if (question == "Value")
            return toText(vector.Value(entity));
        if (question == "indexed")
            return toText(vector.member("Value", entity));
        return toText(vector.member(question));
    }
    catch (const RuntimeError& error) {
        return error.description();
    }
}

class AnyVectorWalk : public testing::TestWithParam<VectorFlaw>
{};

INSTANTIATE_TEST_SUITE_P(OfEachSort, AnyVectorWalk,
                         testing::Values(VectorFlaw::None, VectorFlaw::NoValues,
                                         VectorFlaw::FewerValues, VectorFlaw::ZeroForNone,
                                         VectorFlaw::OtherValues, VectorFlaw::NoTitles,
                                         VectorFlaw::OtherTitles, VectorFlaw::NoneIsUntitled));

}  // namespace

TEST_P(AnyVectorWalk, HasTheAnswersOfThePlainWay)
{
    PrefetchedVectors vectors;
    PrefetchingVector ahead = vectors.make(GetParam());
    const std::unique_ptr<OutputVector> plain = vectors.f.context.femap().feOutput();
    std::mt19937 random(fake::randomSeed());
    const Calls questions = {"Get",   "Get",      "Value",   "Value",    "Value",
                             "ID",    "Title",    "maximum", "minimum",  "maxval",
                             "title", "nonsense", "indexed", "classicID"};

    for (int step = 0; step < 4000; ++step) {
        if (step % 200 == 0) {
            std::vector<VectorReading> plan;
            for (int id = 0; id < 13; ++id) {
                if (random() % 3 == 0)
                    continue;
                plan.push_back({id});
                for (int entity = 1; entity < 70 && random() % 30 != 0; ++entity)
                    plan.back().entityIDs.push_back(entity);
            }
            ahead.prefetch(plan);
        }
        const std::string& question = questions[random() % questions.size()];
        const int id = static_cast<int>(random() % 13);
        const int entity = static_cast<int>(random() % 70);
        ASSERT_EQ(answer(ahead, question, id, entity), answer(*plain, question, id, entity))
            << question << " of " << id << " at " << entity << " in step " << step;
    }
}

TEST(PrefetchingVector, FetchesAVectorOnceAndComparesSomeOfItsValues)
{
    PrefetchedVectors vectors;
    PrefetchingVector ahead = vectors.make();

    ahead.prefetch({{1, PrefetchedVectors::entities()}});
    ASSERT_EQ(ahead.Get(1), ReturnCode::Ok);
    for (const int entity : PrefetchedVectors::entities())
        EXPECT_EQ(ahead.Value(entity), entity % 10 == 0 ? 0 : 1 + entity / 100.0);

    EXPECT_THAT(vectors.calls, ElementsAre("Get 1", "fetch 1", "Value 1", "Value 60", "Value 10"));
}

TEST(PrefetchingVector, KeepsSeveralVectorsForAnyOrder)
{
    PrefetchedVectors vectors;
    PrefetchingVector ahead = vectors.make();

    ahead.prefetch({{1, PrefetchedVectors::entities()}, {9, PrefetchedVectors::entities()}});
    for (const int entity : PrefetchedVectors::entities())
        for (const int id : {1, 9}) {
            ahead.Get(id);
            ASSERT_EQ(ahead.Value(entity), entity % 10 == 0 ? 0 : id + entity / 100.0);
        }

    EXPECT_EQ(vectors.calls.size(), 10U);
}

TEST(PrefetchingVector, AsksTwiceWhereAVectorHasNoValueAndRefusesTheRestInLikeWords)
{
    PrefetchedVectors vectors;
    PrefetchingVector ahead = vectors.make();
    Calls refusals;

    ahead.prefetch({{2, PrefetchedVectors::entities()}});
    ahead.Get(2);
    for (const int entity : {3, 6, 9, 2, 12, 3})
        refusals.push_back(answer(ahead, "Value", 2, entity));

    const std::string words = "Output vector 2 has no value at the entity ";
    EXPECT_THAT(refusals, ElementsAre(words + "3", words + "6", words + "9", "2.02", words + "12",
                                      words + "3"));
    EXPECT_EQ(vectors.countOf("Value 3"), 1);
    EXPECT_EQ(vectors.countOf("Value 6"), 1);
    EXPECT_EQ(vectors.countOf("Value 9"), 0);
    EXPECT_EQ(vectors.countOf("Value 12"), 0);
}

TEST(PrefetchingVector, AsksForEachMissingValueOfAFemapThatAnswersWithANumber)
{
    PrefetchedVectors vectors;
    PrefetchingVector ahead = vectors.make();
    vectors.noted->missingIsZero = true;

    ahead.prefetch({{2, PrefetchedVectors::entities()}, {7, PrefetchedVectors::entities()}});
    for (const int id : {2, 7}) {
        ahead.Get(id);
        for (const int entity : {3, 6, 9, 12})
            EXPECT_EQ(ahead.Value(entity), 0);
    }

    EXPECT_EQ(vectors.countOf("Value 9"), 2);
    EXPECT_EQ(vectors.countOf("Value 12"), 2);
    EXPECT_TRUE(vectors.capability->values.isUsable);
}

TEST(PrefetchingVector, AsksForWhatAFetchLacksWhenTheLastOneIsThereAfterAll)
{
    PrefetchedVectors vectors;
    PrefetchingVector ahead = vectors.make(VectorFlaw::NoneAtTheEnd);

    ahead.prefetch({{2, PrefetchedVectors::entities(59)}});
    ahead.Get(2);
    for (const int entity : {3, 6})
        EXPECT_THROW(ahead.Value(entity), RuntimeError);

    EXPECT_EQ(ahead.Value(58), 2.58);
    EXPECT_EQ(ahead.Value(59), 2.59);
}

TEST(PrefetchingVector, DoesNotFetchAgainAfterItFailed)
{
    for (const VectorFlaw flaw : {VectorFlaw::NoValues, VectorFlaw::FewerValues,
                                  VectorFlaw::OtherValues, VectorFlaw::ZeroForNone}) {
        PrefetchedVectors vectors;
        PrefetchingVector ahead = vectors.make(flaw);
        ahead.prefetch({{2, PrefetchedVectors::entities()}});
        ahead.Get(2);
        EXPECT_EQ(ahead.Value(1), 2.01);
        EXPECT_FALSE(vectors.capability->values.isUsable);
        vectors.calls.clear();

        PrefetchingVector next = vectors.make();
        next.prefetch({{1, PrefetchedVectors::entities()}});
        next.Get(1);
        next.Value(1);
        next.Value(2);

        EXPECT_THAT(vectors.calls, ElementsAre("Get 1", "Value 1", "Value 2"));
    }
}

TEST(PrefetchingVector, GoesThePlainWayWithFewValues)
{
    PrefetchedVectors vectors;
    PrefetchingVector ahead = vectors.make();

    ahead.prefetch({{1, PrefetchedVectors::entities(10)}});
    ahead.Get(1);
    ahead.Value(1);
    ahead.Value(2);

    EXPECT_THAT(vectors.calls, ElementsAre("Get 1", "Value 1", "Value 2"));
}

TEST(PrefetchingVector, ListsTheTitlesOfManyVectorsInOneCall)
{
    PrefetchedVectors vectors;
    PrefetchingVector ahead = vectors.make();
    Calls titles;

    ahead.prefetch({{1}, {2}, {5}, {7}, {9}, {11}});
    for (const int id : {1, 2, 5, 7, 9, 11})
        if (ahead.Get(id) == ReturnCode::Ok)
            titles.push_back(std::to_string(ahead.classicID()) + ' ' + ahead.Title());

    EXPECT_THAT(titles, ElementsAre("1 Vector 1", "2 Vector 2", "7 Vector 7", "9 Vector 9", "11 "));
    EXPECT_THAT(vectors.calls, ElementsAre("titles", "Get 1", "Title", "Get 5"));
}

TEST(PrefetchingVector, DoesNotListTitlesAgainAfterThatFailed)
{
    for (const VectorFlaw flaw : {VectorFlaw::NoTitles, VectorFlaw::OtherTitles}) {
        PrefetchedVectors vectors;
        PrefetchingVector ahead = vectors.make(flaw);
        const std::vector<VectorReading> plan = {{1}, {2}, {7}, {9}, {11}};
        ahead.prefetch(plan);
        ahead.Get(1);
        EXPECT_EQ(ahead.Title(), "Vector 1");
        EXPECT_FALSE(vectors.capability->titles.isUsable);
        EXPECT_TRUE(vectors.capability->values.isUsable);
        vectors.calls.clear();

        ahead.prefetch(plan);
        ahead.Get(9);
        EXPECT_EQ(ahead.Title(), "Vector 9");

        EXPECT_THAT(vectors.calls, ElementsAre("Get 9", "Title"));
    }
}

TEST(PrefetchingVector, RefusesToReadAVectorThatWentAway)
{
    PrefetchedVectors vectors;
    PrefetchingVector ahead = vectors.make();
    ahead.prefetch({{1}, {2}, {7}, {9}});
    ASSERT_EQ(ahead.Get(1), ReturnCode::Ok);
    ASSERT_EQ(ahead.Get(9), ReturnCode::Ok);
    vectors.f.model().outputSets = {};

    EXPECT_EQ(answer(ahead, "maximum", 9, 0), "FEMAP no longer has the output vector 9");
}

TEST(PrefetchingVector, LetsTheEndOfFemapThrough)
{
    PrefetchedVectors vectors;
    PrefetchingVector ahead = vectors.make(VectorFlaw::FemapIsGone);

    ahead.prefetch({{1, PrefetchedVectors::entities()}});
    ahead.Get(1);

    EXPECT_THROW(ahead.Value(1), ConnectionLost);
    EXPECT_TRUE(vectors.capability->values.isUsable);
}

}  // namespace femap::com::bulk
