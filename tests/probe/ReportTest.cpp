#include "fake/MemoryFiles.h"
#include "probe/Report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace probe
{

using testing::AllOf;
using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace
{

struct Written
{
    fake::MemoryFiles files;
    std::unique_ptr<sys::OutputFile> file = files.create("report.txt");

    const std::string& text() const { return files.contents.at("report.txt"); }
};

}  // namespace

TEST(AReport, HasWhatIsTriedBeforeItsVerdict)
{
    Written written;
    Report report(*written.file, false);

    report.begin("feProp.pval(0)");

    EXPECT_THAT(written.text(), AllOf(HasSubstr("feProp.pval(0)  "), Not(HasSubstr("\n"))));

    report.end(Verdict::Same, "R8 1");

    EXPECT_THAT(written.text(), EndsWith(" same      R8 1\r\n"));
}

TEST(AReport, BreaksOffAtWhatWasTried)
{
    Written written;
    Report report(*written.file, false);

    report.begin("feProp.pval(0)");
    report.breakOff("the server is gone");
    report.summary();

    EXPECT_THAT(written.text(),
                HasSubstr("THE PROBE ENDS HERE: the server is gone. It was asked for: "
                          "feProp.pval(0).\r\n"));
    EXPECT_THAT(written.text(), HasSubstr("FEMAP was gone: the server is gone"));
}

TEST(AReport, RepeatsWhatIsToBeLookedAtAtItsEnd)
{
    Written written;
    Report report(*written.file, false);
    report.section("B Names");
    report.line("one", Verdict::Same, "fine");
    report.line("two", Verdict::Differs, "other");
    report.line("feNode.three", Verdict::Absent, "");
    report.line("feNode.four(1)", Verdict::Absent, "no such name");
    report.line("feNode.four(2)", Verdict::Absent, "no such name");
    report.line("five", Verdict::Refused, "why");

    const std::size_t before = written.text().size();
    report.summary();
    const std::string summary = written.text().substr(before);

    EXPECT_THAT(summary, Not(HasSubstr("fine")));
    EXPECT_THAT(summary, ContainsRegex("B two +DIFFERS +other"));
    EXPECT_THAT(summary, HasSubstr("B feNode lacks: three, four\r\n"));
    EXPECT_THAT(summary, ContainsRegex("B five +REFUSED +why"));
    EXPECT_THAT(summary, ContainsRegex("DIFFERS +1 "));
}

TEST(AReport, SaysHowAQuestionWithoutAnAnswerGetsOne)
{
    Written written;
    Report report(*written.file, false);
    report.answer(Question::EndOfOwnFemap, "it stays");
    report.answer(Question::EndOfOwnFemap, "it stays");

    report.summary();

    EXPECT_THAT(written.text(), HasSubstr("lets go of it?\r\n    answer: it stays\r\n13. "));
    EXPECT_THAT(written.text(),
                HasSubstr("while FEMAP is locked?\r\n    not answered: run it with --ask\r\n"));
}

TEST(AReport, HidesNamesAndTellsThemApart)
{
    Written written;
    Report report(*written.file, true);

    const std::string first = report.name("C:\\secret\\wing.modfem");
    const std::string second = report.name("Aluminium");

    EXPECT_THAT(first, testing::StartsWith("#"));
    EXPECT_EQ(first.size(), 9U);
    EXPECT_NE(first, second);
    EXPECT_EQ(report.name("C:\\secret\\wing.modfem"), first);
    EXPECT_EQ(report.words("cannot open C:\\secret\\wing.modfem"), "cannot open " + first);
    EXPECT_EQ(report.name(""), "\"\"");
}

TEST(AReport, ShowsNamesOnOneLineWhereTheyNeedNotBeHidden)
{
    Written written;
    Report report(*written.file, false);

    report.line("title", Verdict::Found, report.name("two\r\nlines"));

    EXPECT_THAT(written.text(), EndsWith("\"two  lines\"\r\n"));
}

}  // namespace probe
