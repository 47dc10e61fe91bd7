#include "fake/LoggerFixture.h"
#include "fake/TemporaryFolder.h"
#include "generate/TextFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <new>
#include <string>

using fake::LoggerFixture;
using generate::TextFile;
using sys::RuntimeError;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Key;

namespace
{

TEST(TextFileTest, AppearsUnderItsNameOnlyWhenItIsClosed)
{
    LoggerFixture f;
    TextFile file(f.system, f.log, "/models/beam.txt");
    file.line("one");

    const bool before = f.files.contents.contains("/models/beam.txt");
    file.close();

    EXPECT_FALSE(before);
    EXPECT_THAT(f.files.contents, ElementsAre(Key("/models/beam.txt")));
    EXPECT_EQ(f.files.contents["/models/beam.txt"], "one\r\n");
}

TEST(TextFileTest, TakesThePlaceOfTheOldFileAsAWhole)
{
    LoggerFixture f;
    f.files.contents["/models/beam.txt"] = "a much longer old content\r\n";
    TextFile file(f.system, f.log, "/models/beam.txt");
    file.line("new");
    const std::string before = f.files.contents["/models/beam.txt"];

    file.close();

    EXPECT_EQ(before, "a much longer old content\r\n");
    EXPECT_EQ(f.files.contents["/models/beam.txt"], "new\r\n");
}

TEST(TextFileTest, TurnsEveryLineFeedIntoALineEnd)
{
    LoggerFixture f;
    TextFile file(f.system, f.log, "/out");

    file.write("one\n\n  two\n");
    file.write("");
    file.write("\n");
    file.write("last");
    file.close();

    EXPECT_EQ(f.files.contents["/out"], "one\r\n\r\n  two\r\n\r\nlast\r\n");
}

TEST(TextFileTest, LeavesNoTraceWhenItIsGivenUp)
{
    LoggerFixture f;
    f.files.contents["/out"] = "old";
    {
        TextFile file(f.system, f.log, "/out");
        file.line("new");
    }

    EXPECT_THAT(f.files.contents, ElementsAre(Key("/out")));
    EXPECT_EQ(f.files.contents["/out"], "old");
}

TEST(TextFileTest, IsTheOldOneOrTheNewOneWhicheverOperationFails)
{
    const std::string large(300'000, 'x');
    int failures = 0;
    for (int failing = 1; failing == failures + 1; ++failing) {
        LoggerFixture f;
        f.files.contents["/out"] = "old";
        f.files.failingOperation = failing;

        bool raised = false;
        try {
            TextFile file(f.system, f.log, "/out");
            file.line(large);
            file.line("end");
            file.close();
        }
        catch (const RuntimeError& error) {
            raised = true;
            EXPECT_THAT(error.description(), HasSubstr("/out"));
            EXPECT_THAT(error.description(), HasSubstr("No space left on device"));
        }

        EXPECT_THAT(f.files.contents, ElementsAre(Key("/out"))) << "operation " << failing;
        EXPECT_EQ(f.files.contents["/out"], raised ? "old" : large + "\r\nend\r\n");
        failures += raised ? 1 : 0;
    }

    // Create, two writes, flush, close and replace can fail.
    EXPECT_EQ(failures, 6);
}

TEST(TextFileTest, StaysTheOldOneWhenItIsClosedInSpiteOfAFailedWrite)
{
    LoggerFixture f;
    f.files.contents["/out"] = "old";
    f.files.failingOperation = 2;
    {
        TextFile file(f.system, f.log, "/out");
        f.error.attempt([&] { file.line(std::string(300'000, 'x')); });
        f.error.attempt([&] { file.line("end"); });

        EXPECT_THROW(file.close(), RuntimeError);
    }

    EXPECT_THAT(f.files.contents, ElementsAre(Key("/out")));
    EXPECT_EQ(f.files.contents["/out"], "old");
}

// A page that converts nothing, for one reason or the other.
class CodePageThatFails : public sys::CodePage
{
public:
    bool isMemoryUsedUp = false;

    bool encode(std::string_view, std::string&) const override
    {
        if (isMemoryUsedUp)
            throw std::bad_alloc();
        throw RuntimeError(sys::ErrorNumber::FileError, "No such page");
    }
    std::string decode(std::string_view) const override { return {}; }
};

TEST(TextFileTest, StaysTheOldOneWhenItsTextCannotBeConverted)
{
    CodePageThatFails codePage;
    for (const bool isMemoryUsedUp : {false, true}) {
        LoggerFixture f;
        codePage.isMemoryUsedUp = isMemoryUsedUp;
        sys::System system{f.files, codePage, f.system.localTime, f.system.monotonicSeconds,
                           f.system.environment};
        f.files.contents["/out"] = "old";
        f.error.attempt([&] {
            TextFile file(system, f.log, "/out");
            file.line("Träger");
            file.close();
        });

        EXPECT_THAT(
            f.error.description(),
            testing::StartsWith(isMemoryUsedUp ? "No memory is left. Close "
                                               : "No such page. out was not written. See that "));
        EXPECT_THAT(f.files.contents, ElementsAre(Key("/out")));
        EXPECT_EQ(f.files.contents["/out"], "old");
    }
}

TEST(TextFileTest, LogsOnceAtWhichLineCharactersWereLost)
{
    LoggerFixture f;
    f.start("DEBUG");
    TextFile file(f.system, f.log, "/out");

    file.write("Träger\nσ\nτ\n");
    file.close();

    EXPECT_EQ(f.files.contents["/out"], "Tr\xE4ger\r\n?\r\n?\r\n");
    EXPECT_EQ(f.content(),
              "DEBUG: /out: line 2 is the first with a character that the code page lacks; it is "
              "written as ?\r\n");
}

TEST(TextFileTest, LogsNothingWhenTheCodePageHasEveryCharacter)
{
    LoggerFixture f;
    f.start("ALWAYS");
    TextFile file(f.system, f.log, "/out");

    file.line("Träger Ø12 €");
    file.close();

    EXPECT_EQ(f.content(), "");
}

class TextFileOnDisk : public testing::Test
{
protected:
    TextFileOnDisk() : system(sys::thisMachine()), log(system) {}

    std::string read(const std::string& path) { return system.files.read(path); }

    fake::TemporaryFolder folder;
    sys::System system;
    logging::FemapLogger log;
};

TEST_F(TextFileOnDisk, ReplacesTheOldFile)
{
    const std::string path = folder.path("Träger & Co.txt");
    for (const std::string content : {"first and long", "second"}) {
        TextFile file(system, log, path);
        file.line(content);
        file.close();
    }

    EXPECT_EQ(read(path), "second\r\n");
    EXPECT_THAT(folder.listing(), ElementsAre("Träger & Co.txt"));
}

TEST_F(TextFileOnDisk, LeavesTheOldFileAndNoOtherWhenItIsGivenUp)
{
    const std::string path = folder.path("out.txt");
    {
        TextFile file(system, log, path);
        file.line("old");
        file.close();
    }
    {
        TextFile file(system, log, path);
        file.line("new");
    }

    EXPECT_EQ(read(path), "old\r\n");
    EXPECT_THAT(folder.listing(), ElementsAre("out.txt"));
}

TEST_F(TextFileOnDisk, LeavesNoOtherFileWhenItsPlaceIsTakenByAFolder)
{
    const std::string path = folder.path("taken");
    std::filesystem::create_directory(folder.path("taken"));
    {
        TextFile file(system, log, path);
        file.line("new");

        EXPECT_THROW(file.close(), RuntimeError);
    }

    EXPECT_THAT(folder.listing(), ElementsAre("taken"));
}

TEST_F(TextFileOnDisk, CannotBeginInAFolderThatIsGone)
{
    const std::string path = folder.path("gone") + sys::pathSeparator + "out.txt";

    EXPECT_THROW(TextFile(system, log, path), RuntimeError);
}

}  // namespace
