#include "femap/embedded/HostFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

using femap::EntityType;
using femap::ReturnCode;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

struct SetFixture : HostFixture
{
    SetFixture()
    {
        for (const int id : {4, 2, 9})
            model().nodes.put({.id = id});
        model().elements.put({.id = 3});
        model().elements.put({.id = 4});
    }
    std::unique_ptr<femap::EntitySet> set = application->feSet();
};

}  // namespace

TEST(HostSet, WalksItsIDsInAscendingOrder)
{
    SetFixture f;

    f.set->AddAll(EntityType::Node);

    EXPECT_EQ(f.set->count(), 3);
    EXPECT_THAT(f.walk(*f.set), ElementsAre(2, 4, 9));
}

TEST(HostSet, GivesZeroAtTheEndUntilItIsReset)
{
    SetFixture f;
    f.set->AddAll(EntityType::Node);
    f.walk(*f.set);

    EXPECT_EQ(f.set->Next(), 0);
    EXPECT_EQ(f.set->Next(), 0);
    f.set->Reset();
    EXPECT_EQ(f.set->Next(), 2);
}

TEST(HostSet, AnEmptySetGivesZero)
{
    SetFixture f;

    EXPECT_EQ(f.set->count(), 0);
    EXPECT_EQ(f.set->Next(), 0);
}

TEST(HostSet, AddingAllKeepsWhatIsThereWithoutDuplicates)
{
    SetFixture f;

    f.set->AddAll(EntityType::Node);
    const ReturnCode code = f.set->AddAll(EntityType::Element);

    EXPECT_EQ(code, ReturnCode::Ok);
    EXPECT_THAT(f.walk(*f.set), ElementsAre(2, 3, 4, 9));
}

TEST(HostSet, AddingDuringAWalkKeepsItsPlace)
{
    SetFixture f;
    f.set->AddAll(EntityType::Node);
    f.set->Next();

    f.set->AddAll(EntityType::Element);

    EXPECT_THAT(f.walk(*f.set), ElementsAre(3, 4, 9));
}

TEST(HostSet, AddingAfterTheEndOfAWalkDoesNotReviveIt)
{
    SetFixture f;
    f.set->AddAll(EntityType::Element);
    f.walk(*f.set);

    f.set->AddAll(EntityType::Node);

    EXPECT_EQ(f.set->Next(), 0);
}

TEST(HostSet, ACopyReplacesWhatWasThere)
{
    SetFixture f;
    f.set->AddAll(EntityType::Node);
    f.walk(*f.set);
    const auto other = f.setOf(EntityType::Element);

    const ReturnCode code = f.set->Copy(other->ID());

    EXPECT_EQ(code, ReturnCode::Ok);
    EXPECT_THAT(f.walk(*f.set), ElementsAre(3, 4));
    EXPECT_THAT(f.walk(*other), ElementsAre(3, 4));
}

TEST(HostSet, ASetThatIsGoneCannotBeCopied)
{
    SetFixture f;
    f.set->AddAll(EntityType::Node);
    auto other = f.setOf(EntityType::Element);
    const int id = other->ID();
    other.reset();

    EXPECT_EQ(f.set->Copy(id), ReturnCode::Fail);
    EXPECT_EQ(f.set->count(), 3);
}

TEST(HostSet, EachSetHasAnIDOfItsOwn)
{
    SetFixture f;
    auto second = f.application->feSet();
    const int first = f.set->ID();
    const int gone = second->ID();
    second = f.application->feSet();

    EXPECT_NE(first, gone);
    EXPECT_NE(second->ID(), gone);
    EXPECT_GT(first, 0);
}

