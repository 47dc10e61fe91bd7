#include "femap/com/Apartment.h"
#include "femap/com/FemapProcesses.h"
#include "standin/Registration.h"
#include "standin/StartedStandin.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace comtest
{

using femap::RunningFemaps;
using femap::com::ComConnector;
using femap::com::FemapProcess;
using femap::com::runningAmong;
using testing::HasSubstr;

namespace
{

constexpr bool plain = false;
constexpr bool elevated = true;

// A program of that name that does nothing until this goes.
class SleepingProgram
{
public:
    explicit SleepingProgram(const std::string& program)
    {
        std::wstring line = L'"' + windows::toWide(program) + L'"';
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED,
                                   nullptr, nullptr, &startup, &process_));
        endWithThisProgram(process_.hProcess);
    }
    ~SleepingProgram()
    {
        TerminateProcess(process_.hProcess, 0);
        WaitForSingleObject(process_.hProcess, 5000);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }
    SleepingProgram(const SleepingProgram&) = delete;
    SleepingProgram& operator=(const SleepingProgram&) = delete;

private:
    PROCESS_INFORMATION process_{};
};

// A FEMAP in this process that knows its window and that it is modified, and nothing else.
class WindowOwner : public IDispatch
{
public:
    virtual ~WindowOwner() = default;

    bool knowsItsWindow = true;
    long modified = -1;
    int calls = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool isKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch);
        *object = isKnown ? static_cast<IDispatch*>(this) : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                            DISPID* number) override
    {
        const std::wstring_view name = names[0];
        *number = name == L"hMainWnd" ? 10256 : 20492;
        return (name == L"hMainWnd" && knowsItsWindow) || name == L"feFileIsModified"
                   ? S_OK
                   : DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS*,
                                     VARIANT* result, EXCEPINFO*, UINT*) override
    {
        ++calls;
        result->vt = number == 10256 ? VT_I8 : VT_I4;
        result->llVal = number == 10256 ? reinterpret_cast<LONGLONG>(window_) : modified;
        return S_OK;
    }
    void end() { DestroyWindow(window_); }

private:
    HWND window_ = CreateWindowW(L"STATIC", L"", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
};

// That FEMAP is the one that is found, and a stand-in's program runs besides.
struct FemapHere : testing::Test
{
    FemapHere()
    {
        EXPECT_TRUE(SUCCEEDED(
            RegisterActiveObject(&femap, standin::standinClass, ACTIVEOBJECT_STRONG, &active)));
    }
    ~FemapHere() override
    {
        RevokeActiveObject(active, nullptr);
        femap.end();
    }

    femap::com::Apartment apartment;
    StartedStandin standin{"--no-rot"};
    WindowOwner femap;
    DWORD active = 0;
    ComConnector connector{nullptr};
};

}  // namespace

TEST(RightsOfFemap, HideItWhereTheyDiffer)
{
    constexpr std::optional<bool> unknown;
    const auto isHidden = [](std::optional<bool> own, std::optional<bool> its) {
        return runningAmong(std::array{FemapProcess{12, its}}, own, 0).isOneHidden;
    };

    EXPECT_TRUE(isHidden(plain, elevated));
    EXPECT_TRUE(isHidden(elevated, plain));
    EXPECT_TRUE(isHidden(plain, unknown)) << "it may not be looked at";

    EXPECT_FALSE(isHidden(plain, plain));
    EXPECT_FALSE(isHidden(elevated, elevated));
    EXPECT_FALSE(isHidden(elevated, unknown));
    EXPECT_FALSE(isHidden(unknown, elevated));
}

TEST(RightsOfFemap, HideNoneThatIsInUse)
{
    const std::array both = {FemapProcess{12, plain}, FemapProcess{16, plain}};

    EXPECT_FALSE(runningAmong(std::span(both).first(1), elevated, 12).isOneHidden);
    EXPECT_TRUE(runningAmong(both, elevated, 12).isOneHidden);
}

TEST(RightsOfFemap, AreToldWhereNoneIsFound)
{
    EXPECT_EQ(femap::com::whyNoneIsFound({}), "No FEMAP is running");
    EXPECT_THAT(femap::com::whyNoneIsFound({.isOneHidden = true}),
                HasSubstr("only one of the two was started as administrator"));
}

TEST(FemapProcesses, AreThoseOfAnyOfTheNames)
{
    const std::array names = {std::string("FEMAP_COM_TEST.exe"), std::string("none.exe")};

    const std::vector<FemapProcess> found = femap::com::processesOf(names);

    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].number, GetCurrentProcessId());
    EXPECT_TRUE(found[0].isElevated.has_value());
}

TEST_F(FemapHere, IsNotAskedForItsWindowWhereItIsTheOnlyOne)
{
    const std::unique_ptr<femap::Application> given = connector.attach();
    femap.calls = 0;

    const RunningFemaps running = connector.running();

    EXPECT_EQ(running.count, 1);
    EXPECT_FALSE(running.isOneHidden);
    EXPECT_EQ(femap.calls, 0);
}

TEST_F(FemapHere, IsToldByItsProcessWhereSeveralRun)
{
    const SleepingProgram other(PROGRAM_FOLDER "/test-standin.exe");
    const std::unique_ptr<femap::Application> given = connector.attach();

    const RunningFemaps running = connector.running();

    EXPECT_EQ(running.count, 2);
    EXPECT_EQ(running.process, GetCurrentProcessId());
}

TEST_F(FemapHere, IsToldWithoutAProcessThatItDoesNotTell)
{
    femap.knowsItsWindow = false;
    const SleepingProgram other(PROGRAM_FOLDER "/test-standin.exe");
    const std::unique_ptr<femap::Application> given = connector.attach();

    const RunningFemaps running = connector.running();

    EXPECT_EQ(running.count, 2);
    EXPECT_EQ(running.process, std::nullopt);
}

TEST_F(FemapHere, TellsWhetherItsModelHasChangesThatAreNotSaved)
{
    const std::unique_ptr<femap::Application> given = connector.attach();

    EXPECT_TRUE(given->feFileIsModified());
    femap.modified = 0;
    EXPECT_FALSE(given->feFileIsModified());
}

}  // namespace comtest
