#include "fake/FormFixture.h"
#include "fake/QueuedPropertyList.h"
#include "form/FormProcedures.h"
#include "generate/ControlFile.h"
#include "generate/GenerationDriver.h"
#include "scaling/CountedMemory.h"
#include "selection/InputSelection.h"
#include "selection/OutputSelection.h"

#include <gtest/gtest.h>

#include <functional>
#include <numeric>
#include <string>
#include <vector>

namespace scaling
{
namespace
{

constexpr int vectors = 3;
constexpr int fields = 3;

/// The form with a model of so many nodes, each with three results.
class World : public fake::FormFixture
{
public:
    explicit World(int nodes) : ids_(static_cast<std::size_t>(nodes))
    {
        std::iota(ids_.begin(), ids_.end(), 1);
        std::vector<femap::neutral::Node> all(ids_.size());
        for (std::size_t i = 0; i < all.size(); ++i) {
            all[i].id = ids_[i];
            all[i].x = ids_[i] + 0.5;
        }
        model().nodes.merge(std::move(all));
        femap::neutral::OutputSet& results = model().outputSets.put({.id = 1});
        for (int id = 1; id <= vectors; ++id) {
            femap::neutral::OutputVector vector{.id = id, .title = "Total Translation"};
            vector.ids = ids_;
            vector.values.assign(ids_.size(), id + 0.5);
            results.vectors.put(std::move(vector));
        }
        form.Solver.Text = "NXNastran";
    }

    int nodes() const { return static_cast<int>(ids_.size()); }

