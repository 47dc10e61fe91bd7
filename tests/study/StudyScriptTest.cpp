#include "study/StudyScript.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace study
{

void PrintTo(const ScriptLine& line, std::ostream* out)
{
    *out << line.number << ": " << line.action << " [" << line.argument << ']';
}

namespace
{

using testing::ElementsAre;
using testing::FieldsAre;
using testing::IsEmpty;

std::vector<ScriptLine> allLines(const std::string& text)
{
    StudyScript script(text);
    std::vector<ScriptLine> result;
    while (const auto line = script.next())
        result.push_back(*line);
    return result;
}

TEST(StudyScript, HandsOutActionsWithTheirLineAndArgument)
{
    EXPECT_THAT(allLines("start beam.neu$beam.log$DEBUG\nclick InputsButton\nclose\n"),
                ElementsAre(FieldsAre(1, "start", "beam.neu$beam.log$DEBUG"),
                            FieldsAre(2, "click", "InputsButton"), FieldsAre(3, "close", "")));
}

TEST(StudyScript, SkipsBlankLinesAndComments)
{
    EXPECT_THAT(allLines("\n# a comment\n   \n\t# another\nclose\n\n"),
                ElementsAre(FieldsAre(5, "close", "")));
}

TEST(StudyScript, TrimsTheBlanksAroundAnArgumentAndKeepsThoseInside)
{
    EXPECT_THAT(allLines("  set \t CommandLine   a  b \t\n"),
                ElementsAre(FieldsAre(1, "set", "CommandLine   a  b")));
}

TEST(StudyScript, TakesTheLastLineWithoutItsEnd)
{
    EXPECT_THAT(allLines("close"), ElementsAre(FieldsAre(1, "close", "")));
}

TEST(StudyScript, BearsWindowsLineEndsAndAByteOrderMark)
{
    EXPECT_THAT(allLines("\xEF\xBB\xBFstart a\r\n\r\nclose\r\n"),
                ElementsAre(FieldsAre(1, "start", "a"), FieldsAre(3, "close", "")));
}

TEST(StudyScript, OfNothingHasNoActions)
{
    EXPECT_THAT(allLines(""), IsEmpty());
    EXPECT_THAT(allLines("\xEF\xBB\xBF"), IsEmpty());
}

TEST(StudyScript, TakesTextOfAllLanguages)
{
    const std::string text = "Träger Ø12 ελ 梁 \xF0\x9F\x94\xA9";

    EXPECT_THAT(allLines("choose " + text), ElementsAre(FieldsAre(1, "choose", text)));
}

class BadLine : public testing::TestWithParam<const char*>
{};

TEST_P(BadLine, IsNamedByItsNumber)
{
    StudyScript script("close\n# " + std::string(GetParam()) + "\nset Solver " + GetParam());
    ASSERT_TRUE(script.next());

    try {
        script.next();
        FAIL() << "the line was taken";
    }
    catch (const ScriptError& error) {
        EXPECT_EQ(error.line(), 3);
        EXPECT_STREQ(error.what(), "the line is not UTF-8 text; save the script as UTF-8");
    }
}

// Windows-1252, cut characters, overlong forms, a surrogate, beyond the last character.
INSTANTIATE_TEST_SUITE_P(NotUtf8, BadLine,
                         testing::Values("Tr\xE4ger", "\xC3", "\xE6\xA2", "\xF0\x9F\x94", "\x80",
                                         "\xC0\x80", "\xE0\x80\x80", "\xF0\x80\x80\x80",
                                         "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
                                         "\xC3(", "\xE6(\xA2", "\xE6\xA2("));

TEST(StudyScript, RefusesControlCharacters)
{
    for (const char c : {'\0', '\r', '\x1B', '\x7F'}) {
        StudyScript script(std::string("set CommandLine a") + c + "b");

        try {
            script.next();
            ADD_FAILURE() << "taken: " << static_cast<int>(c);
        }
        catch (const ScriptError& error) {
            EXPECT_STREQ(error.what(), "the line holds a control character; remove it");
        }
    }
}

TEST(StudyScript, BearsAnyBytes)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int round = 0; round < 300; ++round) {
        std::string text;
        for (int i = 0; i < 200; ++i)
            text += round % 2 == 0
                        ? static_cast<char>(byte(random))
                        : " \n\r#-|ab7\t\xC3"[static_cast<std::size_t>(byte(random) % 11)];
        try {
            for (const ScriptLine& line : allLines(text)) {
                EXPECT_FALSE(line.action.empty());
                parseChoice(line);
                parsePick(line);
            }
        }
        catch (const ScriptError& error) {
            EXPECT_GE(error.line(), 1);
        }
    }
}

