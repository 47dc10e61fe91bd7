#include "bulk/AheadVectors.h"
#include "fake/RandomSeed.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace femap::bulk
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
                                         VectorFlaw::OtherTitles));

}  // namespace

TEST_P(AnyVectorWalk, HasTheAnswersOfThePlainWay)
{
    AheadVectors vectors;
    AheadVector ahead = vectors.make(GetParam());
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
            ahead.readAhead(plan);
        }
        const std::string& question = questions[random() % questions.size()];
        const int id = static_cast<int>(random() % 13);
        const int entity = static_cast<int>(random() % 70);
        ASSERT_EQ(answer(ahead, question, id, entity), answer(*plain, question, id, entity))
            << question << " of " << id << " at " << entity << " in step " << step;
    }
}

TEST(AheadVector, FetchesAVectorOnceAndComparesSomeOfItsValues)
{
    AheadVectors vectors;
    AheadVector ahead = vectors.make();

    ahead.readAhead({{1, AheadVectors::entities()}});
    ASSERT_EQ(ahead.Get(1), ReturnCode::Ok);
    for (const int entity : AheadVectors::entities())
        EXPECT_EQ(ahead.Value(entity), entity % 10 == 0 ? 0 : 1 + entity / 100.0);

    EXPECT_THAT(vectors.calls, ElementsAre("Get 1", "fetch 1", "Value 1", "Value 60", "Value 10"));
}

TEST(AheadVector, KeepsSeveralVectorsForAnyOrder)
{
    AheadVectors vectors;
    AheadVector ahead = vectors.make();

    ahead.readAhead({{1, AheadVectors::entities()}, {9, AheadVectors::entities()}});
    for (const int entity : AheadVectors::entities())
        for (const int id : {1, 9}) {
            ahead.Get(id);
            ASSERT_EQ(ahead.Value(entity), entity % 10 == 0 ? 0 : id + entity / 100.0);
        }

    EXPECT_EQ(vectors.calls.size(), 10U);
}

TEST(AheadVector, AsksTwiceWhereAVectorHasNoValueAndRefusesTheRestInLikeWords)
{
    AheadVectors vectors;
    AheadVector ahead = vectors.make();
    Calls refusals;

    ahead.readAhead({{2, AheadVectors::entities()}});
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

TEST(AheadVector, AsksForEachMissingValueOfAFemapThatAnswersWithANumber)
{
    AheadVectors vectors;
    AheadVector ahead = vectors.make();
    vectors.noted->missingIsZero = true;

    ahead.readAhead({{2, AheadVectors::entities()}, {7, AheadVectors::entities()}});
    for (const int id : {2, 7}) {
        ahead.Get(id);
        for (const int entity : {3, 6, 9, 12})
            EXPECT_EQ(ahead.Value(entity), 0);
    }

    EXPECT_EQ(vectors.countOf("Value 9"), 2);
    EXPECT_EQ(vectors.countOf("Value 12"), 2);
    EXPECT_TRUE(vectors.trust->values.isGiven);
}

TEST(AheadVector, AsksForWhatAFetchLacksWhenTheLastOneIsThereAfterAll)
{
    AheadVectors vectors;
    AheadVector ahead = vectors.make(VectorFlaw::NoneAtTheEnd);

    ahead.readAhead({{2, AheadVectors::entities(59)}});
    ahead.Get(2);
    for (const int entity : {3, 6})
        EXPECT_THROW(ahead.Value(entity), RuntimeError);

    EXPECT_EQ(ahead.Value(58), 2.58);
    EXPECT_EQ(ahead.Value(59), 2.59);
}

TEST(AheadVector, DoesNotFetchAgainAfterItFailed)
{
    for (const VectorFlaw flaw : {VectorFlaw::NoValues, VectorFlaw::FewerValues,
                                  VectorFlaw::OtherValues, VectorFlaw::ZeroForNone}) {
        AheadVectors vectors;
        AheadVector ahead = vectors.make(flaw);
        ahead.readAhead({{2, AheadVectors::entities()}});
        ahead.Get(2);
        EXPECT_EQ(ahead.Value(1), 2.01);
        EXPECT_FALSE(vectors.trust->values.isGiven);
        vectors.calls.clear();

        AheadVector next = vectors.make();
        next.readAhead({{1, AheadVectors::entities()}});
        next.Get(1);
        next.Value(1);
        next.Value(2);

        EXPECT_THAT(vectors.calls, ElementsAre("Get 1", "Value 1", "Value 2"));
    }
}

TEST(AheadVector, GoesThePlainWayWithFewValues)
{
    AheadVectors vectors;
    AheadVector ahead = vectors.make();

    ahead.readAhead({{1, AheadVectors::entities(10)}});
    ahead.Get(1);
    ahead.Value(1);
    ahead.Value(2);

    EXPECT_THAT(vectors.calls, ElementsAre("Get 1", "Value 1", "Value 2"));
}

TEST(AheadVector, ListsTheTitlesOfManyVectorsInOneCall)
{
    AheadVectors vectors;
    AheadVector ahead = vectors.make();
    Calls titles;

    ahead.readAhead({{1}, {2}, {5}, {7}, {9}, {11}});
    for (const int id : {1, 2, 5, 7, 9, 11})
        if (ahead.Get(id) == ReturnCode::Ok)
            titles.push_back(std::to_string(ahead.classicID()) + ' ' + ahead.Title());

    EXPECT_THAT(titles, ElementsAre("1 Vector 1", "2 Vector 2", "7 Vector 7", "9 Vector 9",
                                    "11 Vector 11"));
    EXPECT_THAT(vectors.calls, ElementsAre("titles", "Get 1", "Title", "Get 5"));
}

TEST(AheadVector, DoesNotListTitlesAgainAfterThatFailed)
{
    for (const VectorFlaw flaw : {VectorFlaw::NoTitles, VectorFlaw::OtherTitles}) {
        AheadVectors vectors;
        AheadVector ahead = vectors.make(flaw);
        const std::vector<VectorReading> plan = {{1}, {2}, {7}, {9}, {11}};
        ahead.readAhead(plan);
        ahead.Get(1);
        EXPECT_EQ(ahead.Title(), "Vector 1");
        EXPECT_FALSE(vectors.trust->titles.isGiven);
        EXPECT_TRUE(vectors.trust->values.isGiven);
        vectors.calls.clear();

        ahead.readAhead(plan);
        ahead.Get(9);
        EXPECT_EQ(ahead.Title(), "Vector 9");

        EXPECT_THAT(vectors.calls, ElementsAre("Get 9", "Title"));
    }
}

TEST(AheadVector, RefusesToReadAVectorThatWentAway)
{
    AheadVectors vectors;
    AheadVector ahead = vectors.make();
    ahead.readAhead({{1}, {2}, {7}, {9}});
    ASSERT_EQ(ahead.Get(1), ReturnCode::Ok);
    ASSERT_EQ(ahead.Get(9), ReturnCode::Ok);
    vectors.f.model().outputSets = {};

    EXPECT_EQ(answer(ahead, "maximum", 9, 0), "FEMAP no longer has the output vector 9");
}

TEST(AheadVector, LetsTheEndOfFemapThrough)
{
    AheadVectors vectors;
    AheadVector ahead = vectors.make(VectorFlaw::FemapIsGone);

    ahead.readAhead({{1, AheadVectors::entities()}});
    ahead.Get(1);

    EXPECT_THROW(ahead.Value(1), ConnectionLost);
    EXPECT_TRUE(vectors.trust->values.isGiven);
}

}  // namespace femap::bulk
