#include "system/Json.h"

#include <gtest/gtest.h>

#include <string>

using sys::JsonReader;
using sys::quotedJson;

namespace
{

// The text that stands in the JSON; "none" when there is none to be read.
std::string textIn(std::string_view json)
{
    return JsonReader(json).text().value_or("none");
}

TEST(QuotedJson, EscapesWhatMustBeEscaped)
{
    EXPECT_EQ(quotedJson("a \u00e4"), "\"a \u00e4\"");
    EXPECT_EQ(quotedJson("\"\\\n"), R"("\"\\\u000a")");
    EXPECT_EQ(quotedJson(""), "\"\"");
}

TEST(JsonReader, ReadsTheTextsThatAreQuoted)
{
    for (const std::string& text :
         {std::string("a \u00e4 \"b\" \\ / \t\r\n"), std::string(1, '\0')})
        EXPECT_EQ(textIn(quotedJson(text)), text);
    EXPECT_EQ(textIn(R"( "\/\b\f\t\u00E4\u20ac\ud83d\ude00" )"), "/\b\f\t\u00e4\u20ac\U0001F600");
}

TEST(JsonReader, RefusesATextThatIsNone)
{
    for (const char* const json : {"", "a", "\"a", "\"\\", "\"\\x\"", "\"\\u12\"", "\"\\u12g4\"",
                                   "\"\\ud83d\"", "\"\\ud83d\\u12\"", "\"\\ud83dude00\"", "12"})
        EXPECT_EQ(textIn(json), "none") << json;
}

TEST(JsonReader, GoesThroughObjectsAndArrays)
{
    JsonReader reader(R"( { "a" : [ 1 , 22 ] , "b" : { } , "c":[],"d":"x"} )");
    std::string seen;

    reader.enterObject();
    while (const auto name = reader.nextName()) {
        seen += *name + ":";
        if (*name == "a" || *name == "c") {
            reader.enterArray();
            while (reader.hasNextValue())
                seen += std::to_string(reader.number().value_or(0)) + ",";
        }
        else if (*name == "d")
            seen += reader.text().value_or("none");
        else
            reader.skip();
    }

    EXPECT_EQ(seen, "a:1,22,b:c:d:x");
    EXPECT_FALSE(reader.hasFailed());
}

TEST(JsonReader, PassesOverValuesOfAnyKindAndDepth)
{
    const std::string deep = std::string(100'000, '[') + std::string(100'000, ']');
    for (const std::string& value :
         {std::string("null"), std::string("-1.5e+7"), std::string("true"),
          std::string("\"]}\\\"\""), std::string(R"({"x":[1,{"y":"}"},[]],"z":{}})"), deep}) {
        const std::string json = R"({"a":)" + value + R"(,"b":2})";
        JsonReader reader(json);
        reader.enterObject();
        reader.nextName();

        reader.skip();

        EXPECT_EQ(reader.nextName(), "b") << value;
        EXPECT_EQ(reader.number(), 2U);
        EXPECT_FALSE(reader.nextName());
        EXPECT_FALSE(reader.hasFailed());
    }
}

TEST(JsonReader, IsOverAtTheFirstThingThatIsNoJson)
{
    for (const char* const json : {"", "[", "{\"a\"", "{\"a\" 1}", "{\"a\":1 \"b\":2}", "{,}",
                                   "{1:2}", "{\"a\":", "{\"a\":[1,2}", "{\"a\":\"x"}) {
        JsonReader reader(json);
        reader.enterObject();
        while (reader.nextName())
            reader.skip();

        EXPECT_TRUE(reader.hasFailed()) << json;
        EXPECT_FALSE(reader.enterObject());
        EXPECT_FALSE(reader.text());
        EXPECT_FALSE(reader.number());
        EXPECT_FALSE(reader.hasNextValue());
    }
}

TEST(JsonReader, RefusesNumbersThatAreNotWholeOrTooLarge)
{
    EXPECT_EQ(JsonReader(" 18446744073709551615").number(), 18446744073709551615U);
    EXPECT_FALSE(JsonReader("18446744073709551616").number());
    EXPECT_FALSE(JsonReader("-1").number());
    EXPECT_FALSE(JsonReader("x").number());
}

}  // namespace
