#include "femap/embedded/MemberFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

using femap::ReturnCode;
using femap::Value;
using femap::embedded::putMember;
using sys::ErrorNumber;

namespace
{

struct PlaceOfMaterial
{
    const char* name;
    int place;
};

// clang-format off
constexpr std::array materialIndices = {
    PlaceOfMaterial{"Ex", 0}, PlaceOfMaterial{"Ey", 1}, PlaceOfMaterial{"Ez", 2},
    PlaceOfMaterial{"Gx", 3}, PlaceOfMaterial{"Gy", 4}, PlaceOfMaterial{"Gz", 5},
    PlaceOfMaterial{"Nuxy", 6}, PlaceOfMaterial{"Nuyz", 7}, PlaceOfMaterial{"Nuxz", 8},
    PlaceOfMaterial{"Alphaxx", 36}, PlaceOfMaterial{"Alphaxy", 37}, PlaceOfMaterial{"Alphazx", 38},
    PlaceOfMaterial{"Alphayy", 39}, PlaceOfMaterial{"Alphayz", 40}, PlaceOfMaterial{"Alphazz", 41},
    PlaceOfMaterial{"Kxx", 42}, PlaceOfMaterial{"Kxy", 43}, PlaceOfMaterial{"Kzx", 44},
    PlaceOfMaterial{"Kyy", 45}, PlaceOfMaterial{"Kyz", 46}, PlaceOfMaterial{"Kzz", 47},
    PlaceOfMaterial{"Cp", 48}, PlaceOfMaterial{"Density", 49}, PlaceOfMaterial{"Damping", 50},
    PlaceOfMaterial{"RefTemp", 51}, PlaceOfMaterial{"TensionLimit1", 52},
    PlaceOfMaterial{"TensionLimit2", 53}, PlaceOfMaterial{"CompressionLimit1", 54},
    PlaceOfMaterial{"CompressionLimit2", 55}, PlaceOfMaterial{"ShearLimit", 56},
    PlaceOfMaterial{"TsaiWu", 57},
};
// clang-format on

}  // namespace

TEST(Members, OfANode)
{
    MemberFixture f;
    const auto node = f.loaded("Node", 7);

    EXPECT_EQ(node->Type(), 5);
    EXPECT_EQ(node->member("ID"), whole(7));
    EXPECT_EQ(node->member("x"), Value(1.5));
    EXPECT_EQ(node->member("y"), Value(2.5));
    EXPECT_EQ(node->member("z"), Value(3.5));
    EXPECT_EQ(node->member("defCSys"), whole(1));
    EXPECT_EQ(node->member("outCSys"), whole(2));
    EXPECT_EQ(node->member("layer"), whole(3));
    EXPECT_EQ(node->member("color"), whole(4));
    EXPECT_EQ(node->member("type"), whole(5));
    EXPECT_EQ(node->member("permBC", 0), Value(false));
    EXPECT_EQ(node->member("permBC", 1), Value(true));
}

TEST(Members, OfAnElement)
{
    MemberFixture f;
    const auto element = f.loaded("Elem", 8);

    EXPECT_EQ(element->Type(), femap::elementPlate);
    EXPECT_EQ(element->member("ID"), whole(8));
    EXPECT_EQ(element->member("color"), whole(1));
    EXPECT_EQ(element->member("propID"), whole(2));
    EXPECT_EQ(element->member("type"), whole(17));
    EXPECT_EQ(element->member("topology"), whole(4));
    EXPECT_EQ(element->member("layer"), whole(5));
    EXPECT_EQ(element->member("orientID"), whole(6));
    EXPECT_EQ(element->member("geomID"), whole(9));
    EXPECT_EQ(element->member("node", 0), whole(11));
    EXPECT_EQ(element->member("node", 3), whole(14));
    EXPECT_EQ(element->member("node", 4), whole(0));
    EXPECT_EQ(element->member("orient", 2), Value(32.0));
    EXPECT_EQ(element->member("offset", 5), Value(0.75));
    EXPECT_EQ(element->member("PlateOffset"), Value(0.25));
}

TEST(Members, OnlyPlanarElementsHaveAMaterialAngle)
{
    MemberFixture f;

    EXPECT_EQ(f.loaded("Elem", 8)->member("MaterialAngle"), Value(30.0));
    EXPECT_EQ(f.loaded("Elem", 9)->member("MaterialAngle"), Value(0.0));
    putMember(f.model(), "Elem", 9, "type", -1, "25");
    EXPECT_EQ(f.loaded("Elem", 9)->member("MaterialAngle"), Value(0.0));
}

TEST(Members, OfAProperty)
{
    MemberFixture f;
    const auto property = f.loaded("Prop", 12);

    EXPECT_EQ(property->Type(), 17);
    EXPECT_EQ(property->member("ID"), whole(12));
    EXPECT_EQ(property->member("title"), Value("Skin left"));
    EXPECT_EQ(property->member("Color"), whole(1));
    EXPECT_EQ(property->member("matlID"), whole(2));
    EXPECT_EQ(property->member("type"), whole(17));
    EXPECT_EQ(property->member("layer"), whole(4));
    EXPECT_EQ(property->member("refCS"), whole(5));
    EXPECT_EQ(property->member("pval", 0), Value(0.125));
    EXPECT_EQ(property->member("pval", 1), Value(0.5));
}

TEST(Members, APropertyHasTwoHundredPlacesWhateverTheFileCarried)
{
    MemberFixture f;
    const auto property = f.loaded("Prop", 12);

    EXPECT_EQ(property->member("pval", 2), Value(0.0));
    EXPECT_EQ(property->member("pval", 199), Value(0.0));
    EXPECT_EQ(complaintOf([&] { property->member("pval", 200); }),
              "pval of feProp has no place 200");
}

