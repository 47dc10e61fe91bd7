// Ways of a FEMAP that the stand-in can take on, each seen in plain calls.
#include "standin/StandinHere.h"
#include "standin/StartedStandin.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <set>
#include <vector>

namespace comtest
{

using femap::com::Dispatch;
using femap::com::OutText;
using femap::com::Variant;
using standin::Mode;
using testing::Each;

namespace
{

constexpr int okCode = -1;

struct Columns
{
    LONG count = 0;
    Variant ids;
    Variant coordinates;
};

Columns coordinatesOf(StandinHere& here)
{
    Columns result;
    here.object("feNode").call("GetCoordArray", 0, &result.count, &result.ids, &result.coordinates);
    return result;
}

LONG elementsOf(const Variant& array)
{
    LONG last = -1;
    EXPECT_EQ(SafeArrayGetUBound(array.raw().parray, 1, &last), S_OK);
    return last + 1;
}

}  // namespace

TEST(Modes, AreSwitchesOfTheTestsProgramEachByItsName)
{
    const femap::com::Apartment apartment;
    std::string all;
    std::string switches;
    std::set<Mode> different;
    for (const standin::ModeName& one : standin::modeNames) {
        all += std::string(one.name) + '\n';
        switches += " --" + std::string(one.name);
        different.insert(one.mode);
    }
    {
        StartedStandin started(switches);
        EXPECT_EQ(started.control().call("standinModes").text(), all);
    }
    {
        StartedStandin started("--padded");
        EXPECT_EQ(started.control().call("standinModes").text(), "padded\n");
    }
    EXPECT_EQ(different.size(), std::size(standin::modeNames));
    EXPECT_EQ(runStandin("--no-such-mode"), 2U);
}

TEST(Modes, PadTheArraysOfManyEntities)
{
    StandinHere plain;
    StandinHere padded({Mode::PaddedArrays});

    const Columns exact = coordinatesOf(plain);
    const Columns longer = coordinatesOf(padded);

    EXPECT_EQ(longer.count, exact.count);
    EXPECT_EQ(exact.ids.numbers().size(), static_cast<std::size_t>(exact.count));
    const std::vector<int> ids = longer.ids.numbers();
    ASSERT_GT(ids.size(), static_cast<std::size_t>(longer.count));
    EXPECT_THAT(std::vector<int>(ids.begin() + longer.count, ids.end()), Each(0));
    EXPECT_EQ(std::vector<int>(ids.begin(), ids.begin() + longer.count), exact.ids.numbers());
    EXPECT_GT(longer.coordinates.reals().size(), exact.coordinates.reals().size());
    LONG vectors = 0;
    Variant vectorIDs;
    Variant titles;
    padded.object("feResults")
        .call("VectorTitlesV2", 1, false, 0, 0, &vectors, &vectorIDs, &titles);
    EXPECT_GT(titles.texts().size(), static_cast<std::size_t>(vectors));
}

TEST(Modes, WrapTheElementsOfArraysInVariants)
{
    StandinHere plain;
    StandinHere wrapped({Mode::VariantArrays});

    const Columns typed = coordinatesOf(plain);
    const Columns any = coordinatesOf(wrapped);

    EXPECT_EQ(typed.ids.raw().vt, VT_ARRAY | VT_I4);
    EXPECT_EQ(any.ids.raw().vt, VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(any.coordinates.raw().vt, VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(elementsOf(any.ids), any.count);
    LONG second = 1;
    Variant element;
    EXPECT_EQ(SafeArrayGetElement(any.coordinates.raw().parray, &second, element.raw()), S_OK);
    EXPECT_EQ(element.raw()->vt, VT_R8);
    EXPECT_EQ(element.real(), typed.coordinates.reals()[1]);
    LONG count = 0;
    Variant ids;
    Variant titles;
    wrapped.object("feProp").call("GetTitleList", 0, 0, &count, &ids, &titles);
    LONG first = 0;
    EXPECT_EQ(SafeArrayGetElement(titles.raw()->parray, &first, element.raw()), S_OK);
    EXPECT_EQ(element.raw()->vt, VT_BSTR);
    EXPECT_EQ(element.text(),
              plain.loaded("feProp", ids.raw()->vt == VT_EMPTY ? 0 : 1).call("title").text());
}

TEST(Modes, KeepTheColumnsOfATableOfResultsThatIsCleared)
{
    StandinHere plain;
    StandinHere keeps({Mode::ClearKeeps});

    for (StandinHere* const here : {&plain, &keeps}) {
        const int kept = here == &keeps ? 1 : 0;
        Dispatch results = here->object("feResults");
        LONG added = 0;
        Variant indices;
        results.call("AddColumnV2", 1, 1, false, &added, &indices);
        results.call("Populate");
        EXPECT_EQ(results.call("clear").number(), okCode);
        EXPECT_EQ(results.call("NumberOfColumns").number(), kept);
        EXPECT_EQ(results.call("AddColumnV2", 1, 2, false, &added, &indices).number(), okCode);
        EXPECT_EQ(indices.numbers(), std::vector<int>{kept});
    }
}

TEST(Modes, GiveADefinitionLoadsOfOtherKindsToo)
{
    StandinHere plain;
    StandinHere mixed({Mode::MixedLoads});

    for (StandinHere* const here : {&plain, &mixed}) {
        Dispatch definition = here->loaded("feLoadDefinition", 1);
        std::set<std::string> kinds;
        int loads = 0;
        IDispatch* load = nullptr;
        while (definition.call("NextLoad", &load).number() == okCode) {
            Dispatch one =
                definition.adopt(std::exchange(load, nullptr), "load " + std::to_string(++loads));
            EXPECT_EQ(one.call("LoadDefinitionID").number(), 1);
            kinds.insert(one.has("meshID")   ? "mesh"
                         : one.has("geomID") ? "geometry"
                                             : "temperature");
        }
        EXPECT_EQ(kinds.size() > 1, here == &mixed);
        EXPECT_TRUE(kinds.contains("mesh"));
    }
}

TEST(Modes, CallUntitledInListsWhatHasNoTitle)
{
    StandinHere plain;
    StandinHere untitled({Mode::Untitled});

    for (StandinHere* const here : {&plain, &untitled}) {
        const std::string expected = here == &untitled ? "Untitled" : "";
        auto& vectors = here->server.host.model->outputSets.find(1)->vectors;
        vectors.find(1)->title.clear();
        here->server.host.model->properties.find(1)->title.clear();
        LONG count = 0;
        Variant ids;
        Variant titles;
        here->object("feResults").call("VectorTitlesV2", 1, false, 1, 1, &count, &ids, &titles);
        EXPECT_EQ(titles.texts(), std::vector<std::string>{expected});
        here->object("feProp").call("GetTitleList", 1, 1, &count, &ids, &titles);
        EXPECT_EQ(titles.texts(), std::vector<std::string>{expected});
        EXPECT_EQ(here->loaded("feProp", 1).call("title").text(), "");
        OutText title;
        here->object("feResults").call("VectorTitleV2", 1, 1, title.address());
        EXPECT_EQ(title.text(), "");
    }
}

TEST(ALateFemap, IsFoundAfterItsTimeAndNotBefore)
{
    const femap::com::Apartment apartment;
    const DWORD begin = GetTickCount();

    const StartedStandin started("--late 700");

    EXPECT_TRUE(runningFemap().has_value());
    EXPECT_GE(GetTickCount() - begin, 650U);
}

TEST(AStalledCall, ReturnsAfterItsTime)
{
    const femap::com::Apartment apartment;
    StartedStandin started("--modern");
    started.control().call("standinStallAt", 2, 1);
    const auto timeOf = [&] {
        const DWORD begin = GetTickCount();
        EXPECT_GT(started.control().call("Info_Version").real(), 20);
        return GetTickCount() - begin;
    };

    EXPECT_LT(timeOf(), 900U);
    EXPECT_GE(timeOf(), 950U);
    EXPECT_LT(timeOf(), 900U);
}

}  // namespace comtest
