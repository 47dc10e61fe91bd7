#include "system/DiskFilesFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using sys::ErrorNumber;
using sys::RuntimeError;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{

class DiskFilesTest : public DiskFilesFixture
{};

TEST_F(DiskFilesTest, KeepsEveryByte)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);

    write(folder.path("bytes"), all);

    EXPECT_EQ(files.read(folder.path("bytes")), all);
}

TEST_F(DiskFilesTest, ReadsAnEmptyFileAndOneOfSeveralMegabytes)
{
    const std::string large(2'500'000, 'x');
    write(folder.path("empty"), "");
    write(folder.path("large"), large);

    EXPECT_EQ(files.read(folder.path("empty")), "");
    EXPECT_EQ(files.read(folder.path("large")), large);
}

TEST_F(DiskFilesTest, EmptiesTheFileThatIsThere)
{
    write(folder.path("out"), "a long content");
    write(folder.path("out"), "short");

    EXPECT_EQ(files.read(folder.path("out")), "short");
}

TEST_F(DiskFilesTest, AppendsToAFileAndMakesTheOneThatIsNotThere)
{
    for (const char* const piece : {"one ", "two"}) {
        const auto file = files.append(folder.path("out"));
        file->write(piece);
        file->close();
    }

    EXPECT_EQ(files.read(folder.path("out")), "one two");
}

TEST_F(DiskFilesTest, ShowsWhatIsFlushedBeforeTheFileIsClosed)
{
    const auto file = files.create(folder.path("out"));
    file->write("one");

    file->flush();

    EXPECT_EQ(files.read(folder.path("out")), "one");
}

TEST_F(DiskFilesTest, ClosesAFileThatIsDestroyed)
{
    files.create(folder.path("out"))->write("one");

    EXPECT_EQ(files.read(folder.path("out")), "one");
}

TEST_F(DiskFilesTest, TakesPathsInUtf8)
{
    write(folder.path("Träger Ø12 梁"), "x");

    EXPECT_THAT(folder.listing(), ElementsAre("Träger Ø12 梁"));
    EXPECT_EQ(files.read(folder.path("Träger Ø12 梁")), "x");
}

TEST_F(DiskFilesTest, SaysWhichFileIsMissing)
{
    const RuntimeError error = errorOf([&] { files.read(folder.path("none")); });

    EXPECT_EQ(error.number(), ErrorNumber::FileNotFound);
    EXPECT_THAT(error.description(),
                AllOf(StartsWith("File not opened: "), EndsWith(": " + folder.path("none"))));
}

TEST_F(DiskFilesTest, CannotReadAFolder)
{
    const RuntimeError error = errorOf([&] { files.read(folder.path()); });

    EXPECT_NE(error.number(), ErrorNumber::FileNotFound);
    EXPECT_THAT(error.description(),
                AllOf(StartsWith("File not "), EndsWith(": " + folder.path())));
}

TEST_F(DiskFilesTest, CannotReadBelowAFile)
{
    write(folder.path("file"), "");
    const std::string path = folder.path("file") + sys::pathSeparator + "inner";

    const RuntimeError error = errorOf([&] { files.read(path); });

    EXPECT_THAT(error.description(), AllOf(StartsWith("File not opened: "), EndsWith(": " + path)));
}

TEST_F(DiskFilesTest, CannotCreateAFileInAFolderThatIsMissing)
{
    const std::string path = folder.path("gone") + sys::pathSeparator + "out";

    const RuntimeError error = errorOf([&] { files.create(path); });

    EXPECT_EQ(error.number(), ErrorNumber::FileError);
    EXPECT_THAT(error.description(),
                AllOf(StartsWith("File not created: "), EndsWith(": " + path)));
}

TEST_F(DiskFilesTest, KnowsFoldersFromFiles)
{
    write(folder.path("file"), "");

    EXPECT_TRUE(files.folderExists(folder.path()));
    EXPECT_FALSE(files.folderExists(folder.path("file")));
    EXPECT_FALSE(files.folderExists(folder.path("none")));
}

TEST_F(DiskFilesTest, MissesWhatIsNotThereOnly)
{
    write(folder.path("file"), "");

    EXPECT_TRUE(files.isMissing(folder.path("none")));
    EXPECT_TRUE(files.isMissing(folder.path("none") + sys::pathSeparator + "file"));
    EXPECT_FALSE(files.isMissing(folder.path("file")));
    EXPECT_FALSE(files.isMissing(folder.path()));
}

