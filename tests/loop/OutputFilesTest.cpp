#include "OutputFixture.h"
#include "loop/OutputFiles.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace loop
{

using testing::ElementsAre;
using testing::Pair;

namespace
{

class OutputFiles : public testing::Test
{
protected:
    void put(const std::string& name, std::int64_t time)
    {
        f.files.contents["/study/" + name] = "old";
        f.files.times["/study/" + name] = time;
    }
    std::string problemsOfResults()
    {
        demandFreshResults(f.system, "/study/", "beam.op2", {"beam.dat", "beam.run.neu"},
                           f.problems);
        return f.problems.text();
    }

    OutputFixture f;
};

}  // namespace

TEST_F(OutputFiles, OfResultsMayBeAsOldAsWhatTheyAreMadeOf)
{
    put("beam.dat", 100);
    put("beam.run.neu", 101);
    put("beam.op2", 101);

    EXPECT_EQ(problemsOfResults(), "");
}

TEST_F(OutputFiles, OfResultsMayNotBeOlderByAnything)
{
    put("beam.dat", 102);
    put("beam.run.neu", 101);
    put("beam.op2", 101);

    EXPECT_EQ(problemsOfResults(),
              "beam.op2: the results are older than beam.dat; let the solver run\n");
}

TEST_F(OutputFiles, OfResultsAndWhatTheyAreMadeOfMustBeThere)
{
    put("beam.run.neu", 101);

    EXPECT_EQ(problemsOfResults(),
              "beam.dat: the file is not there; let CAEInput write it, and the solver run\n"
              "beam.op2: the results are not there; let the solver run\n");
}

TEST_F(OutputFiles, OfValuesHoldTheRowsThatHaveAName)
{
    fake::fill(f.form.OutputsList, {"mass\t0.5\tMassTotal\t\tMassProperties", "\t\t\t\t",
                                    "größte\t1E-07\t1\t1\tmaxval"});
    put("OutputValues.txt", 1);

    writeOutputValues(f.context, "/study/OutputValues.txt");

    EXPECT_THAT(f.files.inFolder("/study/"),
                ElementsAre(Pair("OutputValues.txt", "mass  0.5\r\ngr\xF6\xDFte  1E-07\r\n")));
}

TEST_F(OutputFiles, OfValuesAreWholeOrNotThereWhateverTheDiskRefuses)
{
    fake::fill(f.form.OutputsList, {"mass\t0.5\tMassTotal\t\tMassProperties"});
    const int before = f.files.operations;
    writeOutputValues(f.context, "/study/OutputValues.txt");
    const int operations = f.files.operations - before;
    ASSERT_GE(operations, 5);
    f.files.contents.clear();

    for (int i = 1; i <= operations; ++i) {
        f.files.failingOperation = f.files.operations + i;
        EXPECT_THROW(writeOutputValues(f.context, "/study/OutputValues.txt"), sys::RuntimeError);
        EXPECT_TRUE(f.files.inFolder("/study/").empty()) << "operation " << i;
    }
}

}  // namespace loop
