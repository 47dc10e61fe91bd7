#include "bench/BenchForm.h"
#include "bench/NeutralModel.h"
#include "bench/TimeStep.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>

namespace bench
{
namespace
{

int sizeOf(const benchmark::State& state)
{
    return static_cast<int>(state.range(0));
}

void countBytes(benchmark::State& state)
{
    state.counters["bytes"] =
        static_cast<double>(std::filesystem::file_size(neutralModel(sizeOf(state))));
}

void openModel(benchmark::State& state)
{
    const std::string path = neutralModel(sizeOf(state));
    timeStep(
        state, [] { return std::make_unique<BenchForm>(); },
        [&](BenchForm& world) { world.femap.openNeutralFile(path); });
    countBytes(state);
}

void openModelBaseline(benchmark::State& state)
{
    const std::string path = neutralModel(sizeOf(state));
    for (auto _ : state) {
        const std::string content = sys::DiskFiles().read(path);
        benchmark::DoNotOptimize(std::count(content.begin(), content.end(), '\n'));
    }
    countBytes(state);
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1000)->Arg(1'000'000)->Iterations(1)->Unit(benchmark::kMillisecond);
}

BENCHMARK(openModelBaseline)->Apply(sizes);
BENCHMARK(openModel)->Apply(sizes);

}  // namespace
}  // namespace bench
