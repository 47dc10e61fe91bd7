// What DiskFiles does on Windows alone.
#include "system/DiskFilesFixture.h"
#include "system/Platform.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <string>
#include <vector>

namespace
{

using testing::ElementsAre;

class DiskFilesOnWindows : public DiskFilesFixture
{
protected:
    static std::vector<char> accessOf(const std::wstring& path)
    {
        DWORD size = 0;
        GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
        std::vector<char> bytes(size);
        EXPECT_TRUE(
            GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, bytes.data(), size, &size));
        return bytes;
    }
};

TEST_F(DiskFilesOnWindows, KeepsTheAttributesOfAReplacedFile)
{
    const std::string path = folder.path("out");
    const std::wstring wide = windows::toWide(path);
    write(path, "old");
    SetFileAttributesW(wide.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    const DWORD before = GetFileAttributesW(wide.c_str());
    ASSERT_NE(before & FILE_ATTRIBUTE_HIDDEN, 0U);

    replace(path);

    EXPECT_EQ(GetFileAttributesW(wide.c_str()), before);
    EXPECT_EQ(files.read(path), "new");
}

TEST_F(DiskFilesOnWindows, KeepsWhomAReplacedFileLetsDoWhat)
{
    const std::string path = folder.path("out");
    const std::wstring wide = windows::toWide(path);
    write(path, "old");
    write(folder.path("usual"), "");
    // Everybody may read it and nobody else may do anything but its owner.
    SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
    PSID everyone = nullptr;
    ASSERT_TRUE(
        AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everyone));
    std::vector<char> list(256);
    const auto acl = reinterpret_cast<PACL>(list.data());
    ASSERT_TRUE(InitializeAcl(acl, static_cast<DWORD>(list.size()), ACL_REVISION));
    ASSERT_TRUE(AddAccessAllowedAce(acl, ACL_REVISION, GENERIC_ALL, everyone));
    SECURITY_DESCRIPTOR descriptor{};
    ASSERT_TRUE(InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION));
    ASSERT_TRUE(SetSecurityDescriptorDacl(&descriptor, TRUE, acl, FALSE));
    ASSERT_TRUE(SetFileSecurityW(wide.c_str(), DACL_SECURITY_INFORMATION, &descriptor));
    FreeSid(everyone);
    const std::vector<char> before = accessOf(wide);
    ASSERT_NE(before, accessOf(windows::toWide(folder.path("usual"))));

    replace(path);

    EXPECT_EQ(accessOf(wide), before);
}

TEST_F(DiskFilesOnWindows, SaysBeforeThatAFileCannotBeReplacedBecauseItIsHeld)
{
    const std::string path = folder.path("out");
    write(path, "old");
    const HANDLE held =
        CreateFileW(windows::toWide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);

    const std::string error = refusalOf([&] { files.demandReplaceable(path); });

    CloseHandle(held);
    EXPECT_EQ(error, "File not replaced: Permission denied: " + path);
    EXPECT_EQ(refusalOf([&] { files.demandReplaceable(path); }), "no error");
    EXPECT_THAT(folder.listing(), ElementsAre("out"));
}

TEST_F(DiskFilesOnWindows, RefusesNamesOfDevices)
{
    for (const std::string name : {"aux", "com1", "COM1.txt", "nul", "Nul.kvp", "con", "lpt9.a.b",
                                   "prn ", "com\u00B2", "CONOUT$", "aux:x"}) {
        const std::string path = folder.path(name);
        const std::string reason = ": it is a device or a pipe, not a file: ";
        EXPECT_EQ(refusalOf([&] { files.read(path); }), "File not opened" + reason + path);
        EXPECT_EQ(refusalOf([&] { files.create(path); }), "File not created" + reason + path);
        EXPECT_EQ(refusalOf([&] { files.demandReplaceable(path); }),
                  "File not replaced" + reason + path);
        EXPECT_EQ(refusalOf([&] { replace(path); }), "File not replaced" + reason + path);
    }
    EXPECT_EQ(refusalOf([&] { files.read("\\\\.\\pipe\\velmar"); }),
              "File not opened: it is a device or a pipe, not a file: \\\\.\\pipe\\velmar");
}

TEST_F(DiskFilesOnWindows, TakesNamesThatOnlyLookLikeDevices)
{
    for (const std::string name : {"auxiliary", "com", "com10", "nulls.txt", "comA", "a.nul"}) {
        write(folder.path(name), name);

        EXPECT_EQ(files.read(folder.path(name)), name);
    }
}

// Wine keeps shares below its own folder; on Windows the test has none to use.
TEST_F(DiskFilesOnWindows, WritesAndReadsOnSharesHoweverLongThePath)
{
    const std::string prefix = sys::environmentVariable("WINEPREFIX");
    if (prefix.empty())
        GTEST_SKIP() << "there is no share";
    std::string place = "Z:" + prefix + "\\dosdevices\\unc";
    for (const char* level : {"", "\\velmar-test", "\\share"})
        CreateDirectoryW(sys::toPath(place += level).c_str(), nullptr);
    std::string path = "\\\\velmar-test\\share";
    ASSERT_TRUE(files.folderExists(path));
    for (const char level : {'a', 'b', 'c', 'd'}) {
        path += '\\' + std::string(90, level);
        files.createFolder(path);
        EXPECT_TRUE(files.folderExists(path));
        const std::string file = path + "/out.txt";

        files.demandReplaceable(file);
        replace(file);
        replace(file);

        EXPECT_EQ(files.read(file), "new");
        EXPECT_EQ(files.read("\\\\?\\UNC" + path.substr(1) + "\\out.txt"), "new");
        EXPECT_NE(files.lockFolder(path + '\\'), nullptr);
        std::error_code reason;
        EXPECT_EQ(sys::fullPath(path + "\\x\\..\\out.txt", reason), path + "\\out.txt");
    }
}

TEST_F(DiskFilesOnWindows, TakesThePrefixForLongPathsWhateverTheirLength)
{
    std::string path = "\\\\?\\" + folder.path();
    for (const char level : {'a', 'b', 'c', 'd'}) {
        path += '\\' + std::string(90, level);
        files.createFolder(path);

        replace(path + "\\out.txt");

        EXPECT_EQ(files.read(path + "\\out.txt"), "new");
        EXPECT_EQ(files.read(path.substr(4) + "\\out.txt"), "new");
    }
}

}  // namespace
