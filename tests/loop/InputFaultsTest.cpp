// Every call of FEMAP and every operation of the disk may fail while CAEInput is at work.
#include "InputFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace loop
{

using testing::AnyOf;
using testing::HasSubstr;

TEST(AChangedModel, IsWholeOrToldOfWhicheverCallOfFemapIsRefused)
{
    std::size_t refused = 0;
    for (std::size_t n = 1;; ++n) {
        SCOPED_TRACE("call " + std::to_string(n));
        InputStudy study;
        study.femap.failAtCall(n);
        const int code = study.run();
        if (study.femap.calls.size() < n)
            break;
        study.femap.behave();
        if (code == 0) {  // what only asks may fail
            EXPECT_EQ(study.values(), InputStudy::wantedValues);
            continue;
        }
        ++refused;
        EXPECT_EQ(study.values(), InputStudy::formerValues) << study.told();
        // Where FEMAP does not tell which model it has, another one is started.
        EXPECT_THAT(study.told(), HasSubstr(n == 1 ? "File not opened" : "refused"));
        EXPECT_EQ(study.read("beam.dat"), oldDeck);
        EXPECT_FALSE(study.has(journalName));
        EXPECT_EQ(study.host.attach()->changes()->dialogSwitches(), femap::DialogSwitches());
        EXPECT_EQ(study.run(), 0) << study.told();
        EXPECT_EQ(study.values(), InputStudy::wantedValues);
    }
    EXPECT_GT(refused, 50U);
}

TEST(AChangedModel, IsPutBackByTheNextRunWhicheverCallWasFemapsLast)
{
    std::size_t lost = 0;
    for (std::size_t n = 1;; ++n) {
        SCOPED_TRACE("call " + std::to_string(n));
        InputStudy study;
        study.femap.dieAtCall(n);
        const int code = study.run();
        if (study.femap.calls.size() < n)
            break;
        study.femap.behave();
        ++lost;
        EXPECT_EQ(code, 1);
        if (study.values() != InputStudy::formerValues) {
            EXPECT_THAT(study.told(), HasSubstr("NOT put back"));
            EXPECT_TRUE(study.has(journalName));
        }
        EXPECT_EQ(study.read("beam.dat"), oldDeck);
        study.change("InputValues.txt", "xAtNode4  -.125", "xAtNode4  x");
        EXPECT_EQ(study.run(), 1);
        expectAsBefore(study);
    }
    EXPECT_GT(lost, 50U);
}

TEST(AChangedModel, IsWholeOrToldOfWhicheverOperationOfTheDiskFails)
{
    int failed = 0;
    for (int n = 1;; ++n) {
        SCOPED_TRACE("operation " + std::to_string(n));
        InputStudy study;
        study.files.failingOperation = n;
        const int code = study.run();
        if (study.files.operations < n)
            break;
        if (code == 0)
            continue;
        ++failed;
        EXPECT_THAT(study.told(), HasSubstr("No space left on device"));
        EXPECT_THAT(study.values(),
                    AnyOf(InputStudy::formerValues, HasSubstr(InputStudy::wantedValues)));
        if (study.values() != InputStudy::formerValues) {
            EXPECT_THAT(study.told(), HasSubstr("NOT put back"));
            EXPECT_TRUE(study.has(journalName));
        }
        EXPECT_THAT(study.has("beam.dat") ? study.read("beam.dat") : oldDeck, oldDeck);
        study.files.failingOperation = 0;
        EXPECT_EQ(study.run(), 0) << study.told();
        EXPECT_EQ(study.values(), InputStudy::wantedValues);
        EXPECT_FALSE(study.has(journalName));
    }
    EXPECT_GT(failed, 10);
}

}  // namespace loop
