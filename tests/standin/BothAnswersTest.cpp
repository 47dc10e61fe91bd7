// What nobody has seen a real FEMAP answer yet: the stand-in gives the likely answer, and in a mode
// the other one. Where no mode has the other answer, the test says what the stand-in does.
#include "standin/StandinHere.h"
#include "standin/StartedStandin.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace comtest
{

using femap::com::Dispatch;
using femap::com::Variant;
using standin::Mode;
using sys::RuntimeError;
using testing::Contains;
using testing::Not;

namespace
{

constexpr int outputVector = 29;
constexpr int plateBottomBefore = 7433;  // von Mises stress, by FEMAP's numbers before 2020.1
constexpr int plateBottomSince = 9033;
constexpr int ok = -1;
constexpr int fail = 0;
constexpr int notExist = 4;

std::vector<int> idsIn(Dispatch& set)
{
    LONG count = 0;
    Variant ids;
    set.call("GetArray", &count, &ids);
    return ids.numbers();
}

// Adds a second output set with one vector and makes it the active one.
void addActiveOutputSet(StandinHere& here)
{
    femap::neutral::OutputSet second;
    second.id = 2;
    second.vectors.put({.id = 5, .title = "Other"});
    here.server.host.model->outputSets.put(second);
    here.server.host.model->activeOutputSet = 2;
}

}  // namespace

TEST(WhetherANewerFemapHasWhatItReplaced, HasBothAnswers)
{
    StandinHere newer;
    StandinHere both({Mode::Superseded});

    EXPECT_FALSE(newer.femap.has("feOutput"));
    EXPECT_FALSE(newer.object("feSet").has("SelectMultiID"));
    EXPECT_FALSE(newer.object("feResults").has("AddColumn"));
    Dispatch output = both.object("feOutput");
    EXPECT_EQ(output.call("Get", 1).number(), ok);
    EXPECT_TRUE(both.object("feSet").has("SelectMultiID"));
    EXPECT_TRUE(both.object("feSet").has("SelectMultiIDV2"));
    Dispatch results = both.object("feResults");
    EXPECT_EQ(results.call("VectorExists", 1, 1).number(), ok);
    EXPECT_EQ(results.call("VectorExistsV2", 1, 1).number(), ok);
    EXPECT_EQ(both.femap.call("standinSuperseded").text(),
              "application.feOutput\nfeOutput.Get\nfeResults.VectorExists\n");
    EXPECT_EQ(newer.femap.call("standinSuperseded").text(), "");
}

TEST(WhichVectorsAreAddedWithoutAnOutputSet, HasBothAnswers)
{
    StandinHere first({}, true);
    StandinHere active({Mode::VectorsOfActiveSet}, true);

    for (StandinHere* const here : {&first, &active}) {
        addActiveOutputSet(*here);
        const bool isActive = here == &active;
        Dispatch set = here->object("feSet");
        set.call("AddAll", outputVector);
        EXPECT_EQ(idsIn(set) == std::vector<int>{5}, isActive);
        EXPECT_EQ(here->object("feOutput").call("setID").number(), isActive ? 2 : 1);
    }
}

TEST(WhetherAValueThatIsNotThereIsAnError, HasBothAnswers)
{
    constexpr int nowhere = 987'654;
    for (const bool isZero : {false, true}) {
        const std::initializer_list<Mode> modes = {Mode::MissingIsZero};
        const std::initializer_list<Mode> none = {};
        StandinHere older(isZero ? modes : none, true);
        StandinHere newer(isZero ? modes : none);
        Dispatch output = older.loaded("feOutput", 1);
        double value = 4711;
        const int code =
            newer.object("feResults").call("EntityValueV2", 1, 1, nowhere, &value).number();
        if (isZero) {
            EXPECT_EQ(output.call("Value", nowhere).real(), 0);
            EXPECT_EQ(code, ok);
            EXPECT_EQ(value, 0);
        }
        else {
            EXPECT_THROW(output.call("Value", nowhere), RuntimeError);
            EXPECT_EQ(code, fail);
            EXPECT_EQ(value, 4711);
        }
    }
}

TEST(WhatTheModelIsCalledWithoutAModel, HasBothAnswers)
{
    StandinHere raises;
    StandinHere isEmpty({Mode::NoModelNoName});
    raises.femap.call("standinModel", "none");
    isEmpty.femap.call("standinModel", "none");

    EXPECT_THROW(raises.femap.call("ModelName"), RuntimeError);
    EXPECT_EQ(isEmpty.femap.call("ModelName").text(), "");
}

TEST(WhetherAnIndexBeyondAnArrayIsAnError, HasBothAnswers)
{
    StandinHere raises;
    StandinHere isZero({Mode::BeyondIsZero});

    EXPECT_THROW(raises.loaded("feElem", 1).call("orient", 11), RuntimeError);
    EXPECT_THROW(raises.loaded("feProp", 1).call("pval", 200), RuntimeError);
    EXPECT_THROW(raises.loaded("feElem", 1).call("offset", 2, 0), RuntimeError);
    EXPECT_EQ(isZero.loaded("feElem", 1).call("orient", 11).real(), 0);
    EXPECT_EQ(isZero.loaded("feProp", 1).call("pval", 200).real(), 0);
    EXPECT_EQ(isZero.loaded("feElem", 1).call("offset", 2, 0).real(), 0);
}

// The order of a load's values has no mode: the stand-in hands out what the neutral file holds.
TEST(WhichCodeEndsAWalkOverLoads, HasBothAnswers)
{
    StandinHere fails;
    StandinHere isMissing({Mode::WalkEndsMissing});

    for (StandinHere* const here : {&fails, &isMissing}) {
        Dispatch definition = here->loaded("feLoadDefinition", 1);
        int loads = 0;
        IDispatch* load = nullptr;
        int code = definition.call("NextLoad", &load).number();
        for (; code == ok; code = definition.call("NextLoad", &load).number()) {
            load->Release();
            load = nullptr;
            ++loads;
        }
        EXPECT_GT(loads, 0);
        EXPECT_EQ(loads, definition.call("CountLoads").number());
        EXPECT_EQ(code, here == &fails ? fail : notExist);
        EXPECT_EQ(load, nullptr);
    }
}

TEST(WhetherADialogWorksWhileFemapIsLocked, HasBothAnswers)
{
    StandinHere works;
    StandinHere refuses({Mode::LockedNoDialogs});

    for (StandinHere* const here : {&works, &refuses}) {
        Dispatch set = here->object("feSet");
        const int expected = here == &works ? ok : fail;
        for (int dialog = 0; dialog < 4; ++dialog)
            here->femap.call("standinPick", "1");
        EXPECT_EQ(set.call("Select", 8, true, "Elements").number(), ok);
        here->femap.call("feAppLock");
        EXPECT_EQ(set.call("Select", 8, true, "Elements").number(), expected);
        EXPECT_EQ(set.call("SelectMultiIDV2", 46, 1, "Loads").number(), expected);
        EXPECT_EQ(here->object("feFunction").call("SelectID", "Function").number(), expected);
    }
}

namespace
{

bool wasSent = false;
WPARAM lastEvent = 0;

LRESULT CALLBACK takeEvent(HWND window, UINT message, WPARAM wide, LPARAM more)
{
    static const UINT event = RegisterWindowMessageW(L"FE_EVENT_MESSAGE");
    if (message != event)
        return DefWindowProcW(window, message, wide, more);
    wasSent = InSendMessage() != FALSE;
    lastEvent = wide;
    return 0;
}

// Lets the stand-in send the event to a window of this program.
void receiveEvent(const std::string& switches, int code)
{
    const StartedStandin started(switches);
    std::optional<Dispatch> femap = runningFemap();
    const HWND window =
        CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(takeEvent));
    const int handle = static_cast<int>(reinterpret_cast<std::intptr_t>(window));
    femap->call("feAppRegisterAddInPane", true, handle, handle, false, false, 2, 0);
    lastEvent = 0;
    femap->call("standinSendEvent", code);
    EXPECT_TRUE(comesTrue([] {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        return lastEvent != 0;
    }));
    DestroyWindow(window);
}

}  // namespace

