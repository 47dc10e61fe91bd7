#include "femap/embedded/HostFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using femap::EntityType;
using femap::FunctionPoints;
using femap::ReturnCode;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

struct FunctionFixture : HostFixture
{
    FunctionFixture()
    {
        model().functions.put({.id = 3, .title = "Ramp\n1", .x = {0, 1}, .y = {1.5, -2}});
        model().functions.put({.id = 5, .title = "Empty"});
    }
    std::unique_ptr<femap::Function> function = application->feFunction();
};

}  // namespace

TEST(HostFunction, HasDefaultDataBeforeAnythingIsLoaded)
{
    FunctionFixture f;

    EXPECT_EQ(f.function->ID(), 0);
    EXPECT_EQ(f.function->title(), "");
    EXPECT_THAT(f.function->GetFunctionList().x, IsEmpty());
}

TEST(HostFunction, LoadsItsPoints)
{
    FunctionFixture f;

    EXPECT_EQ(f.function->Get(3), ReturnCode::Ok);
    EXPECT_EQ(f.function->ID(), 3);
    EXPECT_EQ(f.function->title(), "Ramp 1");
    const FunctionPoints points = f.function->GetFunctionList();
    EXPECT_THAT(points.x, ElementsAre(0, 1));
    EXPECT_THAT(points.y, ElementsAre(1.5, -2));
    EXPECT_EQ(f.function->Get(0), ReturnCode::Ok);
    EXPECT_EQ(f.function->ID(), 3);
}

TEST(HostFunction, AMissingFunctionLeavesTheOneBefore)
{
    FunctionFixture f;
    f.function->Get(3);

    EXPECT_EQ(f.function->Get(4), ReturnCode::Fail);
    EXPECT_EQ(f.function->ID(), 3);
}

TEST(HostFunction, ThePickedOneIsLoaded)
{
    FunctionFixture f;
    f.dialogs.answers = {{ReturnCode::Ok, {5}}};

    const ReturnCode code = f.function->SelectID("Select Function for Velmar Parameter");

    EXPECT_EQ(code, ReturnCode::Ok);
    EXPECT_EQ(f.function->ID(), 5);
    ASSERT_EQ(f.dialogs.asked.size(), 1U);
    EXPECT_EQ(f.dialogs.asked[0].type, EntityType::Function);
    EXPECT_EQ(f.dialogs.asked[0].title, "Select Function for Velmar Parameter");
    EXPECT_TRUE(f.dialogs.asked[0].onlyOne);
    EXPECT_THAT(f.dialogs.asked[0].available, ElementsAre(3, 5));
}

TEST(HostFunction, APickThatIsCancelledOrFailsLeavesTheOneBefore)
{
    FunctionFixture f;
    f.function->Get(3);
    f.dialogs.answers = {{ReturnCode::Cancel, {}},
                         {ReturnCode::Fail, {}},
                         {ReturnCode::Ok, {}},
                         {ReturnCode::Ok, {99}}};

    EXPECT_EQ(f.function->SelectID(""), ReturnCode::Cancel);
    EXPECT_EQ(f.function->SelectID(""), ReturnCode::Fail);
    EXPECT_EQ(f.function->SelectID(""), ReturnCode::Fail);
    EXPECT_EQ(f.function->SelectID(""), ReturnCode::Fail);
    EXPECT_EQ(f.function->ID(), 3);
}

TEST(HostFunction, WithoutFunctionsAPickFindsNone)
{
    FunctionFixture f;
    f.host.model.emplace();
    f.dialogs.answers = {{ReturnCode::Ok, {3}}, {ReturnCode::NotExist, {}}};

    EXPECT_EQ(f.function->SelectID(""), ReturnCode::NotExist);
    EXPECT_EQ(f.function->SelectID(""), ReturnCode::NotExist);
}