TEST_F(DiskFilesTest, TellsFilesFromFoldersAndFromWhatIsNotThere)
{
    write(folder.path("file"), "");

    EXPECT_TRUE(files.fileExists(folder.path("file")));
    EXPECT_FALSE(files.fileExists(folder.path()));
    EXPECT_FALSE(files.fileExists(folder.path("none")));
}

TEST_F(DiskFilesTest, CreatesOneLevelOfFolders)
{
    const std::string inner = folder.path("new") + sys::pathSeparator + "inner";

    const RuntimeError tooDeep = errorOf([&] { files.createFolder(inner); });
    files.createFolder(folder.path("new"));
    files.createFolder(folder.path("new"));
    files.createFolder(inner);

    EXPECT_EQ(tooDeep.number(), ErrorNumber::PathNotFound);
    EXPECT_THAT(tooDeep.description(),
                AllOf(StartsWith("Folder not created: "), EndsWith(": " + inner)));
    EXPECT_TRUE(files.folderExists(inner));
}

TEST_F(DiskFilesTest, CannotCreateAFolderWhereAFileIs)
{
    write(folder.path("file"), "");

    const RuntimeError error = errorOf([&] { files.createFolder(folder.path("file")); });

    EXPECT_EQ(error.number(), ErrorNumber::PathNotFound);
}

TEST_F(DiskFilesTest, PutsAFileInThePlaceOfAnother)
{
    write(folder.path("old"), "old");
    write(folder.path("new"), "new");

    files.replace(folder.path("old"), folder.path("new"));

    EXPECT_THAT(folder.listing(), ElementsAre("old"));
    EXPECT_EQ(files.read(folder.path("old")), "new");
}

TEST_F(DiskFilesTest, LeavesTheOldFileWhenItCannotBeReplaced)
{
    write(folder.path("old"), "old");

    const RuntimeError error =
        errorOf([&] { files.replace(folder.path("old"), folder.path("none")); });

    EXPECT_EQ(error.number(), ErrorNumber::FileError);
    EXPECT_THAT(error.description(),
                AllOf(StartsWith("File not replaced: "), EndsWith(": " + folder.path("old"))));
    EXPECT_EQ(files.read(folder.path("old")), "old");
}

TEST_F(DiskFilesTest, LeavesTheOldFileWhenItIsWriteProtected)
{
    using std::filesystem::perms;
    write(folder.path("old"), "old");
    write(folder.path("new"), "new");
    const perms protectedOnes = perms::owner_read | perms::group_read | perms::others_read;
    std::filesystem::permissions(folder.path("old"), protectedOnes);

    const RuntimeError error =
        errorOf([&] { files.replace(folder.path("old"), folder.path("new")); });

    std::filesystem::permissions(folder.path("old"), protectedOnes | perms::owner_write);
    EXPECT_EQ(error.number(), ErrorNumber::PermissionDenied);
    EXPECT_EQ(error.description(), "File not replaced: Permission denied: " + folder.path("old"));
    EXPECT_EQ(files.read(folder.path("old")), "old");
}

TEST_F(DiskFilesTest, RemovesAFileAndBearsThatThereIsNone)
{
    write(folder.path("out"), "x");

    files.remove(folder.path("out"));
    files.remove(folder.path("out"));

    EXPECT_THAT(folder.listing(), IsEmpty());
}

TEST_F(DiskFilesTest, GivesATemporaryFileANameThatNobodyHas)
{
    sys::TemporaryFile one = files.createBeside(folder.path("out"));
    sys::TemporaryFile two = files.createBeside(folder.path("out"));
    one.file->write("one");
    two.file->write("two");
    one.file->close();
    two.file->close();

    EXPECT_NE(one.path, two.path);
    EXPECT_EQ(files.read(one.path), "one");
    EXPECT_EQ(files.read(two.path), "two");
}

TEST_F(DiskFilesTest, NamesTheFileItselfWhenThereCanBeNoneBesideIt)
{
    const std::string path = folder.path("gone") + sys::pathSeparator + "out";

    const RuntimeError error = errorOf([&] { files.createBeside(path); });

    EXPECT_THAT(error.description(),
                AllOf(StartsWith("File not created: "), EndsWith(": " + path)));
}

