#include "FindingsFixture.h"
#include "findings/Rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace findings
{
namespace
{

using testing::HasSubstr;
using testing::IsEmpty;

TEST(Findings, AreNoneInASoundStudy)
{
    FindingsFixture f;

    EXPECT_THAT(f.lines(), IsEmpty());
}

TEST(Findings, AreNoneInASoundStudyForTheOtherTool)
{
    FindingsFixture f;
    f.chooseTool("Ombra");

    EXPECT_THAT(f.lines(), IsEmpty());
}

TEST(Findings, LeaveFormFilesAndLogAsTheyWere)
{
    FindingsFixture f;
    const auto files = f.files.contents;
    const auto inputs = f.rows(f.form.InputsList);

    const auto logged = f.logOf([&] { f.all(); });

    EXPECT_EQ(f.files.contents, files);
    EXPECT_EQ(f.rows(f.form.InputsList), inputs);
    EXPECT_THAT(logged, IsEmpty());
    EXPECT_THAT(f.messages(), IsEmpty());
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST(Findings, ThatAreQuickAskFemapNothingAndReadNoFile)
{
    FindingsFixture f;
    f.form.CommandLine.Text.clear();
    f.files.contents.clear();
    const std::string model = f.femap.modelName;
    fake::CallWatch& watch = f.watchFemap();
    f.files.deniedReads = 1;

    const auto found = quickFindings(f.context, model);

    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().code, "no-command");
    EXPECT_THAT(watch.calls, IsEmpty());
    EXPECT_EQ(f.files.deniedReads, 1);
}

TEST(Findings, ComeWithTheGravestFirst)
{
    FindingsFixture f;
    f.form.OutputsList.setText(1, form::nameColumn, "Force85002AtElem40");
    f.form.InputsList.setText(1, form::valueColumn, "7.5");
    f.form.CommandLine.Text.clear();

    const auto found = f.quick();

    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].severity, Severity::Error);
    EXPECT_EQ(found[1].severity, Severity::Warning);
    EXPECT_EQ(found[2].severity, Severity::Hint);
}

TEST(Findings, OfAModelWithoutAFileAreThoseOfItsRowsAlone)
{
    FindingsFixture f;
    f.femap.modelName.clear();
    f.form.InputsList.setText(1, form::valueColumn, "thick");
    f.files.contents.clear();

    const auto found = f.all();

    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found.front().code, "no-number");
    EXPECT_EQ(found.back().code, "value-differs");
}

TEST(Findings, WithoutAnOpenModelAreThoseOfTheForm)
{
    FindingsFixture f;
    f.form.InputsList.setText(1, form::valueColumn, "thick");
    f.watchFemap().failAt("ModelName");

    const auto found = f.all();

    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().code, "no-number");
}

TEST(Findings, TellWhichRuleCouldNotBeFollowed)
{
    FindingsFixture f;
    f.put("CAEInput.txt", "Reference Model (FEMAP) = rod.neu\r\n");
    f.files.deniedReads = 1;  // that of the templates comes first

    EXPECT_THAT(f.found("not-checked"), HasSubstr("hint not-checked other-template: What "));
    EXPECT_THAT(f.found("other-model"), HasSubstr("rod.neu"));
}

TEST(Findings, PassOnThatFemapIsGone)
{
    FindingsFixture f;
    f.watchFemap().dieAt("Prop.Get 7");

    EXPECT_THROW(f.all(), femap::ConnectionLost);
}

TEST(FindingsOfTheWriters, SpeakOnlyWhenTheToolWritesTheFile)
{
    FindingsFixture f;
    f.chooseTool("none");
    f.files.contents.clear();
    f.form.CommandLine.Text.clear();
    f.form.Solver.Text = "other";
    f.form.InputsList.setText(1, form::valueColumn, "7.5");
    f.form.OutputsList.setText(1, form::nameColumn, "Force85002AtElem40");

    // The values differ from the model's whatever is written.
    ASSERT_EQ(f.all().size(), 1U);
    EXPECT_EQ(f.all().front().code, "value-differs");
}

