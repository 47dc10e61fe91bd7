#include "fake/FormFixture.h"
#include "fake/GridRows.h"
#include "fake/RandomSeed.h"
#include "generate/ControlFile.h"
#include "property/Generators.h"

#include <gtest/gtest.h>

namespace property
{

using fake::rowsOf;

namespace
{

constexpr int rounds = 700;

struct Grids
{
    std::vector<Row> inputs;
    std::vector<Row> outputs;
};

// What a form shows after the control file of these grids was read.
std::vector<std::string> afterReading(const std::vector<Row>& rows, int columns)
{
    std::vector<std::string> texts;
    for (const Row& row : named(rows))
        texts.push_back(afterTheCodePage(joined(row, columns)));
    if (texts.empty())
        texts.push_back(joined({""}, columns));
    return texts;
}

void expectRoundTrip(const Grids& grids)
{
    fake::FormFixture before;
    putInto(before.form.InputsList, grids.inputs);
    putInto(before.form.OutputsList, grids.outputs);
    generate::Save_Config(before.context, before.progress);

    fake::FormFixture after;
    after.files.contents = before.files.contents;
    generate::Load_Click(after.context, after.femap.modelName);

    EXPECT_EQ(rowsOf(after.form.InputsList),
              afterReading(grids.inputs, after.form.InputsList.Cols()));
    EXPECT_EQ(rowsOf(after.form.OutputsList),
              afterReading(grids.outputs, after.form.OutputsList.Cols()));

    const std::map<std::string, std::string> written = before.files.contents;
    generate::Save_Config(after.context, after.progress);
    EXPECT_EQ(after.files.contents, written);
}

}  // namespace

TEST(ControlFileOfRandomGrids, GivesBackEveryCellOfEveryNamedRow)
{
    Random random(fake::randomSeed());

    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        Grids grids = {randomInputs(random, 12), randomOutputs(random, 12)};
        // Without an input the first output takes its place; that has a test of its own.
        grids.inputs.push_back({"last", "1", "Prop", "3", "pval", "0"});
        expectRoundTrip(grids);
    }
}

TEST(ControlFileOfRandomGrids, WithoutNamedInputsTakesTheOutputsForInputs)
{
    Random random(fake::randomSeed());

    for (int round = 0; round < rounds / 5 && !HasFailure(); ++round) {
        const std::vector<Row> outputs = randomOutputs(random, 6);
        fake::FormFixture f;
        putInto(f.form.OutputsList, outputs);
        generate::Save_Config(f.context, f.progress);

        generate::Load_Click(f.context, f.femap.modelName);

        std::vector<std::string> expected = {joined({""}, f.form.InputsList.Cols())};
        for (const Row& row : named(outputs))
            expected.push_back(afterTheCodePage(joined(row, f.form.InputsList.Cols())));
        EXPECT_EQ(rowsOf(f.form.InputsList), expected);
    }
}

}  // namespace property
