#include "fake/TemporaryFolder.h"
#include "system/Files.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using sys::ErrorNumber;
using sys::OutputFile;
using sys::RuntimeError;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

class OpenAlone : public testing::Test
{
protected:
    void put(const std::string& content)
    {
        const auto file = files.create(path);
        file->write(content);
        file->close();
    }
    std::unique_ptr<OutputFile> open(bool mayEmpty = true)
    {
        return files.openAlone(path, [this, mayEmpty](std::string_view line) {
            linesSeen.emplace_back(line);
            return mayEmpty;
        });
    }

    fake::TemporaryFolder folder;
    sys::DiskFiles files;
    std::string path = folder.path("Träger.log");
    std::vector<std::string> linesSeen;
};

TEST_F(OpenAlone, MakesAFileThatIsMissing)
{
    open(false)->write("new");

    EXPECT_EQ(files.read(path), "new");
    EXPECT_THAT(linesSeen, IsEmpty());
}

TEST_F(OpenAlone, WritesWhatOthersCanReadAtOnce)
{
    const auto file = open();

    file->write("one");
    const std::string first = files.read(path);
    file->write("two");

    EXPECT_EQ(first, "one");
    EXPECT_EQ(files.read(path), "onetwo");
}

TEST_F(OpenAlone, EmptiesAFileWhoseFirstLineIsAsItShouldBe)
{
    put("first\r\nsecond\r\n");

    open(true)->write("new");

    EXPECT_EQ(files.read(path), "new");
    EXPECT_THAT(linesSeen, ElementsAre("first"));
}

TEST_F(OpenAlone, LeavesAFileWhoseFirstLineIsAnother)
{
    for (const std::string content : {"first\nsecond\n", "first", "\n", "x"}) {
        put(content);

        EXPECT_EQ(open(false), nullptr);

        EXPECT_EQ(files.read(path), content);
        EXPECT_NE(open(true), nullptr) << "it is still held";
    }
}

TEST_F(OpenAlone, AsksNothingAboutAnEmptyFile)
{
    put("");

    open(false)->write("new");

    EXPECT_EQ(files.read(path), "new");
    EXPECT_THAT(linesSeen, IsEmpty());
}

TEST_F(OpenAlone, IsDeniedAndChangesNothingWhileAnotherHasIt)
{
    const auto first = open();
    first->write("one");

    try {
        open();
        ADD_FAILURE() << "no error was raised";
    }
    catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::PermissionDenied);
        EXPECT_EQ(error.description(), "another program has the file open: " + path);
    }
    first->write("two");
    first->close();

    EXPECT_EQ(files.read(path), "onetwo");
    EXPECT_NE(open(), nullptr);
}

TEST_F(OpenAlone, IsRefusedAFolder)
{
    files.createFolder(path);

    EXPECT_THROW(open(), RuntimeError);

    EXPECT_TRUE(files.folderExists(path));
}

}  // namespace
