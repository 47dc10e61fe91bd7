#include "AppFixture.h"
#include "app/KeptRows.h"
#include "fake/GridRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace app
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::string keptFolder = "/home/kept/";

// Runs of the tool one after the other, or beside each other, on one disk.
struct RowsFromRunToRun : testing::Test
{
    AppFixture f;

    struct Run
    {
        explicit Run(AppFixture& surroundings)
            : program(surroundings.connector, surroundings.host, surroundings.lists,
                      surroundings.system)
        {
            program.keepRowsIn(keptFolder);
            program.start("/models/beam.neu$$NOTHING");
        }
        void fill(std::initializer_list<const char*> rows)
        {
            for (const char* const row : rows)
                program.form().InputsList.AddItem(row);
            program.keepRows();
        }
        std::vector<std::string> inputs() { return fake::namesOf(program.form().InputsList); }
        const std::string& status() { return program.form().StatusLine.Caption; }

        Program program;
    };

    RowsFromRunToRun() { f.femap.modelName = "/models/beam.neu"; }

    std::unique_ptr<Run> run() { return std::make_unique<Run>(f); }
    std::map<std::string, std::string> kept() { return f.files.inFolder(keptFolder); }
};

TEST_F(RowsFromRunToRun, ComeBackAfterARunThatEndedByForce)
{
    run()->fill({"a\t1\tNode\t1\tx\t", "b\t2\tNode\t1\ty\t"});

    const auto next = run();
    EXPECT_THAT(next->status(),
                HasSubstr("2 rows were not applied: Ctrl+Shift+Z brings them back"));
    EXPECT_THAT(next->inputs(), ElementsAre(""));

    next->program.bringBackKept();
    EXPECT_THAT(next->inputs(), ElementsAre("", "a", "b"));
    EXPECT_EQ(next->status(), "The rows of the earlier run are back; Ctrl+Z takes that back");
}

TEST_F(RowsFromRunToRun, GoAgainByOneStepBack)
{
    run()->fill({"a\t1\tNode\t1\tx\t"});
    const auto next = run();
    next->fill({"c\t3\tNode\t1\tx\t"});

    next->program.bringBackKept();
    ASSERT_THAT(next->inputs(), ElementsAre("", "a"));
    next->program.stepBack();

    EXPECT_THAT(next->inputs(), ElementsAre("c"));
}

TEST_F(RowsFromRunToRun, AreOfferedAgainUntilTheyAreApplied)
{
    run()->fill({"a\t1\tNode\t1\tx\t"});
    run();
    const auto third = run();
    EXPECT_THAT(third->status(), HasSubstr("1 row was not applied: Ctrl+Shift+Z brings it back"));

    third->program.bringBackKept();
    third->program.raise(form::click("GenerateButton"));
    ASSERT_TRUE(f.files.contents.contains("/models/beamControl.txt"));
    third->program.close();

    EXPECT_THAT(kept(), IsEmpty());
    EXPECT_THAT(run()->status(), Not(HasSubstr("not applied")));
}

TEST_F(RowsFromRunToRun, AreThoseOfTheModelThatIsOpen)
{
    run()->fill({"a\t1\tNode\t1\tx\t"});

    f.femap.modelName = "/models/other.neu";

    EXPECT_THAT(run()->status(), Not(HasSubstr("not applied")));
}

TEST_F(RowsFromRunToRun, AreNotTakenFromARunThatGoesOn)
{
    const auto first = run();
    first->fill({"a\t1\tNode\t1\tx\t"});

    const auto second = run();
    EXPECT_THAT(second->status(), Not(HasSubstr("not applied")));
    second->fill({"b\t1\tNode\t1\tx\t"});
    first->fill({"c\t1\tNode\t1\tx\t"});

    EXPECT_THAT(kept(), testing::SizeIs(4));  // a lock and rows of each
}

TEST_F(RowsFromRunToRun, ThatAreAllAppliedLeaveNothing)
{
    const auto first = run();
    first->program.close();

    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(RowsFromRunToRun, OfALargeStudyAreWrittenEveryTenSecondsAndAtTheEnd)
{
    constexpr int many = 20'001;
    auto first = run();
    for (int i = 0; i < many; ++i)
        first->program.form().InputsList.AddItem("row" + std::to_string(i));
    first->program.keepRows();
    const auto size = [&] {
        for (const auto& [name, text] : kept())
            if (name.ends_with(".rows"))
                return text.size();
        return std::size_t{0};
    };
    const std::size_t before = size();
    ASSERT_GT(before, std::size_t{many});

    f.seconds = 9;
    first->fill({"late\t1\tNode\t1\tx\t"});
    EXPECT_EQ(size(), before);
    f.seconds = 10;
    first->program.keepRows();
    const std::size_t then = size();
    EXPECT_GT(then, before);
    first->fill({"latest\t1\tNode\t1\tx\t"});
    EXPECT_EQ(size(), then);
    first->program.close();
    EXPECT_GT(size(), then);
}

TEST_F(RowsFromRunToRun, ThatCannotBeKeptAreToldOnce)
{
    const auto first = run();
    f.files.failingOperation = f.files.operations + 1;

    first->fill({"a\t1\tNode\t1\tx\t"});

    EXPECT_THAT(first->status(),
                HasSubstr("Rows that are not applied are not kept for the next start: "));
    first->program.raise(form::click("ClearAll"));
    EXPECT_THAT(first->status(), Not(HasSubstr("kept")));
}

TEST_F(RowsFromRunToRun, WhoseFileWasChangedMeanwhileAreNotBroughtBack)
{
    run()->fill({"a\t1\tNode\t1\tx\t"});
    const auto next = run();
    for (auto& [path, text] : f.files.contents)
        if (path.ends_with(".left"))
            text.resize(text.size() - 1);

    next->program.bringBackKept();

    EXPECT_THAT(next->status(), HasSubstr("The rows cannot be brought back: "));
    EXPECT_THAT(next->inputs(), ElementsAre(""));
}

TEST_F(RowsFromRunToRun, AreNothingWhereNoneWereLeft)
{
    const auto first = run();

    first->program.bringBackKept();

    EXPECT_EQ(first->status(), "No earlier run left rows that were not applied");
}

TEST(ReadKeptRows, TakesWholeFilesOfItsModelOnly)
{
    const std::string whole =
        "Velmar-Femap Interface: rows that are not applied\n"
        "C:\\\\models\\\\beam.modfem\n"
        "2\na\\nb\t1\n\\\\\n1\n\nend\n";
    const std::string model = "C:\\models\\beam.modfem";

    EXPECT_EQ(readKeptRows(whole, model), (RowTexts{{"a\nb\t1", "\\"}, {""}}));

    EXPECT_EQ(readKeptRows(whole, "C:\\models\\other.modfem"), std::nullopt);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(readKeptRows(std::string_view(whole).substr(0, size), model), std::nullopt)
            << size;
}

}  // namespace
}  // namespace app
