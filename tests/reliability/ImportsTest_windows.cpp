#include "Imports.h"
#include "system/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace reliability
{

using testing::Contains;
using testing::IsEmpty;
using testing::IsSubsetOf;

namespace
{

// Beginnings of the names of all functions with which a program starts another one.
constexpr std::string_view startsPrograms[] = {
    "CreateProcess", "ShellExecute", "WinExec", "system", "_wsystem", "_spawn",
    "_wspawn",       "_exec",        "_wexec",  "_popen", "_wpopen",  "OpenAs_RunDLL",
};
// And of those that change the registry, or open it for more than reading.
constexpr std::string_view changesRegistry[] = {
    "RegConnect", "RegCopy", "RegCreate", "RegDelete", "RegLoad", "RegReplace", "RegRestore",
    "RegSave",    "RegSet",  "RegUnLoad", "RegRename", "SHSet",   "SHReg",      "SHDelete"};

/// The programs that an engineer gets.
class Program : public testing::TestWithParam<const char*>
{
protected:
    template <class Names>
    std::vector<std::string> functionsThatBeginWith(const Names& names) const
    {
        std::vector<std::string> found;
        for (const auto& [library, functions] : imports)
            for (const std::string& function : functions)
                if (std::ranges::any_of(
                        names, [&](std::string_view name) { return function.starts_with(name); }))
                    found.push_back(library + " " + function);
        return found;
    }

    const Imports imports = importsOf(sys::DiskFiles().read(GetParam()));
};

INSTANTIATE_TEST_SUITE_P(Of, Program,
                         testing::Values(PROGRAM_FOLDER "/VelmarFemapInterface.exe",
                                         PROGRAM_FOLDER "/velmar-study.exe"),
                         [](const auto& program) {
                             return std::string(program.param) == PROGRAM_FOLDER
                                            "/VelmarFemapInterface.exe"
                                        ? "TheForm"
                                        : "Studies";
                         });

}  // namespace

// Windows' own viewer is asked for by hand only, and its library is not loaded before.
TEST_P(Program, StartsNoOther)
{
    EXPECT_THAT(functionsThatBeginWith(startsPrograms), IsEmpty());
}

TEST_P(Program, ChangesNothingInTheRegistry)
{
    EXPECT_THAT(functionsThatBeginWith(changesRegistry), IsEmpty());
    // Of the library that reaches the registry only what copies whom a file lets do what, and what
    // the probe of FEMAP reads: where FEMAP is registered, and who runs elevated.
    EXPECT_THAT(imports.at("advapi32.dll"),
                IsSubsetOf({"GetFileSecurityW", "SetFileSecurityW", "GetSecurityDescriptorControl",
                            "SetSecurityDescriptorControl", "RegOpenKeyExW", "RegQueryValueExW",
                            "RegCloseKey", "OpenProcessToken", "GetTokenInformation"}));
}

// No network among them.
TEST_P(Program, NeedsOnlyLibrariesThatComeWithEveryWindows)
{
    std::vector<std::string> libraries;
    for (const auto& [library, functions] : imports)
        libraries.push_back(library);

    EXPECT_THAT(libraries, IsSubsetOf({"advapi32.dll", "comctl32.dll", "gdi32.dll", "kernel32.dll",
                                       "msvcrt.dll", "ole32.dll", "oleaut32.dll", "user32.dll"}));
    EXPECT_THAT(libraries, Contains("kernel32.dll"));
}

TEST_P(Program, TakesLibrariesFromTheSystemsFolderOnly)
{
    EXPECT_THAT(imports.at("kernel32.dll"), Contains("SetDefaultDllDirectories"));
}

TEST(TheStandIn, IsNoneOfTheseForItRegistersItself)
{
    const Imports imports = importsOf(sys::DiskFiles().read(PROGRAM_FOLDER "/femap-standin.exe"));

    EXPECT_THAT(imports.at("advapi32.dll"), Contains("RegSetKeyValueW"));
}

}  // namespace reliability