TEST(WhetherFemapPostsItsEvents, HasBothAnswers)
{
    const femap::com::Apartment apartment;

    receiveEvent("", 3);
    EXPECT_EQ(lastEvent, 3U);
    EXPECT_FALSE(wasSent);

    receiveEvent("--events-sent", 2);
    EXPECT_EQ(lastEvent, 2U);
    EXPECT_TRUE(wasSent);
}

TEST(WhichTypeTheIDsOfModelsHave, HasBothAnswers)
{
    StandinHere plain;
    StandinHere isLong({Mode::LongModelIDs});
    LONG count = 0;
    Variant ids;

    plain.femap.call("feAppGetAllModels", &count, &ids);
    EXPECT_EQ(ids.raw()->vt, VT_ARRAY | VT_I4);
    isLong.femap.call("feAppGetAllModels", &count, &ids);
    EXPECT_EQ(ids.raw()->vt, VT_ARRAY | VT_I8);
    EXPECT_EQ(count, 1);
}

namespace
{

struct Measured
{
    int code;
    std::vector<double> inertia;
};

Measured measure(StandinHere& here, Dispatch& set)
{
    std::array<double, 6> numbers{};
    std::array<Variant, 5> arrays;
    const int code =
        here.femap
            .call("feMeasureMeshMassProp", set.call("ID").number(), 0, false, false, &numbers[0],
                  &numbers[1], &numbers[2], &numbers[3], &numbers[4], &numbers[5], &arrays[0],
                  &arrays[1], &arrays[2], &arrays[3], &arrays[4])
            .number();
    return {code, arrays[3].reals()};
}

}  // namespace

