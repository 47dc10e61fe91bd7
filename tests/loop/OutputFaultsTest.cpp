// Every call of FEMAP and every operation of the disk may fail while outputs are taken.
#include "FailingFiles.h"
#include "OutputFixture.h"
#include "loop/Output.h"
#include "loop/OutputFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace loop
{

using testing::ElementsAre;
using testing::HasSubstr;

namespace
{

const std::string valuesPath = "/study/OutputValues.txt";
const std::string wholeValues =
    "TotalTrans1AtNode12  0.5\r\nTotalTrans1AtNode13  0.25\r\n"
    "TotalTranslatiMaxAtNode1  0.5\r\nTotalMass  8\r\n";

/// A study with a row of each kind, whose output set is the second of two.
class FaultyStudy
{
public:
    FaultyStudy()
    {
        f.addSets({3, 6});
        outputs.folder = "/study/";
        outputs.file = "CAEOutput.txt";
        outputs.solver = generate::findSolverFormat("NXNastran");
        outputs.solverFile = "beam.op2";
        outputs.valuesFile = "OutputValues.txt";
        outputs.rows = {{4, "TotalTrans1AtNode12\t\t12\t1\tOutput"},
                        {5, "TotalTrans1AtNode13\t\t13\t1\tOutput"},
                        {6, "TotalTranslatiMaxAtNode1\t\t1\t1\tmaxval"},
                        {7, "TotalMass\t\tMassTotal\t\tMassProperties"}};
        const ResultSet one = {{1, "Total Translation", 7, {{12, 9}, {13, 9}}}};
        const ResultSet two = {{1, "Total Translation", 7, {{12, 0.5}, {13, 0.25}}}};
        results_ = f.results({one, two});
    }

    void run() { run(f.context); }
    void run(form::Context& context)
    {
        readOutputs(context, outputs, results_, f.problems);
        if (!f.problems.empty())
            return;
        sys::PendingError refused;
        if (!refused.attempt([&] { writeOutputValues(context, valuesPath); }))
            f.problems.add({}, 0, refused.description());
    }

    /// The values are whole, or they are not there and that is said; so is what is left in FEMAP.
    void expectAllOrNothingAndTold()
    {
        const auto written = f.files.inFolder("/study/");
        const std::string said = f.problems.text();
        EXPECT_EQ(written.empty(), !said.empty()) << said;
        if (!written.empty()) {
            EXPECT_THAT(written, ElementsAre(std::pair("OutputValues.txt", wholeValues)));
        }
        if (f.sets() != std::vector<int>{3, 6}) {
            EXPECT_THAT(said, HasSubstr("could not be deleted"));
        }
        if (f.activeSet() != 6) {
            EXPECT_THAT(said, HasSubstr("could not be made active again"));
        }
    }

    OutputFixture f;
    Description outputs;

private:
    std::string results_;
};

}  // namespace

TEST(TakingOutputs, WritesThemWhenNothingFails)
{
    FaultyStudy study;

    study.run();

    EXPECT_EQ(study.f.problems.text(), "");
    EXPECT_EQ(study.f.files.contents[valuesPath], wholeValues);
    study.expectAllOrNothingAndTold();
}

TEST(TakingOutputs, LeavesAllOrNothingWhateverCallFemapRefuses)
{
    FaultyStudy whole;
    const std::size_t before = whole.f.watchFemap().calls.size();
    whole.run();
    const std::size_t calls = whole.f.watchFemap().calls.size() - before;
    ASSERT_GT(calls, 20U);

    int refused = 0;
    for (std::size_t n = 1; n <= calls; ++n) {
        FaultyStudy study;
        fake::CallWatch& watch = study.f.watchFemap();
        watch.failAtCall(n);
        study.run();
        watch.behave();
        SCOPED_TRACE("call " + std::to_string(n) + ", " + whole.f.watchFemap().calls[n - 1].text());
        study.expectAllOrNothingAndTold();
        refused += study.f.problems.empty() ? 0 : 1;
    }
    EXPECT_GT(refused, 20);
}

TEST(TakingOutputs, LeavesNothingWhateverCallIsFemapsLast)
{
    for (std::size_t n = 1;; ++n) {
        SCOPED_TRACE("call " + std::to_string(n));
        FaultyStudy study;
        fake::CallWatch& watch = study.f.watchFemap();
        watch.dieAtCall(n);
        bool isLost = false;
        try {
            study.run();
        }
        catch (const femap::ConnectionLost&) {
            isLost = true;
        }
        watch.behave();
        if (!isLost) {
            EXPECT_GT(n, 20U);
            break;
        }
        EXPECT_EQ(watch.calls.size(), n);
        EXPECT_TRUE(study.f.files.inFolder("/study/").empty());
    }
}

TEST(TakingOutputs, LeavesAllOrNothingWhateverTheDiskRefuses)
{
    int operation = 1;
    for (bool isReached = true; isReached; ++operation) {
        SCOPED_TRACE("operation " + std::to_string(operation));
        FaultyStudy study;
        FailingFiles files(study.f.files);
        sys::System system = sys::withDisk(study.f.system, files);
        form::Context context(study.f.form, study.f.host, system);
        context.application = std::move(study.f.context.application);
        files.failingOperation = operation;

        study.run(context);

        study.expectAllOrNothingAndTold();
        isReached = files.operations >= operation;
    }
    EXPECT_GT(operation, 5);
}

TEST(TakingOutputs, TellsAllRowsThatHaveNoNumberAndWritesNothing)
{
    FaultyStudy study;
    study.outputs.rows.push_back({8, "TotalTrans1AtNode99\t\t99\t1\tOutput"});
    study.outputs.rows.push_back({9, "TotalMass\t\tMassStructural\t\tMassProperties"});

    study.run();

    EXPECT_THAT(study.f.problems.text(), HasSubstr("CAEOutput.txt:8: FEMAP has no Node"));
    EXPECT_THAT(study.f.problems.text(), HasSubstr("CAEOutput.txt:9: \"TotalMass\" points at"));
    study.expectAllOrNothingAndTold();
}

}  // namespace loop
