#include "femap/embedded/HostFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>

using femap::EntityType;
using femap::ReturnCode;
using femap::embedded::putOutputValue;
using sys::ErrorNumber;
using testing::ElementsAre;

namespace
{

struct OutputFixture : HostFixture
{
    OutputFixture()
    {
        for (const int id : {1, 4, 6, 8})
            model().nodes.put({.id = id});
        model().elements.put({.id = 20});
        model().outputSets.put({.id = 2}).vectors.put({.id = 1,
                                                       .title = "Total\tTranslation",
                                                       .minval = -7.5,
                                                       .maxval = 3,
                                                       .ids = {4, 6},
                                                       .values = {3, -7.5}});
        model().outputSets.find(2)->vectors.put({.id = 6060,
                                                 .title = "Plate",
                                                 .location = EntityType::Element,
                                                 .ids = {20},
                                                 .values = {0}});
        model().outputSets.put({.id = 3}).vectors.put({.id = 1, .title = "Second set"});
    }
    std::unique_ptr<femap::OutputVector> output = application->feOutput();
};

}  // namespace

TEST(HostOutputVector, HasDefaultDataBeforeAnythingIsLoaded)
{
    OutputFixture f;

    EXPECT_EQ(f.output->ID(), 0);
    EXPECT_EQ(f.output->Title(), "");
    EXPECT_EQ(f.output->maxval(), 0);
    EXPECT_TRUE(errorOf([&] { f.output->Value(4); }));
}

TEST(HostOutputVector, LoadsAVectorOfTheActiveOutputSet)
{
    OutputFixture f;

    EXPECT_EQ(f.output->Get(1), ReturnCode::Ok);
    EXPECT_EQ(f.output->ID(), 1);
    EXPECT_EQ(f.output->classicID(), 1);
    EXPECT_EQ(f.output->maxval(), 3);
    EXPECT_EQ(f.output->minval(), -7.5);
    EXPECT_EQ(f.output->Value(4), 3);
    EXPECT_EQ(f.output->Value(6), -7.5);
    f.model().activeOutputSet = 3;
    EXPECT_EQ(f.output->Get(1), ReturnCode::Ok);
    EXPECT_EQ(f.output->Title(), "Second set");
}

TEST(HostOutputVector, ItsTitleHasNoControlCharacters)
{
    OutputFixture f;

    f.output->Get(1);

    EXPECT_EQ(f.output->Title(), "Total Translation");
    EXPECT_EQ(f.output->member("title"), femap::Value("Total Translation"));
}

TEST(HostOutputVector, AMissingVectorLeavesTheOneBefore)
{
    OutputFixture f;
    f.output->Get(1);

    EXPECT_EQ(f.output->Get(99), ReturnCode::Fail);
    EXPECT_EQ(f.output->ID(), 1);
    EXPECT_EQ(f.output->Value(4), 3);
}

TEST(HostOutputVector, TheIDZeroLoadsTheSameVectorAgain)
{
    OutputFixture f;
    EXPECT_EQ(f.output->Get(0), ReturnCode::Fail);
    f.output->Get(1);
    f.model().activeOutputSet = 3;

    EXPECT_EQ(f.output->Get(0), ReturnCode::Ok);
    EXPECT_EQ(f.output->Title(), "Second set");
}

TEST(HostOutputVector, WithoutAnOutputSetNothingIsLoaded)
{
    OutputFixture f;
    f.host.model.emplace();

    EXPECT_EQ(f.output->Get(1), ReturnCode::Fail);
}

TEST(HostOutputVector, AnEntityWithoutAValueRaises)
{
    OutputFixture f;
    f.output->Get(1);

    EXPECT_EQ(complaintOf([&] { f.output->Value(5); }),
              "Output vector 1 has no value at the entity 5");
    EXPECT_EQ(complaintOf([&] { f.output->Value(7); }),
              "Output vector 1 has no value at the entity 7");
}

