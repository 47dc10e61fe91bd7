#include "system/System.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>

namespace
{

struct AnsiText : testing::Test
{
    sys::System system = sys::thisMachine();

    void SetUp() override
    {
        if (GetACP() != 1252)
            GTEST_SKIP() << "the system's code page is another one";
    }
};

TEST_F(AnsiText, LettersOfTheCodePageComeBackAsTheyWere)
{
    const std::string text = "Träger Ø12 €";
    std::string bytes = "before ";

    const bool isWhole = system.codePage.encode(text, bytes);

    EXPECT_TRUE(isWhole);
    EXPECT_EQ(bytes,
              "before Tr\xE4ger \xD8"
              "12 \x80");
    EXPECT_EQ(system.codePage.decode(bytes), "before " + text);
}

TEST_F(AnsiText, OtherLettersBecomeQuestionMarksAndNotTheirLookalikes)
{
    std::string bytes;

    const bool isWhole = system.codePage.encode("\u0100\u03B1\u221E", bytes);

    EXPECT_FALSE(isWhole);
    EXPECT_EQ(bytes, "???");
}

TEST(ThisMachine, ReadsTheEnvironmentAsUnicode)
{
    SetEnvironmentVariableW(L"VELMAR_TEST", L"J\u00F6rg \u03B1");

    EXPECT_EQ(sys::thisMachine().environment("VELMAR_TEST"), "Jörg \u03B1");
    EXPECT_EQ(sys::thisMachine().environment("VELMAR_TEST_MISSING"), "");
}

}  // namespace