TEST(Members, OfAMaterial)
{
    MemberFixture f;
    const auto material = f.loaded("Matl", 3);

    EXPECT_EQ(material->Type(), 2);
    EXPECT_EQ(material->member("ID"), whole(3));
    EXPECT_EQ(material->member("title"), Value("Steel"));
    EXPECT_EQ(material->member("color"), whole(1));
    EXPECT_EQ(material->member("type"), whole(2));
    EXPECT_EQ(material->member("subtype"), whole(4));
    EXPECT_EQ(material->member("layer"), whole(5));
    EXPECT_EQ(material->member("mval", 199), Value(199.5));
}

TEST(Members, OfAMaterialByTheirNames)
{
    MemberFixture f;
    const auto material = f.loaded("Matl", 3);

    for (const PlaceOfMaterial& one : materialIndices)
        EXPECT_EQ(material->member(one.name), Value(one.place + 0.5)) << one.name;
}

TEST(Members, TwoNamesThatFemapLacksAreUnknown)
{
    MemberFixture f;
    const auto material = f.loaded("Matl", 3);

    const auto error = errorOf([&] { material->member("Alphaxz"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), ErrorNumber::NoSuchMember);
    EXPECT_EQ(error->description(), "feMatl has no member Alphaxz");
    EXPECT_EQ(complaintOf([&] { material->member("Kxz"); }), "feMatl has no member Kxz");
}

TEST(Members, NamesAreTheSameInEitherCase)
{
    MemberFixture f;

    EXPECT_EQ(f.loaded("ELEM", 8)->member("PROPid"), whole(2));
    EXPECT_EQ(f.loaded("matl", 3)->member("tsaiwu"), Value(57.5));
    EXPECT_EQ(complaintOf([&] { f.loaded("Node", 7)->member("xx"); }), "feNode has no member xx");
}

TEST(Members, AnIndexTooManyOrTooFewIsRefused)
{
    MemberFixture f;
    const auto element = f.loaded("Elem", 8);

    const auto missing = errorOf([&] { element->member("node"); });
    const auto needless = errorOf([&] { element->member("MaterialAngle", 0); });

    ASSERT_TRUE(missing);
    EXPECT_EQ(missing->number(), ErrorNumber::InvalidCall);
    EXPECT_EQ(missing->description(), "node of feElem needs an index");
    ASSERT_TRUE(needless);
    EXPECT_EQ(needless->number(), ErrorNumber::InvalidCall);
    EXPECT_EQ(needless->description(), "MaterialAngle of feElem takes no index");
    EXPECT_EQ(complaintOf([&] { element->member("color", 0); }), "color of feElem takes no index");
}

TEST(Members, AnIndexBeyondTheArrayRaises)
{
    MemberFixture f;
    const auto element = f.loaded("Elem", 8);

    const auto error = errorOf([&] { element->member("orient", 11); });

    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(error->description(), "orient of feElem has no place 11");
    EXPECT_EQ(complaintOf([&] { element->member("node", -1); }), "node of feElem has no place -1");
}

TEST(Members, AnIndexBeyondTheArrayReadsAsZeroWhereTheHostIsToldSo)
{
    MemberFixture f;
    f.host.indexBeyondArrayRaises = false;

    EXPECT_EQ(f.loaded("Elem", 8)->member("orient", 11), Value(0.0));
    EXPECT_EQ(f.loaded("Elem", 8)->member("node", 20), whole(0));
    EXPECT_EQ(f.loaded("Elem", 8)->member("node", -1), whole(0));
    EXPECT_EQ(f.loaded("Node", 7)->member("permBC", 6), Value(false));
    EXPECT_EQ(f.loaded("Prop", 12)->member("pval", 200), Value(0.0));
}

TEST(Entity, AnUnknownWordIsRefused)
{
    MemberFixture f;

    const auto error = errorOf([&] { f.application->entity("LoadMesh"); });

    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), ErrorNumber::NoSuchMember);
    EXPECT_EQ(error->description(), "FEMAP has no object feLoadMesh");
}

TEST(Entity, HasDefaultDataBeforeAnythingIsLoaded)
{
    MemberFixture f;
    const auto node = f.application->entity("Node");

    EXPECT_EQ(node->member("ID"), whole(0));
    EXPECT_EQ(node->member("x"), Value(0.0));
    EXPECT_EQ(node->Type(), 0);
}

TEST(Entity, AMissingIDLeavesTheOneBefore)
{
    MemberFixture f;
    const auto node = f.loaded("Node", 7);

    EXPECT_EQ(node->Get(99), ReturnCode::Fail);
    EXPECT_EQ(node->member("ID"), whole(7));
    EXPECT_EQ(node->Get(0), ReturnCode::Ok);
    EXPECT_EQ(node->member("ID"), whole(7));
}

TEST(Entity, TwoObjectsDoNotShareWhatTheyLoaded)
{
    MemberFixture f;
    const auto plate = f.loaded("Elem", 8);
    const auto beam = f.loaded("Elem", 9);

    EXPECT_EQ(plate->member("ID"), whole(8));
    EXPECT_EQ(beam->member("ID"), whole(9));
}

TEST(Entity, KeepsItsDataWhenTheModelGoesAndSeesChangesWhenLoadedAgain)
{
    MemberFixture f;
    const auto property = f.loaded("Prop", 12);

    putMember(f.model(), "Prop", 12, "pval", 0, "0.75");

    EXPECT_EQ(property->member("pval", 0), Value(0.125));
    property->Get(12);
    EXPECT_EQ(property->member("pval", 0), Value(0.75));
    f.host.model.reset();
    EXPECT_EQ(property->member("pval", 0), Value(0.75));
}