    void selectInputs()
    {
        pick(ids_);
        list_.choose({"x", "y", "z"});
        form.InputSelection.Text = "Nodes";
        selection::InputsButton_Click(context, dialog_);
    }
    void selectOutputs()
    {
        pick(ids_);
        list_.chooseAll();
        dialog_.UpdateCollection();
        form.OutputSelection.Text = "Nodes";
        selection::OutputsButton_Click(context, dialog_);
    }

private:
    std::vector<int> ids_;
    fake::QueuedPropertyList list_;
    selection::frmPropertyList dialog_{femap, list_};
};

struct Work
{
    std::string what;
    std::size_t amount;
};

std::vector<Work> workSoFar(const World& world)
{
    const Taken taken = takenSoFar();
    std::size_t bytes = 0;
    for (const auto& file : world.files.contents)
        bytes += file.second.size();
    return {{"pieces of memory", taken.pieces},
            {"bytes of memory", taken.bytes},
            {"operations on files", static_cast<std::size_t>(world.files.operations)},
            {"bytes of files", bytes}};
}

using Action = std::function<void(World&)>;

std::vector<Work> workOf(int nodes, const Action& prepare, const Action& action)
{
    World world(nodes);
    prepare(world);
    const std::vector<Work> before = workSoFar(world);
    action(world);
    std::vector<Work> work = workSoFar(world);
    for (std::size_t i = 0; i < work.size(); ++i)
        work[i].amount -= before[i].amount;
    return work;
}

// Twice the nodes may take twice the work and a little, whatever kind of work it is.
void expectLinear(const Action& prepare, const Action& action)
{
    constexpr double most = 2.1;
    constexpr double regardless = 200;  // of the number of nodes
    constexpr int fewest = 2000;
    std::vector<Work> smaller = workOf(fewest, prepare, action);
    for (const int nodes : {2 * fewest, 4 * fewest}) {
        std::vector<Work> larger = workOf(nodes, prepare, action);
        for (std::size_t i = 0; i < larger.size(); ++i)
            EXPECT_LE(static_cast<double>(larger[i].amount),
                      most * static_cast<double>(smaller[i].amount) + regardless)
                << larger[i].what << " of " << nodes << " nodes";
        smaller = std::move(larger);
    }
}

void nothing(World& /*world*/) {}

void withoutLog(World& world)
{
    world.context.log.DeinitialiseLogger();
}

void withInputs(World& world)
{
    withoutLog(world);
    world.selectInputs();
}

void withAll(World& world)
{
    withInputs(world);
    world.selectOutputs();
}

TEST(WorkGrowsWithTheRows, WhenInputsAreSelected)
{
    expectLinear(withoutLog, &World::selectInputs);
}

TEST(WorkGrowsWithTheRows, WhenInputsAreSelectedWithALog)
{
    expectLinear(nothing, &World::selectInputs);
}

TEST(WorkGrowsWithTheRows, WhenInputsAreSelectedAgain)
{
    expectLinear(withInputs, &World::selectInputs);
}

TEST(WorkGrowsWithTheRows, WhenOutputsAreSelected)
{
    expectLinear(withoutLog, &World::selectOutputs);
}

TEST(WorkGrowsWithTheRows, WhenOutputsAreSelectedAgain)
{
    expectLinear(withAll, &World::selectOutputs);
}

TEST(WorkGrowsWithTheRows, WhenHalfOfThemAreRemoved)
{
    expectLinear(
        [](World& world) {
            withInputs(world);
            world.form.InputsList.Row = world.nodes();
            world.form.InputsList.RowSel = world.nodes() * 5 / 2 - 1;
        },
        [](World& world) { form::ClearInputSelection_Click(world.context); });
}

TEST(WorkGrowsWithTheRows, WhenFilesAreWritten)
{
    for (const char* const tool : {"Velmar", "Ombra"})
        expectLinear(
            [&](World& world) {
                withAll(world);
                world.form.Optimizer.Text = tool;
            },
            [](World& world) { generate::GenerateButton_Click(world.context); });
}

TEST(WorkGrowsWithTheRows, WhenTheControlFileIsLoaded)
{
    expectLinear(
        [](World& world) {
            withAll(world);
            generate::Save_Config(world.context, world.progress);
        },
        [](World& world) { generate::Load_Click(world.context, world.femap.modelName); });
}

// A vector that grows takes a few pieces now and then, so not all counts are exact.
TEST(Memory, IsTakenOncePerInputRow)
{
    const int nodes = 5000;

    const std::vector<Work> work = workOf(nodes, withoutLog, &World::selectInputs);

    EXPECT_LE(work[0].amount, nodes * fields * 1.02);
}

TEST(Memory, IsTakenOncePerOutputRow)
{
    const int nodes = 5000;

    const std::vector<Work> work = workOf(nodes, withoutLog, &World::selectOutputs);

    EXPECT_LE(work[0].amount, nodes * vectors * 1.02);
}

TEST(Memory, IsNotTakenForEachRowThatIsWritten)
{
    for (const char* const tool : {"Velmar", "Ombra"}) {
        const std::vector<Work> work = workOf(
            5000,
            [&](World& world) {
                withAll(world);
                world.form.Optimizer.Text = tool;
            },
            [](World& world) { generate::GenerateButton_Click(world.context); });

        EXPECT_LE(work[0].amount, 1000U) << tool;
    }
}

TEST(Memory, IsTakenOncePerRowThatIsLoaded)
{
    const int nodes = 5000;

    const std::vector<Work> work = workOf(
        nodes,
        [](World& world) {
            withAll(world);
            generate::Save_Config(world.context, world.progress);
        },
        [](World& world) { generate::Load_Click(world.context, world.femap.modelName); });

    EXPECT_LE(work[0].amount, nodes * (fields + vectors) * 1.02);
}

TEST(TheProgress, LooksAtTheClockOncePerManyRows)
{
    World world(10'000);
    withoutLog(world);
    std::size_t looks = 0;
    world.system.monotonicSeconds = [&] {
        ++looks;
        return 0.01 * static_cast<double>(looks);
    };

    world.selectInputs();
    world.selectOutputs();
    generate::GenerateButton_Click(world.context);

    const std::size_t rows = world.form.InputsList.rows().size();
    EXPECT_GT(looks, rows / 256);
    EXPECT_LT(looks, rows / 30);
}

}  // namespace
}  // namespace scaling