TEST(HostOutputVector, ServesItsMembersByName)
{
    OutputFixture f;
    f.output->Get(1);

    EXPECT_EQ(f.output->member("maxval"), femap::Value(3.0));
    EXPECT_EQ(f.output->member("MinVal"), femap::Value(-7.5));
    EXPECT_EQ(f.output->member("absmaxval"), femap::Value(7.5));
    EXPECT_EQ(f.output->member("id"), femap::Value(std::int64_t{1}));
    EXPECT_EQ(f.output->member("setID"), femap::Value(std::int64_t{2}));
    EXPECT_EQ(f.output->member("location"), femap::Value(std::int64_t{7}));
    EXPECT_EQ(f.output->member("Value", 6), femap::Value(-7.5));
}

TEST(HostOutputVector, RefusesUnknownMembersAndWrongIndexes)
{
    OutputFixture f;
    f.output->Get(1);

    const auto unknown = errorOf([&] { f.output->member("Alphaxz"); });
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->number(), ErrorNumber::NoSuchMember);
    EXPECT_EQ(unknown->description(), "feOutput has no member Alphaxz");
    EXPECT_EQ(complaintOf([&] { f.output->member("none", 1); }), "feOutput has no member none");
    EXPECT_EQ(complaintOf([&] { f.output->member("maxval", 0); }),
              "maxval of feOutput takes no index");
    EXPECT_EQ(complaintOf([&] { f.output->member("value"); }), "value of feOutput needs an index");
}

TEST(HostOutputVector, AVectorThatLeftTheModelRaises)
{
    OutputFixture f;
    f.output->Get(1);

    f.host.model.emplace();

    EXPECT_EQ(complaintOf([&] { f.output->Title(); }), "Output vector 1 is no longer in the model");
    f.model().outputSets.put({.id = 2});
    EXPECT_EQ(complaintOf([&] { f.output->Value(4); }),
              "Output vector 1 is no longer in the model");
}

TEST(HostOutputVector, TwoObjectsDoNotShareWhatTheyLoaded)
{
    OutputFixture f;
    const auto other = f.application->feOutput();

    f.output->Get(1);
    other->Get(6060);

    EXPECT_EQ(f.output->ID(), 1);
    EXPECT_EQ(other->ID(), 6060);
}

TEST(PutOutputValue, ChangesAValueAndTheExtremes)
{
    OutputFixture f;
    f.output->Get(1);

    putOutputValue(f.model(), 1, 6, 12.5);

    EXPECT_EQ(f.output->Value(6), 12.5);
    EXPECT_EQ(f.output->maxval(), 12.5);
    EXPECT_EQ(f.output->minval(), 3);
}

TEST(PutOutputValue, GivesAValueToAnEntityThatHadNone)
{
    OutputFixture f;

    putOutputValue(f.model(), 1, 8, 1);
    putOutputValue(f.model(), 1, 1, 2);

    const auto* const vector = f.model().outputSets.find(2)->vectors.find(1);
    EXPECT_THAT(vector->ids, ElementsAre(1, 4, 6, 8));
    EXPECT_THAT(vector->values, ElementsAre(2, 3, -7.5, 1));
}

TEST(PutOutputValue, RefusesWhatIsNotThere)
{
    OutputFixture f;

    EXPECT_EQ(complaintOf([&] { putOutputValue(f.model(), 7, 1, 0); }),
              "FEMAP has no output vector 7");
    EXPECT_EQ(complaintOf([&] { putOutputValue(f.model(), 1, 5, 0); }),
              "FEMAP has no Node with the ID 5");
    EXPECT_EQ(complaintOf([&] { putOutputValue(f.model(), 6060, 5, 0); }),
              "FEMAP has no Elem with the ID 5");
    f.host.model.emplace();
    EXPECT_EQ(complaintOf([&] { putOutputValue(f.model(), 1, 1, 0); }),
              "FEMAP has no output vector 1");
}
