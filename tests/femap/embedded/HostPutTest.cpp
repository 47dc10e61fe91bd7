// What is put into the host's objects, and from there into its model.
#include "femap/embedded/HostEntity.h"
#include "femap/embedded/HostObjects.h"
#include "femap/embedded/MemberFixture.h"
#include "femap/embedded/PutLoadFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using femap::ReturnCode;
using femap::Value;
using femap::embedded::HostEntity;
using femap::embedded::HostFunction;
using testing::ElementsAre;

namespace
{

template <class Data>
struct PutFixture : MemberFixture
{
    HostEntity<Data> entity{host};
};

}  // namespace

TEST(HostEntityPut, ReachesTheModelOnlyWhenTheEntityIsStored)
{
    PutFixture<femap::neutral::Node> f;
    f.entity.Get(7);

    f.entity.put("X", std::nullopt, -0.125);
    f.entity.put("permBC", 5, true);
    EXPECT_EQ(f.entity.member("x"), Value(-0.125));
    EXPECT_EQ(f.model().nodes.find(7)->x, 1.5);
    EXPECT_FALSE(f.host.isModified);

    EXPECT_EQ(f.entity.Put(7), ReturnCode::Ok);
    EXPECT_EQ(f.model().nodes.find(7)->x, -0.125);
    EXPECT_TRUE(f.model().nodes.find(7)->permBC[5]);
    EXPECT_TRUE(f.host.isModified);
}

TEST(HostEntityPut, StoresUnderTheGivenIDOrItsOwn)
{
    PutFixture<femap::neutral::Property> f;
    EXPECT_EQ(f.entity.Put(0), ReturnCode::Fail);
    EXPECT_EQ(f.entity.Put(-4), ReturnCode::Fail);
    EXPECT_FALSE(f.host.isModified);
    f.entity.Get(12);
    f.entity.put("pval", 7, 0.5);

    EXPECT_EQ(f.entity.Put(13), ReturnCode::Ok);
    EXPECT_THAT(f.model().properties.ids(), ElementsAre(12, 13));
    EXPECT_EQ(f.model().properties.find(13)->pval[7], 0.5);
    EXPECT_EQ(f.model().properties.find(12)->pval.size(), 2U);

    f.entity.put("ID", std::nullopt, std::int64_t{14});
    EXPECT_EQ(f.entity.Put(0), ReturnCode::Ok);
    EXPECT_THAT(f.model().properties.ids(), ElementsAre(12, 13, 14));
}

TEST(HostEntityPut, KeepsEveryDigitAndTheControlCharactersOfATitle)
{
    PutFixture<femap::neutral::Material> f;
    f.entity.Get(3);
    const double number = 0.1 + 0.2;

    f.entity.put("Damping", std::nullopt, number);
    f.entity.put("mval", 99, -1e-300);
    f.entity.put("title", std::nullopt, std::string("a\tb"));
    f.entity.Put(0);

    EXPECT_EQ(f.loaded("Matl", 3)->member("Damping"), Value(number));
    EXPECT_EQ(f.model().materials.find(3)->mval[99], -1e-300);
    EXPECT_EQ(f.model().materials.find(3)->title, "a\tb");
}

TEST(HostEntityPut, RefusesWhatDoesNotFit)
{
    PutFixture<femap::neutral::Element> f;
    f.entity.Get(9);
    const auto put = [&](const std::string& member, std::optional<int> index, const Value& value) {
        return complaintOf([&] { f.entity.put(member, index, value); });
    };

    EXPECT_EQ(put("w", std::nullopt, 1.0), "feElem has no member w");
    EXPECT_EQ(put("orient", 3, 1.0), "orient of feElem has no place 3");
    EXPECT_EQ(put("orient", std::nullopt, 1.0), "orient of feElem needs an index");
    EXPECT_EQ(put("propID", std::nullopt, 1.5), "\"1.5\" is no whole number");
    EXPECT_EQ(put("MaterialAngle", std::nullopt, 1.0),
              "MaterialAngle of feElem 9 cannot be changed");
    f.host.indexBeyondArrayRaises = false;
    EXPECT_EQ(put("orient", 3, 1.0), "");
    EXPECT_EQ(f.entity.member("orient", 0), Value(1.0));
}