TEST_F(DiskFilesTest, TriesWhetherAFileCanBeReplacedAndLeavesNothing)
{
    write(folder.path("old"), "old");

    files.demandReplaceable(folder.path("old"));
    files.demandReplaceable(folder.path("none"));

    EXPECT_THAT(folder.listing(), ElementsAre("old"));
    EXPECT_EQ(files.read(folder.path("old")), "old");
}

TEST_F(DiskFilesTest, SaysBeforeThatAFileCannotBeReplaced)
{
    std::filesystem::create_directory(folder.path("taken"));
    const std::string gone = folder.path("gone") + sys::pathSeparator + "out";
    const std::string longName = folder.path(std::string(300, 'n'));

    EXPECT_EQ(errorOf([&] { files.demandReplaceable(folder.path("taken")); }).description(),
              "File not replaced: it is a folder, not a file: " + folder.path("taken"));
    EXPECT_THAT(errorOf([&] { files.demandReplaceable(gone); }).description(),
                AllOf(StartsWith("File not "), EndsWith(": " + gone)));
    EXPECT_THAT(errorOf([&] { files.demandReplaceable(longName); }).description(),
                AllOf(StartsWith("File not "), EndsWith(": " + longName)));
    EXPECT_THAT(folder.listing(), ElementsAre("taken"));
}

TEST_F(DiskFilesTest, SaysBeforeThatAFileIsWriteProtected)
{
    using std::filesystem::perms;
    write(folder.path("old"), "old");
    std::filesystem::permissions(folder.path("old"), perms::owner_read);

    const RuntimeError error = errorOf([&] { files.demandReplaceable(folder.path("old")); });

    std::filesystem::permissions(folder.path("old"), perms::owner_all);
    EXPECT_EQ(error.number(), ErrorNumber::PermissionDenied);
    EXPECT_EQ(error.description(), "File not replaced: Permission denied: " + folder.path("old"));
}

TEST_F(DiskFilesTest, LetsOneLockAFolderUntilItIsLetGo)
{
    auto lock = files.lockFolder(folder.path(""));
    ASSERT_NE(lock, nullptr);

    const RuntimeError error = errorOf([&] { files.lockFolder(folder.path("")); });
    lock.reset();
    const auto next = files.lockFolder(folder.path(""));

    EXPECT_EQ(error.number(), ErrorNumber::PermissionDenied);
    for (const char* const part : {"process ", ") of user ", " on computer "})
        EXPECT_THAT(error.description(), testing::HasSubstr(part));
    EXPECT_NE(next, nullptr);
}

TEST_F(DiskFilesTest, LeavesNothingOfALock)
{
    files.lockFolder(folder.path(""));

    EXPECT_THAT(folder.listing(), IsEmpty());
}

TEST_F(DiskFilesTest, RemovesTemporaryFilesOnceAFolderIsLocked)
{
    for (const char* name : {"velmar-12-3.part~", "velmar-.part~", "velmar-a.part~", "out.part~"})
        write(folder.path(name), "");

    const auto lock = files.lockFolder(folder.path(""));
    const auto listing = folder.listing();

    EXPECT_FALSE(listing.contains("velmar-12-3.part~"));
    for (const char* name : {"velmar-.part~", "velmar-a.part~", "out.part~"})
        EXPECT_TRUE(listing.contains(name)) << name;
}

TEST_F(DiskFilesTest, HasNoLockWhereThereIsNoFolder)
{
    EXPECT_EQ(files.lockFolder(folder.path("gone") + sys::pathSeparator), nullptr);
}

#ifdef __linux__
// A device that is always full.
TEST_F(DiskFilesTest, SaysThatTheDiskIsFull)
{
    const std::string reason = "File not written: No space left on device: /dev/full";
    for (const std::size_t size : {1U, 1U << 20}) {
        const RuntimeError error =
            errorOf([&] { files.create("/dev/full")->write(std::string(size, 'x')); });

        EXPECT_EQ(error.description(), reason) << size;
        EXPECT_EQ(error.number(), ErrorNumber::FileError);
    }
}
#endif

}  // namespace
