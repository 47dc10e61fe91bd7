// What becomes of the model when CAEInput is ended before its time.
#include "InputFixture.h"
#include "femap/ForwardingApplication.h"
#include "loop/Former.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace loop
{

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

const std::string isBack = ". The former values are in the model again\n";
const std::string notBack =
    ". The values in the model were NOT put back; the next run of CAEInput, "
    "CAEOutput or velmar-evaluate does that before it begins\n";

/// A FEMAP that does some of what changes a model in its own way.
struct OwnWays
{
    std::function<bool(const femap::ModelValues&)> put;  // whether FEMAP does it as well
    std::function<bool(const std::string& path)> writeDeck;
    std::vector<femap::DialogSwitches> switches;  // that were set
};

class OwnChanges : public femap::ModelChanges
{
public:
    OwnChanges(std::unique_ptr<femap::ModelChanges> real, OwnWays& ways)
        : real_(std::move(real)), ways_(ways)
    {}

    void put(const femap::ModelValues& values) override
    {
        if (!ways_.put || ways_.put(values))
            real_->put(values);
    }
    femap::DialogSwitches dialogSwitches() override { return real_->dialogSwitches(); }
    void setDialogSwitches(const femap::DialogSwitches& switches) override
    {
        ways_.switches.push_back(switches);
        real_->setDialogSwitches(switches);
    }
    void feFileWriteNastran(femap::SolverBrand brand, const std::string& path) override
    {
        if (!ways_.writeDeck || ways_.writeDeck(path))
            real_->feFileWriteNastran(brand, path);
    }
    void feFileReadNastranResults(femap::SolverBrand, const std::string&) override {}
    void deleteOutputSets(const std::vector<int>&) override {}
    void activateOutputSet(int) override {}

private:
    std::unique_ptr<femap::ModelChanges> real_;
    OwnWays& ways_;
};

class OwnFemap : public femap::ForwardingApplication
{
public:
    OwnFemap(std::unique_ptr<femap::Application> real, OwnWays& ways)
        : ForwardingApplication(std::move(real)), ways_(ways)
    {}
    std::unique_ptr<femap::ModelChanges> changes() override
    {
        return std::make_unique<OwnChanges>(ForwardingApplication::changes(), ways_);
    }

private:
    OwnWays& ways_;
};

struct StudyBesideOwnFemap : InputStudy, femap::Connector
{
    StudyBesideOwnFemap() { connector = this; }

    std::unique_ptr<femap::Application> attach() override
    {
        return std::make_unique<OwnFemap>(femap.attach(), ways);
    }
    std::unique_ptr<femap::Application> create() override { return attach(); }

    OwnWays ways;
};

bool stop()
{
    throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "FEMAP answers 9");
}

// The journal of a run that was ended after it had put its values.
void endInTheMiddle(InputStudy& study)
{
    study.femap.dieAt("feFileWriteNastran");
    EXPECT_EQ(study.run(), 1);
    study.femap.behave();
    EXPECT_EQ(study.values(), InputStudy::wantedValues);
}

}  // namespace

TEST(AChangedModel, HasItsFormerValuesAgainWhenAPutIsRefused)
{
    StudyBesideOwnFemap study;
    int puts = 0;
    study.ways.put = [&](const femap::ModelValues& values) {
        femap::ModelValues half = values;
        half.loads.clear();
        if (++puts > 1)
            return true;
        study.host.attach()->changes()->put(half);
        return stop();
    };

    EXPECT_EQ(study.run(), 1);

    EXPECT_EQ(study.told(), "CAEInput: FEMAP answers 9" + isBack);
    expectAsBefore(study);
}

TEST(AChangedModel, IsNotTakenForChangedWhenFemapIgnoresAPut)
{
    StudyBesideOwnFemap study;
    study.ways.put = [](const femap::ModelValues&) { return false; };

    EXPECT_EQ(study.run(), 1);

    EXPECT_EQ(study.told(),
              "CAEInput: FEMAP does not hold what was put into it: Ex of Matl 2 is "
              "210000 and should be 70000" +
                  isBack);
    expectAsBefore(study);
}

TEST(AChangedModel, MayHoldItsValuesInSinglePrecision)
{
    StudyBesideOwnFemap study;
    study.change("InputValues.txt", "xAtNode4  -.125", "xAtNode4  .1");
    study.ways.put = [&](femap::ModelValues values) {
        for (femap::EntityValue& each : values.entities)
            if (const double* const real = std::get_if<double>(&each.value))
                each.value = static_cast<double>(static_cast<float>(*real));
        study.host.attach()->changes()->put(values);
        return false;
    };

    EXPECT_EQ(study.run(), 0) << study.told();
}

TEST(AChangedModel, HasItsFormerValuesAgainWhenTheDeckIsNotWritten)
{
    for (const auto& [write, told] :
         {std::pair<bool (*)(const std::string&), std::string>{
              [](const std::string&) { return false; },
              "FEMAP says that the deck is written, but it is not there: "},
          {[](const std::string& path) {
               sys::DiskFiles().create(path)->close();
               return false;
           },
           "FEMAP says that the deck is written, but it is empty: "},
          {[](const std::string&) { return stop(); }, "FEMAP answers 9. The former"}}) {
        StudyBesideOwnFemap study;
        study.ways.writeDeck = write;

        EXPECT_EQ(study.run(), 1);

        EXPECT_THAT(study.told(), AllOf(StartsWith("CAEInput: " + told), HasSubstr(isBack)));
        expectAsBefore(study);
        EXPECT_EQ(study.host.attach()->changes()->dialogSwitches(), femap::DialogSwitches());
        EXPECT_FALSE(study.has("beam.op2")) << "old results are never handed on";
    }
}

