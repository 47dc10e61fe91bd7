// What a client puts into the stand-in's model, and what becomes of it.
#include "standin/StandinHere.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace comtest
{

using femap::com::Dispatch;
using femap::com::Variant;
using standin::Mode;
using testing::ElementsAre;

namespace
{

constexpr int done = -1;
constexpr int notDone = 0;
constexpr int notThere = 4;

struct PutCase
{
    const char* name;
    const char* object;
    int id;
    const char* member;
    std::optional<int> index;
    double value;
};

class PutOf : public testing::TestWithParam<PutCase>
{
protected:
    double read(Dispatch& entity)
    {
        const PutCase& each = GetParam();
        return (each.index ? entity.call(each.member, *each.index) : entity.call(each.member))
            .real();
    }
    void put(Dispatch& entity)
    {
        const PutCase& each = GetParam();
        if (each.index)
            entity.put(each.member, *each.index, each.value);
        else
            entity.put(each.member, each.value);
    }

    StandinHere here;
};

INSTANTIATE_TEST_SUITE_P(
    EachKind, PutOf,
    testing::Values(PutCase{"Coordinate", "feNode", 1, "x", std::nullopt, 0.125},
                    PutCase{"Layer", "feNode", 1, "layer", std::nullopt, 3},
                    PutCase{"Orientation", "feElem", 1, "orient", 0, 30.5},
                    PutCase{"PlaceOfProperty", "feProp", 1, "pval", 7, 2.5},
                    PutCase{"MaterialOfProperty", "feProp", 1, "matlID", std::nullopt, 2},
                    PutCase{"NumberOfMaterial", "feMatl", 1, "Damping", std::nullopt, 0.03},
                    PutCase{"PlaceOfMaterial", "feMatl", 1, "mval", 49, 7.85}),
    [](const testing::TestParamInfo<PutCase>& each) { return std::string(each.param.name); });

// The first load of the definition that has that type of data.
std::pair<Dispatch, Dispatch> firstLoad(StandinHere& here, int dataType)
{
    for (int id = 1; id < 20; ++id) {
        Dispatch definition = here.object("feLoadDefinition");
        if (definition.call("Get", id).number() != done ||
            definition.call("dataType").number() != dataType)
            continue;
        IDispatch* load = nullptr;
        EXPECT_EQ(definition.call("NextLoad", &load).number(), done);
        Dispatch adopted = definition.adopt(load, "load " + std::to_string(dataType));
        return {std::move(definition), std::move(adopted)};
    }
    throw std::logic_error("the model has no such loads");
}

}  // namespace

TEST_P(PutOf, AValueReachesTheModelWhenTheEntityIsStored)
{
    const PutCase& each = GetParam();
    Dispatch entity = here.loaded(each.object, each.id);
    const double before = read(entity);
    ASSERT_NE(before, each.value);

    put(entity);
    EXPECT_EQ(read(entity), each.value);
    Dispatch meanwhile = here.loaded(each.object, each.id);
    EXPECT_EQ(read(meanwhile), before);
    EXPECT_EQ(here.femap.call("feFileIsModified").number(), notDone);

    EXPECT_EQ(entity.call("Put", each.id).number(), done);
    Dispatch after = here.loaded(each.object, each.id);
    EXPECT_EQ(read(after), each.value);
    EXPECT_EQ(here.femap.call("feFileIsModified").number(), done);
}

TEST_P(PutOf, AValueThatIsRefusedOrIgnoredStaysOutOfTheModel)
{
    const PutCase& each = GetParam();
    Dispatch entity = here.loaded(each.object, each.id);
    const double before = read(entity);
    const std::string property = std::string(each.object) + '.' + each.member;
    const std::string method = std::string(each.object) + ".Put";
    const auto fault = [&](const std::string& member, const char* how) {
        return here.femap.call("standinFault", member, how).number();
    };

    EXPECT_EQ(fault(property, "refused"), done);
    EXPECT_THROW(put(entity), sys::RuntimeError);
    EXPECT_EQ(fault(property, "ignored"), done);
    put(entity);
    EXPECT_EQ(read(entity), before);
    fault(property, "none");
    put(entity);
    fault(method, "fails");
    EXPECT_EQ(entity.call("Put", each.id).number(), notDone);
    fault(method, "ignored");
    EXPECT_EQ(entity.call("Put", each.id).number(), done);
    fault(method, "raises");
    EXPECT_THROW(entity.call("Put", each.id), sys::RuntimeError);

    Dispatch after = here.loaded(each.object, each.id);
    EXPECT_EQ(read(after), before);
    EXPECT_EQ(here.femap.call("feFileIsModified").number(), notDone);
}

TEST(PutOfAnIndex, BeyondTheArrayIsRefusedOrDoesNothing)
{
    StandinHere raises;
    StandinHere ignores({Mode::BeyondIsZero});

    Dispatch refused = raises.loaded("feElem", 1);
    EXPECT_THROW(refused.put("orient", 3, 1.0), sys::RuntimeError);
    EXPECT_THROW(refused.put("offset", 0, 3, 1.0), sys::RuntimeError);
    Dispatch silent = ignores.loaded("feElem", 1);
    silent.put("orient", 3, 1.0);
    silent.put("offset", 1, 1, 0.75);

    EXPECT_EQ(silent.call("orient", 0).real(), refused.call("orient", 0).real());
    EXPECT_EQ(silent.call("offset", 1, 1).real(), 0.75);
}

TEST(PutOfAWholeArray, FillsItFromItsBeginning)
{
    StandinHere here;
    Dispatch property = here.loaded("feProp", 1);
    const std::vector<double> before = property.call("vpval").reals();
    Dispatch element = here.loaded("feElem", 1);

    property.put("vpval", std::vector<double>{0.5, 0.25});
    element.put("vnode", std::vector<int>{5, 6});
    property.call("Put", 1);

    const std::vector<double> after = here.loaded("feProp", 1).call("vpval").reals();
    EXPECT_EQ(after[0], 0.5);
    EXPECT_EQ(after[1], 0.25);
    EXPECT_EQ(std::vector<double>(after.begin() + 2, after.end()),
              std::vector<double>(before.begin() + 2, before.end()));
    EXPECT_EQ(element.call("Node", 1).number(), 6);
}

TEST(PutOfManyEntities, WritesCoordinatesAtOnce)
{
    StandinHere here;
    Dispatch node = here.object("feNode");
    const int layer = here.loaded("feNode", 2).call("layer").number();

    EXPECT_EQ(node.call("PutCoordArray", 2, std::vector<int>{2, 99'999},
                        std::vector<double>{1, 2, 3, 4, 5, 6})
                  .number(),
              done);

    EXPECT_EQ(here.loaded("feNode", 2).call("z").real(), 3);
    EXPECT_EQ(here.loaded("feNode", 2).call("layer").number(), layer);
    EXPECT_EQ(here.loaded("feNode", 99'999).call("x").real(), 4);
    EXPECT_EQ(here.femap.call("feFileIsModified").number(), done);
    const std::vector<double> tooShort = {1, 2};
    EXPECT_EQ(node.call("PutCoordArray", 1, std::vector<int>{2}, tooShort).number(), notDone);
    EXPECT_EQ(
        node.call("PutCoordArray", 1, std::vector<int>{0}, std::vector<double>{1, 2, 3}).number(),
        notDone);
}

TEST(PutOfManyEntities, WritesAnyMixOfPlacesOrNone)
{
    StandinHere here;
    for (const char* const kind : {"feProp", "feMatl"}) {
        const std::string array = kind == std::string("feProp") ? "pval" : "mval";
        Dispatch entity = here.object(kind);
        const auto put = [&](const std::vector<int>& ids, const std::vector<int>& places) {
            return entity.call("PutValueArray", 2, ids, places, std::vector<double>{0.5, 2.5})
                .number();
        };
        const auto value = [&](int id, int place) {
            return here.loaded(kind, id).call(array, place).real();
        };

        EXPECT_EQ(put({1, 2}, {3, 9}), done) << kind;
        EXPECT_EQ(value(1, 3), 0.5);
        EXPECT_EQ(value(2, 9), 2.5);
        const double before = value(1, 4);
        EXPECT_EQ(put({1, 9999}, {4, 4}), notThere);
        EXPECT_EQ(put({1, 1}, {4, 5000}), notDone);
        EXPECT_EQ(put({1, 1}, {4, -1}), notDone);
        EXPECT_EQ(put({1}, {4}), notDone);
        EXPECT_EQ(value(1, 4), before);
    }
}

TEST(PutOfManyEntities, WritesOnePlaceOfASetOfOneOrOfAll)
{
    StandinHere here;
    for (const char* const kind : {"feProp", "feMatl"}) {
        const std::string array = kind == std::string("feProp") ? "pval" : "mval";
        Dispatch entity = here.object(kind);
        Dispatch set = here.object("feSet");
        const auto value = [&](int id) { return here.loaded(kind, id).call(array, 11).real(); };
        const auto put = [&](int ids, double number) {
            return entity.call("PutValue", ids, 11, number).number();
        };

        EXPECT_EQ(put(0, 0.5), done) << kind;
        EXPECT_EQ(put(-1, 1.5), done);
        set.call("Add", 2);
        EXPECT_EQ(put(set.call("ID").number(), 2.5), done);
        EXPECT_EQ(value(1), 1.5);
        EXPECT_EQ(value(2), 2.5);
        EXPECT_EQ(put(0, 0.5), done);
        EXPECT_EQ(value(2), 0.5);
        EXPECT_EQ(put(-9999, 1), notThere);
        set.call("clear");
        EXPECT_EQ(put(set.call("ID").number(), 1), notThere);
    }
}

TEST(PutOfAFunction, StoresItsPoints)
{
    StandinHere here;
    StandinHere wraps({Mode::VariantArrays});
    for (StandinHere* const each : {&here, &wraps}) {
        Dispatch function = each->loaded("feFunction", 1);
        LONG count = 0;
        Variant x;
        Variant y;
        function.call("GetFunctionList", &count, &x, &y);
        std::vector<double> higher = y.reals();
        ASSERT_GT(higher.size(), 1U);
        for (double& point : higher)
            point += 1;

        EXPECT_EQ(
            function.call("PutFunctionList", static_cast<int>(count), x.reals(), higher).number(),
            done);
        function.put("title", "Higher");
        EXPECT_EQ(function.call("PutFunctionList", static_cast<int>(count) + 1, x.reals(), higher)
                      .number(),
                  notDone);
        EXPECT_EQ(function.call("Put", 0).number(), done);

        Dispatch again = each->loaded("feFunction", 1);
        again.call("GetFunctionList", &count, &x, &y);
        EXPECT_EQ(y.reals(), higher);
        EXPECT_EQ(again.call("title").text(), "Higher");
        EXPECT_EQ(each->femap.call("feFileIsModified").number(), done);
    }
}

TEST(PutOfALoad, StoresItInItsDefinition)
{
    StandinHere here;
    for (const int dataType : {13, 14}) {
        auto [definition, load] = firstLoad(here, dataType);
        const int id = load.call("ID").number();

        load.put("load", 0, 12.5);
        EXPECT_NE(firstLoad(here, dataType).second.call("load", 0).real(), 12.5);
        EXPECT_EQ(load.call("Put", id).number(), done);

        EXPECT_EQ(firstLoad(here, dataType).second.call("load", 0).real(), 12.5);
        load.put("vload", std::vector<double>{1, 2, 3, 4, 5});
        load.call("Put", 0);
        EXPECT_THAT(firstLoad(here, dataType).second.call("vload").reals(),
                    ElementsAre(1, 2, 3, 4, 5));
    }
    for (const int dataType : {15, 16}) {
        auto [definition, load] = firstLoad(here, dataType);

        load.put("temp", -40.5);
        EXPECT_EQ(load.call("Put", load.call("ID").number()).number(), done);

        EXPECT_EQ(firstLoad(here, dataType).second.call("temp").real(), -40.5);
    }
}

TEST(PutOfALoadDefinition, ChangesItsTitleInTheLoadSet)
{
    StandinHere here;
    Dispatch definition = here.loaded("feLoadDefinition", 1);
    const int loads = definition.call("CountLoads").number();

    definition.put("title", "Gust");
    EXPECT_EQ(definition.call("Put", 0).number(), done);

    Dispatch again = here.loaded("feLoadDefinition", 1);
    EXPECT_EQ(again.call("title").text(), "Gust");
    EXPECT_EQ(again.call("CountLoads").number(), loads);
    definition.put("setID", 99);
    EXPECT_EQ(definition.call("Put", 0).number(), notDone);
}

}  // namespace comtest
