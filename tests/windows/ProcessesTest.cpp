#include "windows/Processes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

using windows::isElevated;
using windows::Process;

TEST(Processes, HoldThisOneWithItsProgram)
{
    const std::vector<Process> all = windows::processes();

    const auto own = std::ranges::find(all, GetCurrentProcessId(), &Process::number);
    ASSERT_NE(own, all.end());
    EXPECT_TRUE(windows::isSameFileName(own->program, "WINDOWS_TEST.EXE")) << own->program;
    EXPECT_TRUE(own->isOfOwnSession);
}

TEST(Processes, TellTheirRightsWhereTheyAreThere)
{
    EXPECT_TRUE(isElevated(GetCurrentProcess()).has_value());
    EXPECT_EQ(isElevated(GetCurrentProcessId()), isElevated(GetCurrentProcess()));
    EXPECT_FALSE(isElevated(DWORD{3}).has_value());  // numbers are multiples of 4
}

TEST(ServerProgram, IsTheFileThatIsRegistered)
{
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\Classes\\velmar.test", &key),
              ERROR_SUCCESS);
    const auto set = [&](const wchar_t* name, std::wstring_view text) {
        RegSetKeyValueW(HKEY_CURRENT_USER, name, nullptr, REG_SZ, text.data(),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    };
    set(L"Software\\Classes\\velmar.test\\CLSID", L"{0B1D}");
    set(L"Software\\Classes\\CLSID\\{0B1D}\\LocalServer32",
        L"\"C:\\Program Files\\Some One\\server.exe\" /Automation");

    EXPECT_EQ(windows::serverProgramOf("velmar.test"), "server.exe");
    EXPECT_EQ(windows::serverProgramOf("velmar.other"), "");

    RegCloseKey(key);
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Classes\\velmar.test");
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Classes\\CLSID\\{0B1D}");
}

}  // namespace
