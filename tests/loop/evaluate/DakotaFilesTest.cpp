#include "loop/evaluate/DakotaFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using loop::Problems;
using loop::evaluate::DakotaParameters;
using loop::evaluate::dakotaResults;
using loop::evaluate::NamedValue;
using loop::evaluate::readDakotaParameters;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

const std::string standardFile = R"text(                                          2 variables
                      7.488318331306800e-01 ThicknessAtProp1
                                       1D-3 Element 12 stress
                                          2 functions
                                          1 ASV_1:TotalMass
                                          1 ASV_2:Max of all
                                          1 derivative_variables
                                          1 DVV_1:ThicknessAtProp1
                                          0 analysis_components
                                          1 eval_id
                                          0 metadata
)text";

const std::string apreproFile =
    R"text(                    { DAKOTA_VARS     =                      2 }
                    { ThicknessAtProp1 =  7.488318331306800e-01 }
                    { Element 12 stress =                  1D-3 }
                    { DAKOTA_FNS      =                      2 }
                    { ASV_1:TotalMass =                      1 }
                    { ASV_2:Max of all =                     1 }
                    { DAKOTA_DER_VARS =                      0 }
                    { DAKOTA_AN_COMPS =                      0 }
                    { DAKOTA_EVAL_ID  =                      1 }
)text";

DakotaParameters read(const std::string& text, Problems& problems)
{
    return readDakotaParameters(text, "params.in", problems);
}

std::string problemsOf(const std::string& text)
{
    Problems problems;
    read(text, problems);
    return problems.text();
}

class ParametersOfDakota : public testing::TestWithParam<std::string>
{};

INSTANTIATE_TEST_SUITE_P(InEitherLayout, ParametersOfDakota,
                         testing::Values(standardFile, apreproFile), [](const auto& tested) {
                             return tested.index == 0 ? "Standard" : "Aprepro";
                         });

TEST_P(ParametersOfDakota, AreVariablesAndWhatIsWantedWithTheirNames)
{
    Problems problems;

    const DakotaParameters parameters = read(GetParam(), problems);

    EXPECT_EQ(problems.text(), "");
    EXPECT_THAT(parameters.variables,
                ElementsAre(NamedValue{"ThicknessAtProp1", "7.488318331306800e-01", 2},
                            NamedValue{"Element 12 stress", "1D-3", 3}));
    EXPECT_THAT(parameters.functions,
                ElementsAre(NamedValue{"TotalMass", "1", 5}, NamedValue{"Max of all", "1", 6}));
}

TEST_P(ParametersOfDakota, MayHaveTheLineEndsOfWindows)
{
    Problems problems;
    std::string text = GetParam();
    for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2)
        text.insert(at, 1, '\r');
    Problems ofPlain;
    const DakotaParameters plain = read(GetParam(), ofPlain);

    EXPECT_EQ(read(text, problems), plain);
    EXPECT_TRUE(problems.empty());
}

TEST_P(ParametersOfDakota, AreRefusedWhereTheyAreCutShort)
{
    const std::size_t second = GetParam().find('\n', GetParam().find('\n') + 1) + 1;

    EXPECT_EQ(problemsOf(GetParam().substr(0, second)).find("params.in:2: there are fewer "), 0U);
}

TEST(ADakota, ThatWantsMoreThanValuesIsTold)
{
    EXPECT_THAT(problemsOf("0 variables\n3 functions\n3 ASV_1:a\n0 ASV_2:b\n1 ASV_3:c\n"),
                AllOf(StartsWith("params.in:3: ASV_1:a is 3, but only values can be had"),
                      HasSubstr("params.in:4: ASV_2:b is 0, "), testing::Not(HasSubstr("ASV_3"))));
}

TEST(ADakota, ThatDoesNotNameItsResponsesIsTold)
{
    EXPECT_THAT(problemsOf("0 variables\n1 functions\n1 ASV_1\n"),
                StartsWith("params.in:3: the response has no name"));
}

TEST(AFileThatIsNotOfDakota, IsToldOnce)
{
    for (const std::string text : {"", "\n", "x", "2 functions\n", "-1 variables\n", "{ a = 1 }\n"})
        EXPECT_THAT(problemsOf(text), AllOf(StartsWith("params.in:1: the number of "),
                                            HasSubstr("is missing; the file is no parameters file"),
                                            testing::EndsWith("layouts\n")))
            << text;
}

TEST(ResultsForDakota, AreNumbersWithTheirNames)
{
    EXPECT_EQ(dakotaResults(std::vector<NamedValue>{{"TotalMass", "1", 0}, {"Max of all", "1", 0}},
                            std::vector{1.5, -2e-20}),
              "1.5 TotalMass\n-2E-20 Max of all\n");
}

}  // namespace
