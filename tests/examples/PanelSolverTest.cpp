#include "examples/solver/Panel.h"
#include "examples/solver/ResultsFile.h"
#include "femap/neutral/NeutralFile.h"
#include "system/CodePage.h"
#include "system/Files.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

using examples::solver::resultsFile;
using examples::solver::solve;
using femap::neutral::Model;
using femap::neutral::OutputSet;
using femap::neutral::OutputVector;

namespace
{

Model modelIn(const std::string& text)
{
    Model model;
    readNeutralFile(text, "model.neu", sys::windows1252(), model);
    return model;
}

Model examplePanel()
{
    return modelIn(sys::DiskFiles().read(SOURCE_FOLDER "/examples/panel.neu"));
}

double valueAt(const Model& results, int vector, int entity)
{
    return *results.outputSets.find(1)->vectors.find(vector)->valueAt(entity);
}

double deflectionWithSkinOf(double thickness)
{
    Model model = examplePanel();
    model.properties.find(1)->pval[0] = thickness;
    return valueAt(modelIn(resultsFile(solve(model))), 4, 163);
}

// The model's results are written with six digits.
void expectSame(const OutputVector& computed, const OutputVector& stored)
{
    SCOPED_TRACE(stored.title);
    EXPECT_EQ(computed.title, stored.title);
    EXPECT_EQ(computed.location, stored.location);
    ASSERT_EQ(computed.ids, stored.ids);
    for (std::size_t i = 0; i < stored.values.size(); ++i)
        ASSERT_NEAR(computed.values[i], stored.values[i], 1e-5 * std::abs(stored.values[i]) + 1e-12)
            << "at " << stored.ids[i];
}

TEST(PanelSolver, ComputesTheResultsThatTheModelHolds)
{
    const Model panel = examplePanel();

    const Model results = modelIn(resultsFile(solve(panel)));

    EXPECT_EQ(results.outputSets.ids(), panel.outputSets.ids());
    for (const OutputSet& stored : panel.outputSets) {
        const OutputSet& computed = *results.outputSets.find(stored.id);
        ASSERT_EQ(computed.vectors.ids(), stored.vectors.ids());
        for (const OutputVector& vector : stored.vectors)
            expectSame(*computed.vectors.find(vector.id), vector);
    }
}

TEST(PanelSolver, FollowsTheThicknessOfTheSkin)
{
    const double thin = deflectionWithSkinOf(2);
    const double thick = deflectionWithSkinOf(6);

    EXPECT_GT(std::abs(thin), 1.05 * std::abs(thick));
}

TEST(PanelSolver, KeepsEveryDigitOfItsResults)
{
    const auto sets = solve(examplePanel());

    const Model results = modelIn(resultsFile(sets));

    for (const auto& [id, value] : sets[0].vectors[3].values)
        ASSERT_EQ(valueAt(results, 4, id), value);
}

TEST(PanelSolver, RefusesAnotherModel)
{
    EXPECT_THROW(solve(Model()), sys::RuntimeError);
}

}  // namespace
