#include "generate/StudySheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace generate
{

using testing::ElementsAre;
using testing::IsEmpty;

TEST(StudySheet, TellsItsFiles)
{
    const auto files = filesInSheet(R"({"tool":"1","model":{"files":[1]},"files":[
 {"name":"CAEInput.txt","size":81,"time":"2024-03-07T09:05:02Z","more":[]},
 {"name":"a \"b\"","size":null}
],"rows":[)");

    EXPECT_FALSE(files) << "null is no size";
    EXPECT_THAT(filesInSheet(R"({"tool":"1","model":{"files":[1]},"files":[
 {"name":"CAEInput.txt","size":81,"time":"2024-03-07T09:05:02Z","more":[]},
 {"name":"a \"b\""}
],"rows":[)")
                    .value(),
                ElementsAre(SheetFile{"CAEInput.txt", 81, "2024-03-07T09:05:02Z"},
                            SheetFile{"a \"b\"", 0, ""}));
    EXPECT_THAT(filesInSheet(R"({"files":[]})").value(), IsEmpty());
}

TEST(StudySheet, ThatIsNoneTellsNothing)
{
    for (const char* const text :
         {"", "x", "[]", "{}", "{\"files\":3}", "{\"files\":[3]}", "{\"files\":[{\"name\":\"a\"}",
          "{\"files\":[{\"size\":\"1\"}]}"})
        EXPECT_FALSE(filesInSheet(text)) << text;
}

TEST(UtcText, IsTheTimeOfTheWorld)
{
    EXPECT_EQ(utcText(0), "1970-01-01T00:00:00Z");
    EXPECT_EQ(utcText(1709802302), "2024-03-07T09:05:02Z");
    EXPECT_EQ(utcText(951782399), "2000-02-28T23:59:59Z");
    EXPECT_EQ(utcText(-1), "1969-12-31T23:59:59Z");
}

TEST(SheetFileOfFacts, HasSizeAndTime)
{
    EXPECT_EQ(sheetFile("a", {5, 0}), (SheetFile{"a", 5, "1970-01-01T00:00:00Z"}));
}

}  // namespace generate
