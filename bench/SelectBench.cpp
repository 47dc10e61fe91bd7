#include "bench/BenchForm.h"
#include "bench/TimeStep.h"
#include "form/FormProcedures.h"
#include "form/Progress.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace bench
{
namespace
{

constexpr int fieldsOfNode = 3;
constexpr int vectors = 10;

int nodesOf(const benchmark::State& state)
{
    return static_cast<int>(state.range(0) + fieldsOfNode - 1) / fieldsOfNode;
}

int nodesOfOutputs(const benchmark::State& state)
{
    return static_cast<int>(state.range(0)) / vectors;
}

template <class Number>
void appendNumber(std::string& text, Number number)
{
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

// The rows that selecting x, y and z of so many nodes gives, by nothing but the library.
std::vector<std::string> bareRows(int nodes)
{
    constexpr std::array<std::string_view, fieldsOfNode> fields = {"x", "y", "z"};
    std::vector<std::string> rows;
    for (int node = 1; node <= nodes; ++node)
        for (int axis = 0; axis < fieldsOfNode; ++axis) {
            const std::string_view field = fields[static_cast<std::size_t>(axis)];
            std::string& row = rows.emplace_back(field);
            row += "AtNode";
            appendNumber(row, node);
            row += '\t';
            appendNumber(row, coordinateOf(node, axis));
            row += "\tNode\t";
            appendNumber(row, node);
            (row += '\t').append(field) += '\t';
        }
    std::sort(rows.begin(), rows.end());
    return rows;
}

auto formWithNodes(int nodes, const std::string& logLevel)
{
    auto world = std::make_unique<BenchForm>(logLevel);
    world->addNodes(nodes);
    return world;
}

auto formWithResults(int nodes)
{
    auto world = formWithNodes(nodes, "NOTHING");
    for (int vector = 1; vector <= vectors; ++vector)
        world->addVector(vector, nodes);
    return world;
}

auto formWithInputs(int nodes)
{
    auto world = formWithNodes(nodes, "NOTHING");
    world->selectInputs(nodes);
    return world;
}

void selectAtLevel(benchmark::State& state, const std::string& logLevel)
{
    const int nodes = nodesOf(state);
    timeStep(
        state, [&] { return formWithNodes(nodes, logLevel); },
        [&](BenchForm& world) { world.selectInputs(nodes); });
}

void selectBaseline(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(bareRows(nodesOf(state)));
}

void select(benchmark::State& state)
{
    selectAtLevel(state, "NOTHING");
}

void selectWithLog(benchmark::State& state)
{
    selectAtLevel(state, "DEBUG");
}

// The baseline is none when it does less than what is measured against it.
void selectGivesTheBaselinesRows(benchmark::State& state)
{
    for (auto _ : state) {
        const auto world = formWithInputs(nodesOf(state));
        const form::ParameterGrid& grid = world->form.InputsList;
        const std::vector<std::string> rows = bareRows(nodesOf(state));
        bool same = grid.Rows() == static_cast<int>(rows.size()) + 1;
        for (int row = 1; same && row < grid.Rows(); ++row)
            same = grid.rowText(row) == rows[static_cast<std::size_t>(row) - 1];
        if (!same)
            state.SkipWithError("the rows differ");
    }
}

void selectAgain(benchmark::State& state)
{
    const int nodes = nodesOf(state);
    timeStep(
        state, [&] { return formWithInputs(nodes); },
        [&](BenchForm& world) { world.selectInputs(nodes); });
}

void selectOutputs(benchmark::State& state)
{
    const int nodes = nodesOfOutputs(state);
    timeStep(
        state, [&] { return formWithResults(nodes); },
        [&](BenchForm& world) { world.selectOutputs(nodes); });
}

void selectOutputsAgain(benchmark::State& state)
{
    const int nodes = nodesOfOutputs(state);
    timeStep(
        state,
        [&] {
            auto world = formWithResults(nodes);
            world->selectOutputs(nodes);
            return world;
        },
        [&](BenchForm& world) { world.selectOutputs(nodes); });
}

// Half of the rows, from the middle of the grid.
void removeSelected(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    timeStep(
        state,
        [&] {
            auto world = formWithInputs(nodesOf(state));
            world->form.InputsList.Row = rows / 4;
            world->form.InputsList.RowSel = rows / 4 + rows / 2 - 1;
            return world;
        },
        [](BenchForm& world) { form::ClearInputSelection_Click(world.context); });
}

// What showing the progress adds to a selection.
void progressOfSelect(benchmark::State& state)
{
    const auto steps = static_cast<std::size_t>(nodesOf(state));
    timeStep(
        state, [] { return std::make_unique<BenchForm>(); },
        [&](BenchForm& world) {
            form::Progress progress(world.context, "Reading inputs", steps);
            for (std::size_t step = 0; step < steps; ++step)
                progress.step();
            progress.finish();
        });
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1000)->Arg(250'000)->Arg(1'000'000)->Iterations(1)->Unit(
        benchmark::kMillisecond);
}

BENCHMARK(selectBaseline)->Apply(sizes);
BENCHMARK(select)->Apply(sizes);
BENCHMARK(selectWithLog)->Apply(sizes);
BENCHMARK(selectGivesTheBaselinesRows)->Apply(sizes);
BENCHMARK(selectAgain)->Apply(sizes);
BENCHMARK(selectOutputs)->Apply(sizes);
BENCHMARK(selectOutputsAgain)->Apply(sizes);
BENCHMARK(removeSelected)->Apply(sizes);
BENCHMARK(progressOfSelect)->Apply(sizes);

}  // namespace
}  // namespace bench
