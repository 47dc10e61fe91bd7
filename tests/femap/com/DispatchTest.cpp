#include "femap/Objects.h"
#include "femap/com/Apartment.h"
#include "femap/com/Dispatch.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>

namespace comtest
{

using femap::ConnectionLost;
using femap::com::Connection;
using femap::com::Dispatch;
using femap::com::RetryPolicy;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

// An object that answers each call with the next result of a list.
class ScriptedObject : public IDispatch
{
public:
    virtual ~ScriptedObject() = default;

    std::deque<HRESULT> results;
    EXCEPINFO exception{};  // what a call that fails with DISP_E_EXCEPTION tells
    HRESULT nameResult = S_OK;
    int nameCalls = 0;
    int calls = 0;
    int references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                            DISPID* number) override
    {
        ++nameCalls;
        *number = 7;
        return std::wstring_view(names[0]) == L"Missing" ? DISP_E_UNKNOWNNAME : nameResult;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*,
                                     EXCEPINFO* told, UINT*) override
    {
        ++calls;
        *told = exception;
        if (results.empty())
            return S_OK;
        const HRESULT result = results.front();
        results.pop_front();
        return result;
    }
};

struct DispatchTest : testing::Test
{
    DispatchTest()
    {
        retryPolicy->wait = [](RetryPolicy::Duration) {};
    }

    std::shared_ptr<RetryPolicy> retryPolicy = std::make_shared<RetryPolicy>();
    std::shared_ptr<Connection> connection = std::make_shared<Connection>(retryPolicy);
    ScriptedObject scripted;
    Dispatch dispatch{&scripted, "thing", connection};

    // Of the call to a member.
    std::string reasonOfFailure()
    {
        try {
            dispatch.call("Name");
        }
        catch (const RuntimeError& error) {
            return error.description();
        }
        return "it did not fail";
    }
};

struct Gone : DispatchTest, testing::WithParamInterface<HRESULT>
{};

INSTANTIATE_TEST_SUITE_P(EachResult, Gone,
                         testing::Values(HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE),
                                         HRESULT_FROM_WIN32(RPC_S_CALL_FAILED),
                                         HRESULT_FROM_WIN32(RPC_S_CALL_FAILED_DNE),
                                         RPC_E_DISCONNECTED, RPC_E_SERVER_DIED,
                                         RPC_E_SERVER_DIED_DNE, RPC_E_CONNECTION_TERMINATED,
                                         CO_E_OBJNOTCONNECTED));

}  // namespace

TEST_F(DispatchTest, AsksForANameOnceForEachKindOfObject)
{
    dispatch.call("Name");
    dispatch.call("Name");
    Dispatch(&scripted, "thing", connection).call("Name");
    EXPECT_EQ(scripted.nameCalls, 1);

    Dispatch(&scripted, "other", connection).call("Name");

    EXPECT_EQ(scripted.nameCalls, 2);
}

TEST_F(DispatchTest, RaisesForANameThatFemapLacksWithoutACall)
{
    EXPECT_FALSE(dispatch.has("Missing"));

    try {
        dispatch.call("Missing");
        FAIL() << "did not raise";
    }
    catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::NoSuchMember);
        EXPECT_EQ(error.description(), "FEMAP's thing has no member Missing");
    }
    EXPECT_EQ(scripted.calls, 0);
}

TEST_F(DispatchTest, GivesBackItsReference)
{
    {
        const Dispatch moved(std::move(dispatch));
    }

    EXPECT_EQ(scripted.references, 0);
}

TEST_F(DispatchTest, RefusesAnObjectThatIsNone)
{
    EXPECT_THROW(Dispatch(nullptr, "thing", connection), RuntimeError);
    EXPECT_THROW(dispatch.object("Name"), RuntimeError);
}

TEST_F(DispatchTest, RepeatsACallThatABusyFemapRejected)
{
    scripted.results = {RPC_E_CALL_REJECTED, RPC_E_SERVERCALL_RETRYLATER, RPC_E_CALL_REJECTED};

    dispatch.call("Name");

    EXPECT_EQ(scripted.calls, 4);
}

TEST_F(DispatchTest, RaisesWhenTheWaitIsTooLong)
{
    RetryPolicy::Duration time{};
    retryPolicy->now = [&] { return time; };
    retryPolicy->wait = [&](RetryPolicy::Duration pause) { time += pause * 1000; };
    scripted.results.assign(100, RPC_E_CALL_REJECTED);

    EXPECT_THROW(dispatch.call("Name"), RuntimeError);

    EXPECT_EQ(scripted.calls, 4);
}

