#include "femap/com/bulk/BulkPut.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

namespace femap::com::bulk
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

enum class PutFlaw
{
    None,
    NoList,
    Refused,
    Ignored,
    Unreadable,
};

// Takes "x" of the entities 1 to 9.
class SmallPutter : public EntityPutter
{
public:
    bool takes(const MemberName& member) override { return member == MemberName{"x"}; }
    std::size_t cost(const std::vector<Number>&) const override { return ownCost; }
    std::vector<int> existing() override
    {
        refuseFor(PutFlaw::NoList);
        return {1, 2, 3, 4, 5, 6, 7, 8, 9};
    }
    void put(const std::vector<Number>& numbers) override
    {
        ++puts;
        refuseFor(PutFlaw::Refused);
        if (flaw != PutFlaw::Ignored)
            for (const Number& each : numbers)
                model[each.id] = each.value;
    }
    Value present(const Number& number) override
    {
        refuseFor(PutFlaw::Unreadable);
        return model[number.id];
    }

    std::size_t ownCost = 6;
    PutFlaw flaw = PutFlaw::None;
    std::map<int, double> model;
    int puts = 0;

private:
    void refuseFor(PutFlaw one) const
    {
        if (flaw == one)
            throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "refused");
    }
};

EntityValue x(int id, Value value)
{
    return {"Node", id, {"x"}, std::move(value)};
}

// What is left, by IDs and members.
std::vector<std::string> shown(const std::vector<EntityValue>& values)
{
    std::vector<std::string> result;
    for (const EntityValue& each : values)
        result.push_back(std::to_string(each.id) + each.member.name);
    return result;
}

const std::vector<EntityValue> threeNodes = {x(1, 0.5), x(2, 1.5), x(3, 2.5)};

class FlawedPut : public testing::TestWithParam<PutFlaw>
{};

INSTANTIATE_TEST_SUITE_P(OfEachSort, FlawedPut,
                         testing::Values(PutFlaw::NoList, PutFlaw::Refused, PutFlaw::Ignored,
                                         PutFlaw::Unreadable));

}  // namespace

TEST(BulkPut, PutsNumbersAtOnceAndReturnsTheRestInItsOrder)
{
    SmallPutter putter;
    Capability capability;
    std::vector<EntityValue> values = threeNodes;
    values.push_back(x(4, std::string(" 12.5")));
    values.push_back(x(5, std::int64_t{7}));
    values.push_back(x(6, true));
    values.push_back(x(7, std::string("wide")));
    values.push_back({"Node", 2, {"layer"}, 1.0});
    values.push_back({"Node", 1, {"layer"}, 1.0});

    EXPECT_THAT(shown(putInBulk(values, putter, capability)),
                ElementsAre("6x", "7x", "2layer", "1layer"));

    EXPECT_THAT(putter.model, ElementsAre(std::pair(1, 0.5), std::pair(2, 1.5), std::pair(3, 2.5),
                                          std::pair(4, 12.5), std::pair(5, 7.0)));
    EXPECT_TRUE(capability.isUsable);
}

TEST(BulkPut, LeavesAloneWhatTakesNoMoreCallsOneByOne)
{
    SmallPutter putter;
    Capability capability;
    const auto puts = [&](const std::vector<EntityValue>& values) {
        putter.puts = 0;
        putInBulk(values, putter, capability);
        return putter.puts == 1;
    };

    putter.ownCost = 9;
    EXPECT_FALSE(puts(threeNodes)) << "loading, putting and storing each";
    putter.ownCost = 8;
    EXPECT_TRUE(puts(threeNodes));
    putter.ownCost = 7;
    std::vector<EntityValue> alsoLayer = threeNodes;
    alsoLayer.push_back({"Node", 2, {"layer"}, 1.0});
    EXPECT_FALSE(puts(alsoLayer)) << "that node is loaded and stored anyway";
    putter.ownCost = 6;
    EXPECT_TRUE(puts(alsoLayer));
    EXPECT_FALSE(puts({}));

    EXPECT_TRUE(capability.isUsable);
}

TEST(BulkPut, LeavesAllToThePlainWayWhereAnEntityIsNotThere)
{
    SmallPutter putter;
    Capability capability;

    EXPECT_THAT(shown(putInBulk(std::vector{x(1, 0.5), x(10, 0.5), x(3, 0.5), x(4, 0.5)}, putter,
                                capability)),
                ElementsAre("1x", "10x", "3x", "4x"));

    EXPECT_THAT(putter.model, IsEmpty());
    EXPECT_TRUE(capability.isUsable);
}

TEST_P(FlawedPut, LeavesAllToThePlainWayFromThenOn)
{
    SmallPutter putter;
    putter.flaw = GetParam();
    Capability capability;

    EXPECT_THAT(shown(putInBulk(threeNodes, putter, capability)), ElementsAre("1x", "2x", "3x"));
    EXPECT_FALSE(capability.isUsable);
    putter.flaw = PutFlaw::None;
    putter.puts = 0;

    EXPECT_THAT(shown(putInBulk(threeNodes, putter, capability)), ElementsAre("1x", "2x", "3x"));
    EXPECT_EQ(putter.puts, 0);
}

}  // namespace femap::com::bulk
