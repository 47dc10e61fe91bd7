#include "bench/BenchForm.h"
#include "bench/NeutralModel.h"
#include "bench/TimeStep.h"
#include "femap/embedded/NeutralPatch.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

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

// Values of nodes and elements from all over the file.
femap::ModelValues someValues(int size)
{
    constexpr int ofEachKind = 50;
    femap::ModelValues values;
    for (int i = 1; i <= ofEachKind; ++i) {
        const int id = i * (size / ofEachKind);
        values.entities.push_back({"Node", id, {"y"}, i + 0.125});
        values.entities.push_back({"Elem", id, {"MaterialAngle"}, i + 0.25});
    }
    return values;
}

void patchModel(benchmark::State& state)
{
    const std::string path = neutralModel(sizeOf(state));
    const fake::TemporaryFolder folder;
    const femap::ModelValues values = someValues(sizeOf(state));
    sys::DiskFiles files;
    for (auto _ : state) {
        const std::string content = files.read(path);
        const auto copy = files.create(folder.path("copy.neu"));
        const auto problems = femap::embedded::writePatched(
            content, path, values, [&](std::string_view piece) { copy->write(piece); });
        copy->close();
        if (!problems.empty())
            state.SkipWithError(problems.front().what.c_str());
    }
    countBytes(state);
}

void patchModelBaseline(benchmark::State& state)
{
    const std::string path = neutralModel(sizeOf(state));
    const fake::TemporaryFolder folder;
    std::vector<char> piece(1 << 20);
    for (auto _ : state) {
        std::ifstream file(path, std::ios::binary);
        std::ofstream copy(folder.path("copy.neu"), std::ios::binary);
        do {
            file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
            copy.write(piece.data(), file.gcount());
        } while (file);
    }
    countBytes(state);
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1000)->Arg(1'000'000)->Iterations(1)->Unit(benchmark::kMillisecond);
}

BENCHMARK(openModelBaseline)->Apply(sizes);
BENCHMARK(openModel)->Apply(sizes);
BENCHMARK(patchModelBaseline)->Apply(sizes);
BENCHMARK(patchModel)->Apply(sizes);

}  // namespace
}  // namespace bench