TEST_F(DispatchTest, GivesTheNumberOfAnErrorThatHasNoWords)
{
    scripted.results = {DISP_E_EXCEPTION};
    scripted.exception.wCode = 1004;

    EXPECT_EQ(reasonOfFailure(), "FEMAP's thing.Name failed: error 1004 of FEMAP's");
}

TEST_F(DispatchTest, GivesTheWordsOfAnErrorRatherThanItsNumber)
{
    scripted.results = {DISP_E_EXCEPTION};
    scripted.exception.wCode = 1004;
    scripted.exception.bstrDescription = SysAllocString(L"the set is empty");

    EXPECT_EQ(reasonOfFailure(), "FEMAP's thing.Name failed: the set is empty");
}

TEST_F(DispatchTest, GivesTheCodeOfAnErrorThatHasNeitherWordsNorNumber)
{
    scripted.results = {DISP_E_EXCEPTION};
    scripted.exception.scode = E_OUTOFMEMORY;

    EXPECT_THAT(reasonOfFailure(), testing::HasSubstr("failed: 0x8007000E"));
}

TEST_F(DispatchTest, GivesTheWordsThatAServerFillsInOnlyWhenItIsAsked)
{
    scripted.results = {DISP_E_EXCEPTION};
    scripted.exception.pfnDeferredFillIn = [](EXCEPINFO* info) -> HRESULT {
        info->bstrDescription = SysAllocString(L"no such entity");
        return S_OK;
    };

    EXPECT_EQ(reasonOfFailure(), "FEMAP's thing.Name failed: no such entity");
}

TEST_F(DispatchTest, TakesAnyRefusalOfANameByFemapForALackOfIt)
{
    for (const HRESULT refusal : {E_FAIL, E_NOTIMPL, DISP_E_UNKNOWNLCID, DISP_E_MEMBERNOTFOUND}) {
        scripted.nameResult = refusal;
        const std::string name = "Name" + std::to_string(scripted.nameCalls);

        EXPECT_FALSE(dispatch.has(name)) << windows::describe(refusal);
        EXPECT_FALSE(dispatch.has(name)) << "it is known now";
    }
    EXPECT_EQ(scripted.nameCalls, 4);
}

TEST_F(DispatchTest, AsksForANameAgainThatDidNotGetThrough)
{
    for (const HRESULT failure : {RPC_E_SERVERFAULT, RPC_E_TIMEOUT, E_ACCESSDENIED}) {
        scripted.nameResult = failure;
        EXPECT_THROW(dispatch.has("Name"), RuntimeError) << windows::describe(failure);
        EXPECT_THAT(reasonOfFailure(),
                    testing::StartsWith("FEMAP's thing.Name failed: " +
                                        windows::describe(failure).substr(0, 10)));
    }
    EXPECT_EQ(scripted.nameCalls, 6);
    EXPECT_EQ(scripted.calls, 0);

    scripted.nameResult = S_OK;
    EXPECT_TRUE(dispatch.has("Name"));
}

TEST_P(Gone, FemapIsNotCalledAgain)
{
    scripted.results = {S_OK, GetParam()};
    dispatch.call("Name");
    EXPECT_THROW(dispatch.call("Name"), ConnectionLost);

    EXPECT_THROW(dispatch.call("Name"), ConnectionLost);
    EXPECT_THROW(dispatch.call("Other"), ConnectionLost);
    EXPECT_THROW(dispatch.put("Name", 1), ConnectionLost);
    EXPECT_THROW(Dispatch(&scripted, "other", connection).has("Name"), ConnectionLost);

    EXPECT_EQ(scripted.calls, 2);
    EXPECT_EQ(scripted.nameCalls, 1);
}

TEST(DispatchOnWindows, CallsAnObjectThatIsThereAnyway)
{
    const femap::com::Apartment apartment;
    CLSID id{};
    IDispatch* object = nullptr;
    if (FAILED(CLSIDFromProgID(L"Scripting.Dictionary", &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object))))
        GTEST_SKIP() << "there is no Scripting.Dictionary";
    Dispatch dictionary(object, "dictionary",
                        std::make_shared<Connection>(std::make_shared<RetryPolicy>()));

    dictionary.put("CompareMode", 1);
    dictionary.call("Add", "Öse", 12);

    EXPECT_EQ(dictionary.call("Count").number(), 1);
    EXPECT_EQ(dictionary.call("Item", "Öse").number(), 12);
    dictionary.put("Item", "Öse", 14);
    EXPECT_EQ(dictionary.call("Item", "Öse").number(), 14);
    EXPECT_THROW(dictionary.call("Add", "Öse", 13), RuntimeError);  // it is there already
    EXPECT_FALSE(dictionary.has("ModelName"));
}

}  // namespace comtest
