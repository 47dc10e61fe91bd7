#include "femap/embedded/MemberFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using femap::Value;
using femap::embedded::isArrayMember;
using femap::embedded::putMember;

TEST(PutMember, ChangesEveryKindOfValue)
{
    MemberFixture f;
    auto& model = f.model();

    putMember(model, "Node", 7, "X", -1, "-1E-05");
    putMember(model, "Node", 7, "permBC", 5, "True");
    putMember(model, "Node", 7, "permBC", 1, "false");
    putMember(model, "Elem", 8, "node", 19, "77");
    putMember(model, "Elem", 8, "orient", 1, "5");
    putMember(model, "Elem", 8, "MaterialAngle", -1, "45");
    putMember(model, "Prop", 12, "title", -1, "Träger Ø12");
    putMember(model, "Prop", 12, "color", -1, "9");
    putMember(model, "Matl", 3, "Density", -1, "7.85");

    EXPECT_EQ(model.nodes.find(7)->x, -1E-05);
    EXPECT_TRUE(model.nodes.find(7)->permBC[5]);
    EXPECT_FALSE(model.nodes.find(7)->permBC[1]);
    EXPECT_EQ(model.elements.find(8)->node[19], 77);
    EXPECT_EQ(model.elements.find(8)->orient[1], 5);
    EXPECT_EQ(model.elements.find(8)->orient[0], 45);
    EXPECT_EQ(model.properties.find(12)->title, "Träger Ø12");
    EXPECT_EQ(model.properties.find(12)->color, 9);
    EXPECT_EQ(model.materials.find(3)->mval[49], 7.85);
}

TEST(PutMember, APlaceThatTheFileDidNotCarryIsAdded)
{
    MemberFixture f;

    putMember(f.model(), "Prop", 12, "pval", 7, "0.5");

    const auto property = f.loaded("Prop", 12);
    EXPECT_EQ(property->member("pval", 7), Value(0.5));
    EXPECT_EQ(property->member("pval", 6), Value(0.0));
    EXPECT_EQ(property->member("pval", 0), Value(0.125));
}

TEST(PutMember, RefusesWhatIsNotThere)
{
    MemberFixture f;
    auto& model = f.model();

    EXPECT_EQ(complaintOf([&] { putMember(model, "Rigid", 1, "x", -1, "1"); }),
              "FEMAP has no object feRigid");
    EXPECT_EQ(complaintOf([&] { putMember(model, "Node", 1, "x", -1, "1"); }),
              "FEMAP has no Node with the ID 1");
    EXPECT_EQ(complaintOf([&] { putMember(model, "Node", 7, "w", -1, "1"); }),
              "feNode has no member w");
    EXPECT_EQ(complaintOf([&] { putMember(model, "Elem", 8, "orient", 3, "1"); }),
              "orient of feElem has no place 3");
    EXPECT_EQ(complaintOf([&] { putMember(model, "Elem", 8, "orient", -2, "1"); }),
              "orient of feElem has no place -2");
    EXPECT_EQ(complaintOf([&] { putMember(model, "Elem", 8, "orient", -1, "1"); }),
              "orient of feElem needs an index");
    EXPECT_EQ(complaintOf([&] { putMember(model, "Node", 7, "x", 0, "1"); }),
              "x of feNode takes no index");
}

TEST(PutMember, RefusesToChangeAnID)
{
    MemberFixture f;

    EXPECT_EQ(complaintOf([&] { putMember(f.model(), "Node", 7, "ID", -1, "8"); }),
              "ID of feNode 7 cannot be changed");
    EXPECT_EQ(complaintOf([&] { putMember(f.model(), "Elem", 9, "MaterialAngle", -1, "8"); }),
              "MaterialAngle of feElem 9 cannot be changed");
}

TEST(PutMember, RefusesAValueThatDoesNotFit)
{
    MemberFixture f;
    auto& model = f.model();
    const auto put = [&](const std::string& member, int index, const std::string& value) {
        return complaintOf([&] { putMember(model, "Node", 7, member, index, value); });
    };

    EXPECT_EQ(put("x", -1, "1,5"), "\"1,5\" is no number");
    EXPECT_EQ(put("x", -1, ""), "\"\" is no number");
    EXPECT_EQ(put("x", -1, "1E999"), "\"1E999\" is no number");
    EXPECT_EQ(put("x", -1, "nan"), "\"nan\" is no number");
    EXPECT_EQ(put("color", -1, "1.5"), "\"1.5\" is no whole number");
    EXPECT_EQ(put("permBC", 0, "yes"), "\"yes\" is no True or False");
    EXPECT_EQ(model.nodes.find(7)->x, 1.5);
}

TEST(IsArrayMember, TellsWhichMembersTakeAnIndex)
{
    EXPECT_TRUE(isArrayMember("Prop", "pval"));
    EXPECT_TRUE(isArrayMember("elem", "NODE"));
    EXPECT_FALSE(isArrayMember("Elem", "MaterialAngle"));
    EXPECT_FALSE(isArrayMember("Matl", "Ex"));
    EXPECT_FALSE(isArrayMember("Node", "x"));
    EXPECT_FALSE(isArrayMember("Node", "none"));
    EXPECT_TRUE(errorOf([] { isArrayMember("Rigid", "x"); }));
}