Pick pickOf(const std::string& argument)
{
    return parsePick({7, "pick", argument});
}

TEST(ParsePick, TakesIdsAndRanges)
{
    const Pick pick = pickOf("1 3  5-9\t12-12");

    EXPECT_EQ(pick.line, 7);
    EXPECT_EQ(pick.kind, Pick::Kind::Ids);
    EXPECT_THAT(pick.ranges,
                ElementsAre(FieldsAre(1, 1), FieldsAre(3, 3), FieldsAre(5, 9), FieldsAre(12, 12)));
}

TEST(ParsePick, TakesItsWords)
{
    EXPECT_EQ(pickOf("all").kind, Pick::Kind::All);
    EXPECT_EQ(pickOf("cancel").kind, Pick::Kind::Cancel);
    EXPECT_EQ(pickOf("missing").kind, Pick::Kind::Missing);
    EXPECT_EQ(pickOf("fail").kind, Pick::Kind::Fail);
}

struct BadPick
{
    const char* argument;
    const char* problem;
};

class WrongPick : public testing::TestWithParam<BadPick>
{};

TEST_P(WrongPick, SaysWhatItTakes)
{
    try {
        pickOf(GetParam().argument);
        FAIL() << "the pick was taken";
    }
    catch (const ScriptError& error) {
        EXPECT_EQ(error.line(), 7);
        EXPECT_EQ(error.what(), std::string(GetParam().problem) +
                                    "; pick takes IDs and ranges such as 1 3 5-9, or one of all, "
                                    "cancel, missing, fail");
    }
}

INSTANTIATE_TEST_SUITE_P(All, WrongPick,
                         testing::Values(BadPick{"", "pick names nothing"},
                                         BadPick{"1 two", "\"two\" is no ID or range of IDs"},
                                         BadPick{"1,3", "\"1,3\" is no ID or range of IDs"},
                                         BadPick{"0", "\"0\" is no ID or range of IDs"},
                                         BadPick{"-5", "\"-5\" is no ID or range of IDs"},
                                         BadPick{"5-", "\"5-\" is no ID or range of IDs"},
                                         BadPick{"9-5", "\"9-5\" is no ID or range of IDs"},
                                         BadPick{"1-2-3", "\"1-2-3\" is no ID or range of IDs"},
                                         BadPick{"99999999999",
                                                 "\"99999999999\" is no ID or range of IDs"},
                                         BadPick{"all 3", "\"all\" is no ID or range of IDs"},
                                         BadPick{"ALL", "\"ALL\" is no ID or range of IDs"}));

Choice choiceOf(const std::string& argument)
{
    return parseChoice({8, "choose", argument});
}

TEST(ParseChoice, SplitsItems)
{
    const Choice choice = choiceOf("Thickness | NS Mass/Len |  ShearAr, K1 ");

    EXPECT_EQ(choice.line, 8);
    EXPECT_EQ(choice.kind, Choice::Kind::Items);
    EXPECT_THAT(choice.items, ElementsAre("Thickness", "NS Mass/Len", "ShearAr, K1"));
}

TEST(ParseChoice, SplitsOnlyAtABarBetweenBlanks)
{
    EXPECT_THAT(choiceOf("a|b | c").items, ElementsAre("a|b", "c"));
}

TEST(ParseChoice, TakesItsWords)
{
    EXPECT_EQ(choiceOf("all").kind, Choice::Kind::All);
    EXPECT_EQ(choiceOf("none").kind, Choice::Kind::None);
    EXPECT_EQ(choiceOf("cancel").kind, Choice::Kind::Cancel);
    EXPECT_THAT(choiceOf("all | none").items, ElementsAre("all", "none"));
}

TEST(ParseChoice, RefusesEmptyItems)
{
    for (const char* argument : {"", "|", "a | | b", "a |", "| a", "a |  | b"}) {
        try {
            choiceOf(argument);
            ADD_FAILURE() << "taken: " << argument;
        }
        catch (const ScriptError& error) {
            EXPECT_EQ(error.line(), 8);
            EXPECT_STREQ(error.what(),
                         "choose names an empty item; it takes texts of the list separated by "
                         "\" | \", or one of all, none, cancel");
        }
    }
}

}  // namespace
}  // namespace study