TEST(HostFunctionPut, StoresPointsInTheModel)
{
    HostFixture f;
    f.model().functions.put({.id = 3, .title = "Time", .x = {0, 1}, .y = {5, 6}});
    HostFunction function(f.host);
    EXPECT_EQ(function.Put(0), ReturnCode::Fail);
    function.Get(3);

    EXPECT_EQ(function.PutFunctionList({{1}, {}}), ReturnCode::Fail);
    EXPECT_EQ(function.PutFunctionList({{0, 1, 2}, {7, 8, 9}}), ReturnCode::Ok);
    EXPECT_THAT(f.model().functions.find(3)->y, ElementsAre(5, 6));
    EXPECT_EQ(function.Put(0), ReturnCode::Ok);

    EXPECT_THAT(f.model().functions.find(3)->x, ElementsAre(0, 1, 2));
    EXPECT_THAT(f.model().functions.find(3)->y, ElementsAre(7, 8, 9));
    EXPECT_EQ(f.model().functions.find(3)->title, "Time");
    EXPECT_TRUE(f.host.isModified);
}

TEST(HostLoadPut, ReachesTheLoadSetWhenTheLoadIsStored)
{
    PutLoadFixture f;
    const auto load = f.firstOf(1);

    load->put("load", 1, 8.5);
    load->put("phase", std::nullopt, 45.0);
    EXPECT_EQ(f.set().meshLoads[0].load[1], 6);
    EXPECT_EQ(load->Put(1), ReturnCode::Ok);

    EXPECT_THAT(f.set().meshLoads[0].load, ElementsAre(5, 8.5, 0, 0, 0));
    const auto again = f.firstOf(1);
    EXPECT_EQ(again->member("load", 1), Value(8.5));
    EXPECT_EQ(again->member("phase"), Value(45.0));
    EXPECT_TRUE(f.host.isModified);
}

TEST(HostLoadPut, StoresANewLoadUnderAnotherID)
{
    PutLoadFixture f;
    const auto load = f.firstOf(1);

    load->put("meshID", std::nullopt, std::int64_t{12});
    EXPECT_EQ(load->Put(4), ReturnCode::Ok);

    EXPECT_EQ(f.set().meshLoads.size(), 2U);
    EXPECT_EQ(f.set().meshLoads[1].id, 4);
    EXPECT_EQ(f.set().meshLoads[1].entityID, 12);
    load->put("setID", std::nullopt, std::int64_t{77});
    EXPECT_EQ(load->Put(4), ReturnCode::Fail);
}

TEST(HostLoadPut, TakesATemperatureForTheValueThatItIs)
{
    PutLoadFixture f;
    const auto convection = f.firstOf(2);

    convection->put("temp", std::nullopt, 310.0);
    convection->Put(0);
    EXPECT_THAT(f.set().geometryLoads[0].load, ElementsAre(12.5, 310, 0, 0, 0));
    convection->put("load", 1, 320.0);
    EXPECT_EQ(convection->member("temp"), Value(320.0));

    EXPECT_EQ(complaintOf([&] { f.firstOf(1)->put("temp", std::nullopt, 1.0); }),
              "temp of feLoadMesh 1 cannot be changed");
}

TEST(HostLoadPut, TellsTemperaturesOfOneNodeApartByTheirDefinitions)
{
    PutLoadFixture f;
    const auto nodal = f.firstOf(5);
    const auto elemental = f.firstOf(4);

    nodal->put("temp", std::nullopt, 75.0);
    elemental->put("gradient", std::nullopt, 0.5);

    EXPECT_EQ(nodal->Put(0), ReturnCode::Ok);
    EXPECT_EQ(elemental->Put(41), ReturnCode::Ok);
    EXPECT_EQ(f.set().nodalTemperatures[0].temp, 20.5);
    EXPECT_EQ(f.set().nodalTemperatures[1].temp, 75);
    EXPECT_EQ(f.firstOf(4)->member("gradient"), Value(0.5));
    EXPECT_EQ(f.set().elementTemperatures.size(), 1U);
}

TEST(HostLoadDefinitionPut, ChangesOneOrAddsIt)
{
    PutLoadFixture f;

    EXPECT_EQ(f.definition.Put(2, {.id = 5, .title = "Hot", .dataType = 15, .loadType = 9}),
              ReturnCode::Ok);
    EXPECT_EQ(f.definition.Put(2, {.id = 9, .title = "New", .dataType = 13, .loadType = 1}),
              ReturnCode::Ok);

    EXPECT_EQ(f.set().definitions.size(), 6U);
    EXPECT_EQ(f.set().definitions[4].title, "Hot");
    EXPECT_EQ(f.set().definitions[5].title, "New");
    EXPECT_TRUE(f.host.isModified);
    EXPECT_EQ(f.definition.Put(1, {.id = 1}), ReturnCode::Fail);
    EXPECT_EQ(f.definition.Put(2, {.id = 0}), ReturnCode::Fail);
}