TEST(HostSet, CollectsEveryKindOfEntity)
{
    SetFixture f;
    auto& model = f.model();
    model.properties.put({.id = 11});
    model.materials.put({.id = 12});
    model.functions.put({.id = 13});
    model.loadSets.put({.id = 14, .definitions = {{.id = 15}, {.id = 16}}});
    model.outputSets.put({.id = 17});

    EXPECT_THAT(f.walk(*f.setOf(EntityType::Property)), ElementsAre(11));
    EXPECT_THAT(f.walk(*f.setOf(EntityType::Material)), ElementsAre(12));
    EXPECT_THAT(f.walk(*f.setOf(EntityType::Function)), ElementsAre(13));
    EXPECT_THAT(f.walk(*f.setOf(EntityType::LoadSet)), ElementsAre(14));
    EXPECT_THAT(f.walk(*f.setOf(EntityType::LoadDefinition)), ElementsAre(15, 16));
    EXPECT_THAT(f.walk(*f.setOf(EntityType::OutputSet)), ElementsAre(17));
    EXPECT_THAT(f.walk(*f.setOf(static_cast<EntityType>(24))), IsEmpty());  // groups
}

TEST(HostSet, OutputVectorsAreThoseOfTheActiveOutputSet)
{
    SetFixture f;
    auto& model = f.model();
    model.outputSets.put({.id = 1}).vectors.put({.id = 101});
    model.outputSets.put({.id = 2}).vectors.put({.id = 102});

    EXPECT_THAT(f.walk(*f.setOf(EntityType::OutputVector)), ElementsAre(101));
    model.activeOutputSet = 2;
    EXPECT_THAT(f.walk(*f.setOf(EntityType::OutputVector)), ElementsAre(102));
    model.activeOutputSet = 3;
    EXPECT_THAT(f.walk(*f.setOf(EntityType::OutputVector)), IsEmpty());
}

TEST(HostSet, WithoutOutputOrLoadSetsThereAreNoVectorsAndNoDefinitions)
{
    SetFixture f;

    EXPECT_THAT(f.walk(*f.setOf(EntityType::OutputVector)), IsEmpty());
    EXPECT_THAT(f.walk(*f.setOf(EntityType::LoadDefinition)), IsEmpty());
}

TEST(HostSet, SelectingShowsTheTitleAndWhatThereIs)
{
    SetFixture f;
    f.dialogs.answers = {{ReturnCode::Ok, {9, 2}}};

    const ReturnCode code = f.set->Select(EntityType::Node, true, "Pick nodes");

    EXPECT_EQ(code, ReturnCode::Ok);
    EXPECT_THAT(f.walk(*f.set), ElementsAre(2, 9));
    ASSERT_EQ(f.dialogs.asked.size(), 1U);
    EXPECT_EQ(f.dialogs.asked[0].type, EntityType::Node);
    EXPECT_EQ(f.dialogs.asked[0].title, "Pick nodes");
    EXPECT_FALSE(f.dialogs.asked[0].onlyOne);
    EXPECT_THAT(f.dialogs.asked[0].available, ElementsAre(2, 4, 9));
}

TEST(HostSet, SelectingDropsIDsThatAreNotThereAndDuplicates)
{
    SetFixture f;
    f.dialogs.answers = {{ReturnCode::Ok, {4, 77, 4}}};

    f.set->Select(EntityType::Node, true, "");

    EXPECT_THAT(f.walk(*f.set), ElementsAre(4));
}

TEST(HostSet, SelectingWithClearStartsAnew)
{
    SetFixture f;
    f.set->AddAll(EntityType::Element);
    f.walk(*f.set);
    f.dialogs.answers = {{ReturnCode::Ok, {9}}};

    f.set->Select(EntityType::Node, true, "");

    EXPECT_THAT(f.walk(*f.set), ElementsAre(9));
}

TEST(HostSet, SelectingWithoutClearAdds)
{
    SetFixture f;
    f.set->AddAll(EntityType::Element);
    f.dialogs.answers = {{ReturnCode::Ok, {9}}};

    f.set->Select(EntityType::Node, false, "");

    EXPECT_THAT(f.walk(*f.set), ElementsAre(3, 4, 9));
}