TEST(AChangedModel, LetsFemapSkipItsDialogsOnlyWhileTheDeckIsWritten)
{
    StudyBesideOwnFemap study;
    const femap::DialogSwitches skipped = {1, 1};
    bool isSkipping = false;
    study.ways.writeDeck = [&](const std::string&) {
        isSkipping = study.ways.switches == std::vector<femap::DialogSwitches>{skipped};
        return true;
    };

    EXPECT_EQ(study.run(), 0);

    EXPECT_TRUE(isSkipping);
    EXPECT_EQ(study.ways.switches,
              (std::vector<femap::DialogSwitches>{skipped, femap::DialogSwitches()}));
}

TEST(AChangedModel, OfAFemapThatIsLostIsToldAsSuchAndPutBackByTheNextRun)
{
    InputStudy study;
    endInTheMiddle(study);
    EXPECT_THAT(study.told(), HasSubstr(notBack));
    EXPECT_TRUE(study.has(journalName));
    study.change("InputValues.txt", "xAtNode4  -.125", "xAtNode4  x");

    EXPECT_EQ(study.run(), 1);

    EXPECT_THAT(study.told(), StartsWith("CAEInput: An earlier run was ended before its time; the "
                                         "former values are in the model again\n"));
    expectAsBefore(study);
}

TEST(AChangedModel, OfAFemapThatIsNotWaitedForAnyMoreIsToldAsSuch)
{
    InputStudy study;
    study.femap.before("feFileWriteNastran",
                       [] { throw femap::WaitEnded("The wait for FEMAP is ended", true); });

    EXPECT_EQ(study.run(), 1);

    EXPECT_EQ(study.told(), "CAEInput: The wait for FEMAP is ended" + notBack);
    EXPECT_TRUE(study.has(journalName));
}

TEST(AChangedModel, IsOnlyToldOfByACheck)
{
    InputStudy study;
    endInTheMiddle(study);

    EXPECT_EQ(study.run({"--check"}), 0);

    EXPECT_EQ(study.told(),
              "CAEInput: An earlier run was ended before its time; its values are in "
              "the model until the next run without --check\n");
    EXPECT_EQ(study.values(), InputStudy::wantedValues);
    EXPECT_TRUE(study.has(journalName));
}

TEST(AChangedModel, KeepsTheJournalOfTheCaller)
{
    InputStudy study;
    Former nominal;
    nominal.model = "beam.modfem";
    nominal.values.entities = {{"Node", 4, {"x"}, 77.0}};
    nominal.inputValues = "xAtNode4  77\r\n";
    keepFormer(study.machine, study.folder.path(journalName), nominal);
    const std::string kept = study.read(journalName);

    EXPECT_EQ(study.run({"--locked"}), 0);

    EXPECT_EQ(study.told(), "");
    EXPECT_EQ(study.values(), InputStudy::wantedValues);
    EXPECT_EQ(study.read(journalName), kept);
}

TEST(AChangedModel, GivesItsFormerValuesToTheJournalOfACallerThatHasNone)
{
    InputStudy study;
    Former ofCaller;
    ofCaller.model = "beam.modfem";
    ofCaller.inputValues = study.read("InputValues.txt");
    keepFormer(study.machine, study.folder.path(journalName), ofCaller);

    EXPECT_EQ(study.run({"--locked"}), 0);
    EXPECT_EQ(study.values(), InputStudy::wantedValues);
    study.change("InputValues.txt", "xAtNode4  -.125", "xAtNode4  8");
    EXPECT_EQ(study.run({"--locked"}), 0);
    EXPECT_EQ(study.run({"--back", "--locked"}), 0);

    EXPECT_EQ(study.said(),
              "beam.modfem: An earlier run was ended before its time; the former "
              "values are in the model again\n");
    EXPECT_EQ(study.values(), InputStudy::formerValues);
    EXPECT_EQ(study.read("InputValues.txt"), *ofCaller.inputValues);
    EXPECT_FALSE(study.has(journalName));
    EXPECT_EQ(study.run({"--back"}), 0);
    EXPECT_EQ(study.said(), "beam.modfem: there is nothing to put back\n");
}

TEST(AChangedModel, IsNotChangedAgainByARunWhoseValuesWentWithWhatCameBack)
{
    InputStudy study;
    Former ofCaller;
    ofCaller.inputValues = study.read("InputValues.txt");
    keepFormer(study.machine, study.folder.path(journalName), ofCaller);
    EXPECT_EQ(study.run({"--locked"}), 0);
    study.change("InputValues.txt", "xAtNode4  -.125", "xAtNode4  8");

    EXPECT_EQ(study.run(), 1);

    EXPECT_EQ(study.told(),
              "CAEInput: An earlier run was ended before its time; the former values "
              "are in the model again\n"
              "InputValues.txt: the file holds again what it held before that run; "
              "write the values that are to be put, and start again\n");
    EXPECT_EQ(study.values(), InputStudy::formerValues);
    EXPECT_EQ(study.read("InputValues.txt"), *ofCaller.inputValues);
    EXPECT_EQ(study.run(), 0);
}

TEST(AChangedModel, ThatCannotBePutBackIsToldWithTheJournal)
{
    InputStudy study;
    study.write(journalName, "{");

    EXPECT_EQ(study.run(), 1);

    EXPECT_THAT(study.told(),
                StartsWith("CAEInput: The former values that an earlier run left are damaged. "));
    EXPECT_EQ(study.values(), InputStudy::formerValues);
}

}  // namespace loop
