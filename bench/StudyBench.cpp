#include "bench/BenchForm.h"
#include "bench/TimeStep.h"
#include "fake/GenerateFixture.h"
#include "findings/Findings.h"
#include "generate/GenerationDriver.h"
#include "preview/Preview.h"

#include <memory>
#include <string>
#include <vector>

namespace bench
{
namespace
{

using generate::GenerateFixture;

int rowsOf(const benchmark::State& state)
{
    return static_cast<int>(state.range(0));
}

// A study on a machine in memory.
auto filledStudy(const benchmark::State& state)
{
    auto world = std::make_unique<GenerateFixture>();
    fillGrids(world->form, rowsOf(state));
    return world;
}

void pressApply(GenerateFixture& world, const std::string& tool)
{
    world.form.Optimizer.Text = tool;
    generate::GenerateButton_Click(world.context);
}

// The same with all that "Apply" writes beside the model.
auto appliedStudy(const benchmark::State& state)
{
    auto world = filledStudy(state);
    pressApply(*world, "Ombra");  // which leaves the templates
    pressApply(*world, "Velmar");
    return world;
}

// The entities, the properties and the results that the rows stand for, with the rows' values.
void addModel(femap::neutral::Model& model, int rows)
{
    std::vector<femap::neutral::Node> nodes;
    std::vector<femap::neutral::Element> elements;
    std::vector<femap::neutral::Property> properties;
    femap::neutral::OutputVector vector{.id = 1, .title = "Total Translation"};
    for (int id = 1; id <= rows; ++id) {
        nodes.push_back({.id = id, .x = valueOfRow(id)});
        vector.ids.push_back(id);
        vector.values.push_back(valueOfRow(id));
        if (id % 5 == 0) {
            elements.push_back({.id = id});
            properties.push_back({.id = id, .pval = {valueOfRow(id)}});
        }
    }
    model.nodes.merge(std::move(nodes));
    model.elements.merge(std::move(elements));
    model.properties.merge(std::move(properties));
    femap::neutral::OutputSet set;
    set.id = 1;
    set.vectors.put(std::move(vector));
    model.outputSets.put(std::move(set));
}

// What follows each action.
void findFaults(benchmark::State& state)
{
    timeStep(
        state, [&] { return filledStudy(state); },
        [](GenerateFixture& world) {
            benchmark::DoNotOptimize(findings::quickFindings(world.context, world.femap.modelName));
        });
}

// What "check" does, with the files of the last "Apply" and all of the model to look at.
void checkStudy(benchmark::State& state)
{
    timeStep(
        state,
        [&] {
            auto world = appliedStudy(state);
            addModel(world->model(), rowsOf(state));
            return world;
        },
        [](GenerateFixture& world) {
            benchmark::DoNotOptimize(findings::allFindings(world.context));
        });
}

// A check that finds the model wanting would not have looked at all of it.
void checkOfStudyFindsAllInTheModel(benchmark::State& state)
{
    for (auto _ : state) {
        auto world = appliedStudy(state);
        addModel(world->model(), rowsOf(state));
        for (const findings::Finding& finding : findings::allFindings(world->context))
            if (finding.code.ends_with("-gone") || finding.code == "value-differs" ||
                finding.code == "not-checked")
                state.SkipWithError(finding.sentence.c_str());
    }
}

void applyInMemory(benchmark::State& state)
{
    timeStep(
        state, [&] { return appliedStudy(state); },
        [](GenerateFixture& world) { generate::GenerateButton_Click(world.context); });
}

void previewApply(benchmark::State& state)
{
    timeStep(
        state, [&] { return appliedStudy(state); },
        [](GenerateFixture& world) {
            benchmark::DoNotOptimize(preview::previewOfApply(world.context));
        });
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1000)->Arg(250'000)->Arg(1'000'000)->Iterations(1)->Unit(
        benchmark::kMillisecond);
}

BENCHMARK(findFaults)->Apply(sizes);
BENCHMARK(checkStudy)->Apply(sizes);
BENCHMARK(checkOfStudyFindsAllInTheModel)->Apply(sizes);
BENCHMARK(applyInMemory)->Apply(sizes);
BENCHMARK(previewApply)->Apply(sizes);

}  // namespace
}  // namespace bench
