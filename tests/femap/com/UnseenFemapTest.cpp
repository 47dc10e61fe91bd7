// What the adapter makes of the answers that nobody has seen a real FEMAP give yet.
#include "femap/com/ComApplication.h"
#include "femap/com/ComForm.h"
#include "standin/QueuedSelections.h"
#include "standin/StandinHere.h"
#include "standin/Transcript.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <tuple>

namespace comtest
{

using femap::com::ComApplication;
using standin::Mode;
using sys::RuntimeError;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

/// Gives the adapter over a stand-in in this process.
class UnseenFemap : public femap::Connector
{
public:
    UnseenFemap(std::initializer_list<Mode> modes, bool isClassic) : here(modes, isClassic) {}

    std::unique_ptr<femap::Application> attach() override
    {
        return std::make_unique<ComApplication>(
            here.newReference(), dialogs, std::make_shared<femap::com::RetryPolicy>(), reading);
    }
    std::unique_ptr<femap::Application> create() override { return attach(); }

    StandinHere here;
    femap::SelectionDialogs* dialogs = nullptr;
    Reading reading = Reading::InBulk;
};

// All that is read from a model.
Lines transcriptOf(femap::Application& femap, const std::function<void(const char*)>& pick)
{
    Lines all = ofSets(femap);
    for (const Lines& more : {ofEntities(femap), ofOutputVectors(femap), ofFunctions(femap, pick),
                              ofLoadDefinitions(femap), ofMassProperties(femap)})
        all.insert(all.end(), more.begin(), more.end());
    return all;
}

Lines transcriptOf(UnseenFemap& femap)
{
    return transcriptOf(*femap.attach(),
                        [&](const char* answer) { femap.here.server.selections.queue(answer); });
}

Lines transcriptOfTheModelHost()
{
    standin::QueuedSelections picks;
    femap::embedded::Host host{picks};
    host.openNeutralFile(SOURCE_FOLDER "/examples/panel.neu");
    return transcriptOf(*host.attach(), [&](const char* answer) { picks.queue(answer); });
}

// The rows of every node's and every second element's results, in bulk.
std::vector<std::string> rowsOfResults(UnseenFemap& femap)
{
    ComForm f(femap);
    femap.dialogs = &f.dialogs;
    f.context.application = femap.attach();
    f.dialog.UpdateCollection();
    std::vector<int> ids(600);
    std::iota(ids.begin(), ids.end(), 1);
    f.selectOutputs("Nodes", ids, 3);
    f.selectOutputs("Elements", ids, 3, 4);
    f.selectOutputs("Nodes Min/Max", {}, 2);
    f.selectOutputs("Elements Min/Max", {}, 2);
    f.refreshAll();
    return f.rows(f.form.OutputsList);
}

class AnswersOf : public testing::TestWithParam<std::tuple<bool, Mode>>
{
protected:
    bool isClassic = std::get<0>(GetParam());
    UnseenFemap femap{{std::get<1>(GetParam())}, isClassic};
};

std::string nameOf(const testing::TestParamInfo<std::tuple<bool, Mode>>& info)
{
    const auto [isClassic, mode] = info.param;
    std::string name(standin::modeNames[static_cast<std::size_t>(mode)].name);
    std::replace(name.begin(), name.end(), '-', '_');
    return name + (isClassic ? "_classic" : "_modern");
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(
    ThatChangeNoValue, AnswersOf,
    testing::Combine(testing::Bool(),
                     testing::Values(Mode::Superseded, Mode::MissingIsZero, Mode::PaddedArrays,
                                     Mode::VariantArrays, Mode::ClearKeeps,
                                     Mode::VectorsOfActiveSet, Mode::BeyondIsZero,
                                     Mode::LongModelIDs, Mode::WalkEndsMissing,
                                     Mode::LockedNoDialogs, Mode::LooseResults)),
    nameOf);

TEST_P(AnswersOf, FemapAreReadAsThoseOfTheModelHost)
{
    const Lines lines = transcriptOf(femap);

    EXPECT_THAT(lines, testing::ElementsAreArray(transcriptOfTheModelHost()));
    EXPECT_THAT(lines, Contains("vector 1 minimum = 0"));
    EXPECT_THAT(femap.here.server.supersededCalls, IsEmpty());
}

TEST_P(AnswersOf, FemapGiveTheRowsOfTheLikelyFemap)
{
    UnseenFemap likely({}, isClassic);

    const std::vector<std::string> rows = rowsOfResults(femap);

    EXPECT_THAT(rows, testing::ElementsAreArray(rowsOfResults(likely)));
    EXPECT_GT(rows.size(), 1000U);
    EXPECT_THAT(femap.here.server.supersededCalls, IsEmpty());
}

TEST(LockedFemapWithoutDialogs, IsUnlockedToShowOne)
{
    for (const bool isClassic : {false, true}) {
        UnseenFemap unseen({Mode::LockedNoDialogs}, isClassic);
        const std::unique_ptr<femap::Application> femap = unseen.attach();
        unseen.here.server.selections.queue("1");
        femap->feAppLock();
        const std::unique_ptr<femap::EntitySet> set = femap->feSet();

        EXPECT_EQ(set->SelectMultiID(femap::EntityType::LoadDefinition, 1, "Loads"),
                  femap::ReturnCode::Ok);

        EXPECT_THAT(set->ids(), ElementsAre(1));
        EXPECT_EQ(unseen.here.server.host.lockCount, 1);
        femap->feAppUnlock();
        EXPECT_EQ(unseen.here.server.host.lockCount, 0);
    }
}

TEST(APlaceBeyondAnArray, IsRefusedAtTheCostOfOneCallForAllElements)
{
    for (const bool isClassic : {false, true}) {
        UnseenFemap unseen({Mode::BeyondIsZero}, isClassic);
        const std::unique_ptr<femap::Application> femap = unseen.attach();
        const std::unique_ptr<femap::Entity> element = femap->entity("Elem");
        const auto readPlace = [&](int id, int place) {
            const int before = unseen.here.server.callCount;
            element->Get(id);
            element->member("orient", place);
            return unseen.here.server.callCount - before;
        };

        EXPECT_EQ(readPlace(1, 2), 2);
        const int before = unseen.here.server.callCount;
        EXPECT_THROW(readPlace(1, 11), RuntimeError);
        EXPECT_EQ(unseen.here.server.callCount - before, 3);
        EXPECT_THROW(readPlace(101, 3), RuntimeError);
        EXPECT_EQ(unseen.here.server.callCount - before, 5);
        const std::unique_ptr<femap::Entity> other = femap->entity("Elem");
        other->Get(102);
        EXPECT_THROW(other->member("orient", 11), RuntimeError);
        EXPECT_EQ(unseen.here.server.callCount - before, 8) << "a new object and two calls";
    }
}

TEST(APlaceBeyondAnArray, IsTakenAsItIsWhereFemapDoesNotTellTheLength)
{
    UnseenFemap unseen({Mode::BeyondIsZero}, false);
    ASSERT_TRUE(unseen.here.server.faults.set("feElem.vorient", "missing"));
    const std::unique_ptr<femap::Entity> element = unseen.attach()->entity("Elem");
    element->Get(1);

    EXPECT_EQ(element->member("orient", 11), femap::Value(0.0));
}

TEST(LoadsOfSeveralKindsInOneDefinition, AreReadAsTheKindThatEachIs)
{
    UnseenFemap unseen({Mode::MixedLoads}, false);
    const std::unique_ptr<femap::LoadDefinition> definition = unseen.attach()->feLoadDefinition();
    ASSERT_EQ(definition->Get(1, 1), femap::ReturnCode::Ok);
    std::vector<std::string> kinds;

    definition->ResetNextLoad();
    while (const std::unique_ptr<femap::MemberObject> load = definition->NextLoad())
        for (const char* const member : {"meshID", "geomID", "gradient", "temp"}) {
            sys::PendingError lacking;
            if (lacking.attempt([&] { load->member(member); }))
                kinds.emplace_back(member);
        }

    for (const char* const member : {"meshID", "gradient", "temp"})
        EXPECT_THAT(kinds, Contains(member));
}

}  // namespace comtest
