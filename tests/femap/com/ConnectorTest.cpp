#include "femap/com/Apartment.h"
#include "standin/InstalledStandin.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace comtest
{

using femap::com::ComConnector;
using sys::RuntimeError;
using testing::Contains;
using testing::HasSubstr;

namespace
{

struct Connector : testing::Test
{
    femap::com::Apartment apartment;
    ComConnector connector{nullptr};

    std::string raisedBy(const std::function<void()>& action)
    {
        try {
            action();
        }
        catch (const RuntimeError& error) {
            return error.description();
        }
        return "nothing was raised";
    }
};

}  // namespace

TEST_F(Connector, FindsNoneWhereFemapIsNotInstalled)
{
    EXPECT_THAT(raisedBy([&] { connector.attach(); }),
                HasSubstr("FEMAP is not installed on this machine: 0x800401F3"));
    EXPECT_THAT(raisedBy([&] { connector.create(); }),
                HasSubstr("FEMAP is not installed on this machine: 0x800401F3"));
}

TEST_F(Connector, FindsNoneWhereNoneRuns)
{
    const InstalledStandin installed;

    EXPECT_THAT(raisedBy([&] { connector.attach(); }),
                HasSubstr("No FEMAP is running: 0x800401E3"));
}

TEST_F(Connector, FindsNoneThatDoesNotAnnounceItself)
{
    StartedStandin standin("--no-rot");

    EXPECT_THROW(connector.attach(), RuntimeError);
}

TEST_F(Connector, AttachesToTheOneThatRuns)
{
    const std::string calls = temporaryFile("standin-attach.txt");
    StartedStandin standin("--calls \"" + calls + '"');

    const std::unique_ptr<femap::Application> femap = connector.attach();
    femap->feAppLock();

    EXPECT_EQ(standin.control().call("standinLockCount").number(), 1);
    EXPECT_THAT(linesOf(calls), Contains("application.feAppLock() = -1"));
}

TEST_F(Connector, StartsFemapAndLetsItEndWithTheLastReference)
{
    const InstalledStandin installed("--model\n" + panelModel());

    std::unique_ptr<femap::Application> femap = connector.create();

    EXPECT_EQ(femap->ModelName(), panelModel());
    EXPECT_TRUE(runningFemap().has_value());
    femap.reset();
    EXPECT_TRUE(comesTrue([] { return !runningFemap().has_value(); }));
}

TEST_F(Connector, MeetsTheRunningOneWhenItCreates)
{
    StartedStandin standin("");

    connector.create()->feAppLock();

    EXPECT_EQ(standin.control().call("standinLockCount").number(), 1);
}

TEST_F(Connector, GivesTheFemapInUseAgainAlsoWhereAnotherLookWouldNotFindIt)
{
    StartedStandin standin("--no-rot");
    std::unique_ptr<femap::Application> first = connector.create();

    std::unique_ptr<femap::Application> second = connector.attach();
    second->feAppLock();
    connector.create()->feAppLock();

    EXPECT_EQ(standin.control().call("standinLockCount").number(), 2);
    first.reset();
    second.reset();
    EXPECT_THROW(connector.attach(), RuntimeError);
}

TEST(Standin, LeavesNoRegistrationBehind)
{
    const femap::com::Apartment apartment;
    CLSID id{};
    {
        const StartedStandin standin("");
        EXPECT_TRUE(SUCCEEDED(CLSIDFromProgID(L"femap.model", &id)));
    }

    EXPECT_TRUE(FAILED(CLSIDFromProgID(L"femap.model", &id)));
}

TEST(Standin, DoesNotTakeThePlaceOfARealFemap)
{
    HKEY key = nullptr;
    const std::wstring other = L"{A01DD4C4-A8F0-11D4-9FAC-00105A0A86C2}";
    ASSERT_EQ(RegCreateKeyW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\femap.model\\CLSID", &key),
              ERROR_SUCCESS);
    RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(other.c_str()),
                   static_cast<DWORD>((other.size() + 1) * sizeof(wchar_t)));

    EXPECT_EQ(runStandin(""), static_cast<DWORD>(EXIT_FAILURE));
    EXPECT_EQ(runStandin("/regserver"), static_cast<DWORD>(EXIT_FAILURE));
    EXPECT_EQ(runStandin("/unregserver"), static_cast<DWORD>(EXIT_FAILURE));

    RegCloseKey(key);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\femap.model");
}

TEST(Standin, RefusesArgumentsThatItDoesNotKnow)
{
    EXPECT_EQ(runStandin("--nonsense"), 2U);
    EXPECT_EQ(runStandin("--model"), 2U);
}

}  // namespace comtest
