#include "femap/com/Variant.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace comtest
{

using femap::Value;
using femap::com::Variant;
using sys::RuntimeError;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Variant, HoldsEachTypeAsComNamesIt)
{
    LONG number = 0;
    double real = 0;
    Variant any;

    EXPECT_EQ(Variant(3).raw()->vt, VT_I4);
    EXPECT_EQ(Variant(3.5).raw()->vt, VT_R8);
    EXPECT_EQ(Variant(true).raw()->boolVal, VARIANT_TRUE);
    EXPECT_EQ(Variant("x").raw()->vt, VT_BSTR);
    EXPECT_EQ(Variant(std::vector<int>{1}).raw()->vt, VT_ARRAY | VT_I4);
    EXPECT_EQ(Variant(std::vector<double>{1}).raw()->vt, VT_ARRAY | VT_R8);
    EXPECT_EQ(Variant(std::vector<std::string>{"a"}).raw()->vt, VT_ARRAY | VT_BSTR);
    EXPECT_EQ(Variant(&number).raw()->vt, VT_BYREF | VT_I4);
    EXPECT_EQ(Variant(&real).raw()->vt, VT_BYREF | VT_R8);
    EXPECT_EQ(Variant(&any).raw()->vt, VT_BYREF | VT_VARIANT);
}

TEST(Variant, GivesBackWhatItHolds)
{
    EXPECT_EQ(Variant(3).value(), Value(std::int64_t{3}));
    EXPECT_EQ(Variant(3.5).value(), Value(3.5));
    EXPECT_EQ(Variant(false).value(), Value(false));
    EXPECT_EQ(Variant("Öse Ø12").value(), Value(std::string("Öse Ø12")));
    EXPECT_EQ(Variant().value(), Value());
    EXPECT_THAT(Variant(std::vector<int>{4, 5}).numbers(), ElementsAre(4, 5));
    EXPECT_THAT(Variant(std::vector<double>{4, 5.5}).reals(), ElementsAre(4, 5.5));
    EXPECT_THAT(Variant(std::vector<std::string>{"ä", ""}).texts(), ElementsAre("ä", ""));
}

TEST(Variant, TakesAnEmptyOneForAnArrayOfNone)
{
    EXPECT_THAT(Variant().numbers(), IsEmpty());
    EXPECT_THAT(Variant().reals(), IsEmpty());
    EXPECT_THAT(Variant(std::vector<int>()).numbers(), IsEmpty());
}

// An array as FEMAP may return it, of elements of another type.
template <class Element>
Variant arrayOf(VARTYPE type, std::vector<Element> elements)
{
    SAFEARRAY* const array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(elements.size()));
    for (LONG i = 0; i < static_cast<LONG>(elements.size()); ++i)
        EXPECT_EQ(SafeArrayPutElement(array, &i, &elements[static_cast<std::size_t>(i)]), S_OK);
    Variant result;
    result.raw()->vt = static_cast<VARTYPE>(VT_ARRAY | type);
    result.raw()->parray = array;
    return result;
}

TEST(Variant, ReadsArraysOfEveryTypeOfNumbers)
{
    EXPECT_THAT(arrayOf<SHORT>(VT_I2, {-3, 4}).numbers(), ElementsAre(-3, 4));
    EXPECT_THAT(arrayOf<INT>(VT_INT, {-3, 4}).numbers(), ElementsAre(-3, 4));
    EXPECT_THAT(arrayOf<LONGLONG>(VT_I8, {-3, 4}).numbers(), ElementsAre(-3, 4));
    EXPECT_THAT(arrayOf<double>(VT_R8, {-3, 4}).numbers(), ElementsAre(-3, 4));
    EXPECT_THAT(arrayOf<VARIANT_BOOL>(VT_BOOL, {VARIANT_TRUE, VARIANT_FALSE}).numbers(),
                ElementsAre(-1, 0));
    EXPECT_THAT(arrayOf<float>(VT_R4, {0.5F, -2}).reals(), ElementsAre(0.5, -2));
    EXPECT_THAT(arrayOf<LONG>(VT_I4, {3, 4}).reals(), ElementsAre(3, 4));
}

TEST(Variant, ReadsArraysOfVariants)
{
    const Variant whole(3);
    const Variant real(4.0);
    const Variant text("ä");

    EXPECT_THAT(arrayOf<VARIANT>(VT_VARIANT, {whole.raw(), real.raw()}).numbers(),
                ElementsAre(3, 4));
    EXPECT_THAT(arrayOf<VARIANT>(VT_VARIANT, {whole.raw(), real.raw()}).reals(), ElementsAre(3, 4));
    EXPECT_THAT(arrayOf<VARIANT>(VT_VARIANT, {text.raw()}).texts(), ElementsAre("ä"));
    EXPECT_THROW(arrayOf<VARIANT>(VT_VARIANT, {text.raw()}).numbers(), RuntimeError);
}

TEST(Variant, RefusesAnotherKindThanWasAskedFor)
{
    EXPECT_THROW(Variant(std::vector<std::string>{"1"}).reals(), RuntimeError);
    EXPECT_THROW(Variant(std::vector<double>{1.5}).numbers(), RuntimeError);
    EXPECT_THROW(Variant(std::vector<double>{3e9}).numbers(), RuntimeError);
    EXPECT_THROW(Variant(std::vector<int>{1}).texts(), RuntimeError);
    EXPECT_THROW(Variant(3).numbers(), RuntimeError);
    EXPECT_THROW(Variant(std::vector<int>{1}).value(), RuntimeError);
    EXPECT_THROW(Variant("many").number(), RuntimeError);
    EXPECT_THROW(Variant(3).takeObject(), RuntimeError);
}

TEST(Variant, ConvertsAsComDoesWhateverTheRegionIs)
{
    EXPECT_EQ(Variant("2.5").real(), 2.5);
    EXPECT_EQ(Variant(2.5).text(), "2.5");
    EXPECT_EQ(Variant(true).number(), -1);
}

}  // namespace comtest