TEST(WhichSignProductsOfInertiaHave, HasBothAnswers)
{
    StandinHere plain;
    StandinHere negated({Mode::ProductsNegated});
    Dispatch plainSet = plain.object("feSet");
    Dispatch negatedSet = negated.object("feSet");
    plainSet.call("AddAll", 8);
    negatedSet.call("AddAll", 8);

    const std::vector<double> one = measure(plain, plainSet).inertia;
    const std::vector<double> other = measure(negated, negatedSet).inertia;

    EXPECT_NE(one[1], 0);
    for (const std::size_t moment : {0, 2, 5})
        EXPECT_EQ(one[moment], other[moment]);
    for (const std::size_t product : {1, 3, 4})
        EXPECT_EQ(one[product], -other[product]);
}

TEST(WhatIsMeasuredOfNoElements, HasBothAnswers)
{
    StandinHere isZero;
    StandinHere refuses({Mode::NothingWeighsNothing});
    Dispatch zeroSet = isZero.object("feSet");
    Dispatch refusedSet = refuses.object("feSet");

    EXPECT_EQ(measure(isZero, zeroSet).code, ok);
    EXPECT_EQ(measure(isZero, zeroSet).inertia, std::vector<double>(6));
    EXPECT_EQ(measure(refuses, refusedSet).code, notExist);
}

// The meaning of a property's values has no mode: the stand-in hands out what the neutral file
// holds.
TEST(ThePlacesOfAProperty, AreThoseOfTheNeutralFile)
{
    StandinHere here;
    Dispatch property = here.loaded("feProp", 1);
    const std::vector<double> all = property.call("vpval").reals();

    EXPECT_EQ(all.size(), 200U);
    EXPECT_EQ(property.call("pval", 0).real(), here.server.host.model->properties.find(1)->pval[0]);
    EXPECT_EQ(all[0], property.call("pval", 0).real());
    EXPECT_GT(all[0], 0);
}

