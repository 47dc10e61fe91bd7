#include "app/CommandLine.h"
#include "generate/ModelPath.h"
#include "system/Files.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace app
{
namespace
{

std::string path(std::string text)
{
    for (char& c : text)
        if (c == '\\')
            c = sys::pathSeparator;
    return text;
}

struct ParsedExample
{
    const char* arguments;
    const char* modelFile;
    const char* logFileName;
    const char* logLevel;
};

// clang-format off
constexpr ParsedExample parsedExamples[] = {
    {R"(C:\work\beam.mod$beam.log$DEBUG)",         R"(C:\work\beam.mod)",   "beam.log", "DEBUG"},
    {R"("C:\my job\beam.mod"$"beam.log"$"DEBUG")", R"(C:\my job\beam.mod)", "beam.log", "DEBUG"},
    {R"("C:\my job\beam.mod$beam.log$DEBUG")",     R"(C:\my job\beam.mod)", "beam.log", "DEBUG"},
    {"a\"b\"c.mod$l\"og$D\"EBUG",                  "abc.mod",               "log",      "DEBUG"},
    {"",                                           "",                      "",         ""},
    {"beam.mod",                                   "beam.mod",              "",         ""},
    {"beam.mod$beam.log",                          "beam.mod",              "beam.log", ""},
    {"$$DEBUG",                                    "",                      "",         "DEBUG"},
    {"beam.mod$beam.log$DEBUG$more$still more",    "beam.mod",              "beam.log", "DEBUG"},
    {" beam.mod $ a.log $ DEBUG ",                 " beam.mod ",            " a.log ",  " DEBUG "},
    {"$",                                          "",                      "",         ""},
    {"\"\"\"$\"$\"",                               "",                      "",         ""},
};
// clang-format on

class ParseCommandLine : public testing::TestWithParam<ParsedExample>
{};

TEST_P(ParseCommandLine, DropsQuotesAndSplitsAtDollars)
{
    const ParsedExample& example = GetParam();

    const CommandLine result = parseCommandLine(example.arguments);

    EXPECT_EQ(result.modelFile, example.modelFile);
    EXPECT_EQ(result.logFileName, example.logFileName);
    EXPECT_EQ(result.logLevel, example.logLevel);
}

INSTANTIATE_TEST_SUITE_P(Examples, ParseCommandLine, testing::ValuesIn(parsedExamples));

TEST(ParseCommandLine, TakesAnyTextWithoutQuotesOrDollarsInItsFields)
{
    std::mt19937 random(1);
    const std::string letters = "a$\"\\. \t\xC3\xB8\n";
    std::uniform_int_distribution<std::size_t> pickLetter(0, letters.size() - 1);
    for (const std::size_t length : {1u, 7u, 40u, 40000u})
        for (int round = 0; round < 20; ++round) {
            std::string arguments;
            for (std::size_t i = 0; i < length; ++i)
                arguments += letters[pickLetter(random)];

            const CommandLine result = parseCommandLine(arguments);

            for (const std::string* field :
                 {&result.modelFile, &result.logFileName, &result.logLevel})
                ASSERT_EQ(field->find_first_of("$\""), std::string::npos);
        }
}

struct ExtensionExample
{
    const char* filename;
    const char* extension;
};

// clang-format off
constexpr ExtensionExample extensionExamples[] = {
    {R"(C:\a.b\model.MOD)",     "MOD"},
    {R"(C:\work\beam.mod)",     "mod"},
    {"beam.modfem",             "modfem"},
    {"archive.tar.gz",          "gz"},
    {R"(C:\a.b\model)",         "model"},
    {"model",                   "model"},
    {"model.",                  ""},
    {"",                        ""},
    {R"(C:\work\)",             ""},
    {R"(C:\work\ beam. mod  )", "mod"},
    {R"(C:\work\  beam  )",     "beam"},
    {"   ",                     ""},
};
// clang-format on

class GetFileExtensionOf : public testing::TestWithParam<ExtensionExample>
{};

TEST_P(GetFileExtensionOf, IsTheLastPieceOfTheNameWithoutBlanksAround)
{
    EXPECT_EQ(generate::GetFileExtension(path(GetParam().filename)), GetParam().extension);
}

INSTANTIATE_TEST_SUITE_P(Examples, GetFileExtensionOf, testing::ValuesIn(extensionExamples));

}  // namespace
}  // namespace app
