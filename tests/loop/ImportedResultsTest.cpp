#include "OutputFixture.h"
#include "fake/WatchedFemap.h"
#include "femap/ForwardingApplication.h"
#include "loop/ImportedResults.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace loop
{

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{

const ResultSet oneVector = {{1, "Total Translation", 7, {{12, 0.5}}}};

class ImportedResults : public testing::Test
{
protected:
    void import(const std::function<void()>& read = [] {})
    {
        withImportedResults(f.context, {femap::SolverBrand::NxNastran, path, "beam.op2"},
                            f.problems, read);
    }
    // The IDs that the model has while the results are read, behind the active one.
    std::vector<int> setsMeanwhile()
    {
        std::vector<int> seen;
        import([&] {
            seen = f.sets();
        seen.insert(seen.begin(), f.activeSet());
    });
    return seen;
}

OutputFixture f;
std::string path = f.results({oneVector});
};  // namespace

// A FEMAP that has made output sets when it refuses the results.
class RefusesLate : public femap::ForwardingApplication
{
public:
    using ForwardingApplication::ForwardingApplication;

    std::unique_ptr<femap::ModelChanges> changes() override
    {
        class Changes : public fake::WatchedChanges
        {
        public:
            using WatchedChanges::WatchedChanges;
            void feFileReadNastranResults(femap::SolverBrand brand,
                                          const std::string& name) override
            {
                WatchedChanges::feFileReadNastranResults(brand, name);
                throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "the end is missing");
            }
        };
        return std::make_unique<Changes>(ForwardingApplication::changes(), watch_);
    }

private:
    fake::CallWatch watch_;
};

}  // namespace loop

TEST_F(ImportedResults, AreTheActiveOutputSetWhileTheyAreRead)
{
    EXPECT_THAT(setsMeanwhile(), ElementsAre(1, 1));

    EXPECT_EQ(f.problems.text(), "");
    EXPECT_THAT(f.sets(), IsEmpty());
    EXPECT_EQ(f.activeSet(), 0);
}

TEST_F(ImportedResults, OfSeveralSubcasesAreReadAtThePlaceOfTheStudysOutputSet)
{
    path = f.results({oneVector, oneVector, oneVector});
    f.addSets({3, 9, 7});

    EXPECT_THAT(setsMeanwhile(), ElementsAre(11, 3, 7, 9, 10, 11, 12));

    EXPECT_EQ(f.problems.text(), "");
    EXPECT_THAT(f.sets(), ElementsAre(3, 7, 9));
    EXPECT_EQ(f.activeSet(), 7);
}

TEST_F(ImportedResults, AreReadFromTheLowestWhereNoOutputSetIsActive)
{
    path = f.results({oneVector, oneVector});
    f.addSets({3, 9});
    fake::CallWatch& watch = f.watchFemap();
    watch.answers["Info_ActiveID"] = 0;

    EXPECT_THAT(setsMeanwhile(), ElementsAre(10, 3, 9, 10, 11));

    EXPECT_EQ(watch.count("activateOutputSet"), 1);
}

TEST_F(ImportedResults, ThatBecomeActiveByThemselvesLeaveTheFormerOneActive)
{
    f.addSets({3});
    f.femap.activatesResults = true;

    import();

    EXPECT_EQ(f.activeSet(), 3);
}

TEST_F(ImportedResults, OfMoreSetsThanBeforeAreAnErrorThatSaysBothNumbers)
{
    path = f.results({oneVector, oneVector});
    f.addSets({3});

    EXPECT_THAT(setsMeanwhile(), IsEmpty());

    EXPECT_EQ(f.problems.text(),
              "beam.op2: FEMAP made 2 output sets of the results, and the model had 1 output set "
              "before, so it cannot be told which one the study reads; leave in the model only the "
              "results of one run of these subcases\n");
    EXPECT_THAT(f.sets(), ElementsAre(3));
    EXPECT_EQ(f.activeSet(), 3);
}

TEST_F(ImportedResults, OfSeveralSetsAreAnErrorInAModelThatHadNone)
{
    path = f.results({oneVector, oneVector});

    EXPECT_THAT(setsMeanwhile(), IsEmpty());

    EXPECT_THAT(f.problems.text(),
                AllOf(HasSubstr("2 output sets of the results, and the model had 0 output sets"),
                      HasSubstr("load the results into the model that the study is made with")));
    EXPECT_THAT(f.sets(), IsEmpty());
}

TEST_F(ImportedResults, ThatFemapRefusesAreToldAndNothingIsRead)
{
    path = f.folder.path("none.results.neu");
    f.addSets({3});

    EXPECT_THAT(setsMeanwhile(), IsEmpty());

    EXPECT_THAT(f.problems.text(), AllOf(StartsWith("beam.op2: "), HasSubstr(path)));
    EXPECT_THAT(f.sets(), ElementsAre(3));
}

TEST_F(ImportedResults, ThatFemapRefusesInTheMiddleAreDeleted)
{
    f.addSets({3});
    f.context.application = std::make_unique<RefusesLate>(std::move(f.context.application));

    EXPECT_THAT(setsMeanwhile(), IsEmpty());

    EXPECT_EQ(f.problems.text(), "beam.op2: the end is missing\n");
    EXPECT_THAT(f.sets(), ElementsAre(3));
}

TEST_F(ImportedResults, AreDeletedWhenReadingThemFails)
{
    f.addSets({3});

    import([] { throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, "no vector");
});

EXPECT_EQ(f.problems.text(), "beam.op2: no vector\n");
EXPECT_THAT(f.sets(), ElementsAre(3));
EXPECT_EQ(f.activeSet(), 3);
}

TEST_F(ImportedResults, ThatCannotBeDeletedAreNamedAndTheFormerSetIsActiveAgain)
{
    f.addSets({3});
    f.watchFemap().failAt("Changes.deleteOutputSets");

    import();

    EXPECT_EQ(
        f.problems.text(),
        "beam.op2: the output sets that were made of the results could not be deleted; delete "
        "them in FEMAP (4): Changes.deleteOutputSets failed\n");
    EXPECT_EQ(f.activeSet(), 3);
}

TEST_F(ImportedResults, WithoutWhichTheFormerSetIsNotActiveAgainAreDeletedAndThatIsSaid)
{
    path = f.results({oneVector, oneVector});
    f.addSets({3, 6});
    f.watchFemap().failAt("Changes.activateOutputSet 6");

    import();

    EXPECT_EQ(f.problems.text(),
              "beam.op2: the output set that was active before could not be made active again; "
              "activate it in FEMAP (0: none): 6: Changes.activateOutputSet 6 failed\n");
    EXPECT_THAT(f.sets(), ElementsAre(3, 6));
}

TEST_F(ImportedResults, OfAFemapThatEndsAreNotAskedForAgain)
{
    f.addSets({3});
    fake::CallWatch& watch = f.watchFemap();
    watch.dieAt("Changes.activateOutputSet 4");

    EXPECT_THROW(import(), femap::ConnectionLost);

    EXPECT_EQ(watch.calls.back(), "Changes.activateOutputSet 4");
}

TEST_F(ImportedResults, OfAFemapThatDoesNotAnswerMayBeLeftAndThatIsSaid)
{
    f.addSets({3});

    EXPECT_THROW(import([] { throw femap::WaitEnded("no answer", true); }), femap::WaitEnded);

    EXPECT_EQ(f.problems.text(),
              "beam.op2: FEMAP did not answer while it had the results; look in "
              "FEMAP for output sets that were made of them, and delete them\n");
}

}  // namespace loop