TEST(FindingsLine, HasSeverityCodeRowsNameSentenceAndCure)
{
    const Finding finding = {"a-code", Severity::Warning, {{Grid::Inputs, 3}},
                             "A Name", "It is so.",       "Do that."};

    EXPECT_EQ(lineOf(finding), "warning a-code inputs:3 A Name: It is so. Cure: Do that.");
}

TEST(FindingsLine, JoinsRowsThatFollowEachOther)
{
    Finding finding = {"a-code", Severity::Hint, {}, "", "S.", "C."};
    finding.places = {{Grid::Outputs, 9}, {Grid::Inputs, 4}, {Grid::Inputs, 3}, {Grid::Inputs, 7}};

    EXPECT_EQ(lineOf(finding), "hint a-code inputs:3-4,7 outputs:9: S. Cure: C.");
}

TEST(FindingsLine, CutsManyRanges)
{
    Finding finding = {"a-code", Severity::Hint, {}, "", "S.", "C."};
    for (int row = 1; row < 24; row += 2)
        finding.places.push_back({Grid::Inputs, row});

    EXPECT_EQ(lineOf(finding), "hint a-code inputs:1,3,5,7,9,11,13,15,17,19,…: S. Cure: C.");
}

TEST(FindingsJson, HasCountsAndEveryRowOnOneLine)
{
    Finding finding = {"a-code", Severity::Error, {}, "Öse \"1\"\\", "S\n.", "C."};
    finding.places = {{Grid::Inputs, 1}, {Grid::Inputs, 2}, {Grid::Outputs, 5}};

    EXPECT_EQ(jsonOf(std::vector<Finding>{finding}),
              R"({"errors":1,"warnings":0,"hints":0,"findings":[{"severity":"error",)"
              R"("code":"a-code","inputs":[1,2],"outputs":[5],"name":"Öse \"1\"\\",)"
              R"("sentence":"S\u000a.","cure":"C."}]})");
    EXPECT_EQ(jsonOf(std::vector<Finding>{}),
              R"({"errors":0,"warnings":0,"hints":0,"findings":[]})");
    EXPECT_THAT(jsonOf(std::vector<Finding>{finding, finding}), HasSubstr(R"("},{"severity")"));
}

TEST(FindingsSummary, CountsBySeverity)
{
    const auto of = [](std::vector<Severity> severities) {
        std::vector<Finding> found;
        for (const Severity severity : severities)
            found.push_back({.severity = severity});
        return summary(counted(found));
    };

    EXPECT_EQ(of({}), "no findings");
    EXPECT_EQ(of({Severity::Error, Severity::Error, Severity::Warning}), "2 errors, 1 warning");
    EXPECT_EQ(of({Severity::Hint, Severity::Warning, Severity::Warning}), "2 warnings, 1 hint");
}

TEST(FindingsReport, NamesTheFirstOfManyAndCountsTheOthers)
{
    Report report;
    for (int row = 1; row <= 7; ++row)
        report.addRow({Grid::Inputs, row}, "N" + std::to_string(row), row == 1 ? "first" : "");

    const auto finding = report.finding("c", Severity::Hint, {"", "@count@: @names@.", ""});

    ASSERT_TRUE(finding.has_value());
    EXPECT_EQ(finding->sentence, "7: N1 (first), N2, N3, N4, N5 and 2 more.");
    EXPECT_EQ(finding->places.size(), 7U);
    EXPECT_EQ(finding->name, "");
}

TEST(FindingsRules, HaveCodesThatDiffer)
{
    std::set<std::string_view> codes;
    for (const Rule& rule : rules())
        EXPECT_TRUE(codes.insert(rule.code).second) << rule.code;
}

TEST(FindingsRules, AreAllFollowedButTheOneForFailures)
{
    for (const Rule& rule : rules())
        EXPECT_EQ(rule.check == nullptr, &rule == &ruleForFailures()) << rule.code;
}

}  // namespace
}  // namespace findings