TEST(WhetherAFemapThatWasStartedEndsWithItsLastClient, HasBothAnswers)
{
    const femap::com::Apartment apartment;
    ASSERT_EQ(runStandin("/regserver"), 0U);

    for (const bool stays : {false, true}) {
        SetEnvironmentVariableA("FEMAP_STANDIN_SWITCHES", stays ? "--stays" : "");
        std::unique_ptr<femap::Application> femap = femap::com::ComConnector(nullptr).create();
        femap.reset();
        const bool isGone = comesTrue([] { return !runningFemap().has_value(); });
        EXPECT_EQ(isGone, !stays);
    }
    if (std::optional<Dispatch> left = runningFemap())
        left->call("standinQuit");
    EXPECT_TRUE(comesTrue([] { return !runningFemap().has_value(); }));
    SetEnvironmentVariableA("FEMAP_STANDIN_SWITCHES", nullptr);
    EXPECT_EQ(runStandin("/unregserver"), 0U);
}

TEST(WhetherARealIsAnIndex, HasBothAnswers)
{
    StandinHere takes;
    StandinHere refuses({Mode::StrictIndices});

    EXPECT_EQ(takes.loaded("feProp", 1).call("pval", 0.0).real(),
              takes.loaded("feProp", 1).call("pval", 0).real());
    EXPECT_THROW(refuses.loaded("feProp", 1).call("pval", 0.0), RuntimeError);
    EXPECT_EQ(refuses.loaded("feProp", 1).call("pval", 0).real(),
              takes.loaded("feProp", 1).call("pval", 0).real());
}

TEST(WhetherAVariantTakesWhatATypedArgumentIsFilledWith, HasBothAnswers)
{
    StandinHere refuses;
    StandinHere takes({Mode::LooseResults});
    Variant count;
    Variant ids;
    Variant value;

    EXPECT_THROW(refuses.femap.call("feAppGetAllModels", &count, &ids), RuntimeError);
    EXPECT_EQ(takes.femap.call("feAppGetAllModels", &count, &ids).number(), ok);
    EXPECT_EQ(count.raw()->vt, VT_I4);
    EXPECT_EQ(count.number(), 1);
    EXPECT_EQ(takes.object("feResults").call("EntityValueV2", 1, 1, 1, &value).number(), ok);
    EXPECT_EQ(value.raw()->vt, VT_R8);
}

TEST(WhichNumbersVectorsHave, HasBothAnswers)
{
    StandinHere plain;
    StandinHere renumbered({Mode::Renumbered});

    for (StandinHere* const here : {&plain, &renumbered}) {
        const bool isNew = here == &renumbered;
        const int own = isNew ? plateBottomSince : plateBottomBefore;
        const int other = isNew ? plateBottomBefore : plateBottomSince;
        Dispatch results = here->object("feResults");
        Dispatch set = here->object("feSet");
        results.call("VectorsV2", 1, set.call("ID").number(), true);
        EXPECT_THAT(idsIn(set), Contains(own));
        EXPECT_THAT(idsIn(set), Not(Contains(other)));
        EXPECT_EQ(results.call("VectorExistsV2", 1, own).number(), ok);
        EXPECT_EQ(results.call("VectorExistsV2", 1, other).number(), fail);
        EXPECT_EQ(here->femap.call("feOutputConvertV2020VectorIDToV2019V2", own).number(),
                  plateBottomBefore);
        EXPECT_EQ(
            here->femap.call("feOutputConvertV2019VectorIDToV2020V2", plateBottomBefore).number(),
            own);
        EXPECT_EQ(here->femap.call("feOutputConvertV2020VectorIDToV2019V2", 1).number(), 1);
        LONG count = 0;
        Variant ids;
        Variant titles;
        results.call("VectorTitlesV2", 1, false, 0, 0, &count, &ids, &titles);
        EXPECT_EQ(ids.numbers(), idsIn(set));
    }
}

}  // namespace comtest