TEST(HostSet, CancellingEmptiesTheSetJustWithClear)
{
    SetFixture f;
    f.set->AddAll(EntityType::Element);
    f.dialogs.answers = {{ReturnCode::Cancel, {}}, {ReturnCode::Cancel, {}}};

    EXPECT_EQ(f.set->Select(EntityType::Node, false, ""), ReturnCode::Cancel);
    EXPECT_EQ(f.set->count(), 2);
    EXPECT_EQ(f.set->Select(EntityType::Node, true, ""), ReturnCode::Cancel);
    EXPECT_EQ(f.set->count(), 0);
}

TEST(HostSet, SelectingWhatDoesNotExistSaysSoAndUsesTheAnswer)
{
    SetFixture f;
    f.dialogs.answers = {{ReturnCode::Ok, {1}}, {ReturnCode::NotExist, {}}, {ReturnCode::Fail, {}}};

    EXPECT_EQ(f.set->Select(EntityType::Property, true, ""), ReturnCode::NotExist);
    EXPECT_EQ(f.set->Select(EntityType::Node, true, ""), ReturnCode::NotExist);
    EXPECT_EQ(f.set->Select(EntityType::Node, true, ""), ReturnCode::Fail);
    EXPECT_TRUE(f.dialogs.answers.empty());
    EXPECT_THAT(f.dialogs.asked[0].available, IsEmpty());
}

TEST(HostSet, TheListDialogOffersWhatLivesInTheNamedSet)
{
    SetFixture f;
    auto& model = f.model();
    model.loadSets.put({.id = 1, .definitions = {{.id = 11}}});
    model.loadSets.put({.id = 2, .definitions = {{.id = 21}, {.id = 22}}});
    model.outputSets.put({.id = 1});
    model.outputSets.put({.id = 2}).vectors.put({.id = 31});
    f.dialogs.answers = {{ReturnCode::Ok, {22}}, {ReturnCode::Ok, {31}}, {ReturnCode::Ok, {9}}};

    EXPECT_EQ(f.set->SelectMultiID(EntityType::LoadDefinition, 2, "Select Load Definition "),
              ReturnCode::Ok);
    f.set->SelectMultiID(EntityType::OutputVector, 2, "");
    f.set->SelectMultiID(EntityType::Node, 1, "");

    EXPECT_THAT(f.walk(*f.set), ElementsAre(9, 22, 31));
    EXPECT_EQ(f.dialogs.asked[0].title, "Select Load Definition ");
    EXPECT_THAT(f.dialogs.asked[0].available, ElementsAre(21, 22));
    EXPECT_THAT(f.dialogs.asked[1].available, ElementsAre(31));
    EXPECT_THAT(f.dialogs.asked[2].available, ElementsAre(2, 4, 9));
}

TEST(HostSet, TheListDialogFindsNothingInASetThatIsNotThere)
{
    SetFixture f;
    f.model().loadSets.put({.id = 1, .definitions = {{.id = 11}}});
    f.dialogs.answers = {{ReturnCode::Ok, {11}}};

    EXPECT_EQ(f.set->SelectMultiID(EntityType::LoadDefinition, 0, ""), ReturnCode::NotExist);
    EXPECT_EQ(f.set->SelectMultiID(EntityType::LoadDefinition, 1, ""), ReturnCode::Cancel);
}

TEST(HostSet, AMillionNodesAreCollectedAndWalkedInAMoment)
{
    HostFixture f;
    constexpr int count = 1'000'000;
    for (int id = 1; id <= count; ++id)
        f.model().nodes.put({.id = id});
    const auto start = std::chrono::steady_clock::now();

    const auto set = f.setOf(EntityType::Node);
    const auto node = f.application->entity("Node");
    int loaded = 0;
    for (int id = set->Next(); id != 0; id = set->Next())
        loaded += node->Get(id) == ReturnCode::Ok ? 1 : 0;

    EXPECT_EQ(loaded, count);
    // Generous for slow machines; a walk that is not linear would take hours.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}
