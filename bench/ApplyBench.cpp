#include "bench/BenchForm.h"
#include "bench/TimeStep.h"
#include "generate/ControlFile.h"
#include "generate/GenerationDriver.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace bench
{
namespace
{

auto filledForm(const benchmark::State& state, const std::string& tool)
{
    auto world = std::make_unique<BenchForm>();
    world->form.Optimizer.Text = tool;
    fillGrids(world->form, static_cast<int>(state.range(0)));
    return world;
}

void apply(benchmark::State& state, const std::string& tool)
{
    timeStep(
        state, [&] { return filledForm(state, tool); },
        [](BenchForm& world) { generate::GenerateButton_Click(world.context); });
}

// What "Apply" writes, and a folder to write it into.
struct Bytes
{
    fake::TemporaryFolder folder;
    std::map<std::string, std::string> files;  // by name
};

auto bytesOf(const benchmark::State& state, const std::string& tool)
{
    const auto world = filledForm(state, tool);
    generate::GenerateButton_Click(world->context);
    auto bytes = std::make_unique<Bytes>();
    for (const std::string& name : world->folder.listing())
        if (name.find('.') != std::string::npos)
            bytes->files[name] = world->system.files.read(world->folder.path(name));
    return bytes;
}

// The same files through one large buffer, as safely brought to their places.
void writeThroughBuffer(Bytes& bytes)
{
    constexpr std::size_t bufferSize = 1 << 20;
    std::vector<char> buffer(bufferSize);
    sys::DiskFiles disk;
    for (const auto& [name, content] : bytes.files) {
        const std::string path = bytes.folder.path(name);
        const auto file = disk.create(path + "~");
        for (std::size_t done = 0; done < content.size(); done += bufferSize)
            file->write({buffer.data(), content.copy(buffer.data(), bufferSize, done)});
        file->flush();
        file->close();
        disk.replace(path, path + "~");
    }
}

void applyBaseline(benchmark::State& state, const std::string& tool)
{
    double size = 0;
    timeStep(
        state,
        [&] {
            auto bytes = bytesOf(state, tool);
            for (const auto& file : bytes->files)
                size += static_cast<double>(file.second.size());
            return bytes;
        },
        writeThroughBuffer);
    state.counters["bytes"] = size;
}

// A form with empty grids beside a control file.
auto formWithControlFile(const benchmark::State& state)
{
    auto world = filledForm(state, "none");
    form::Progress progress(world->context, "Writing files");
    generate::Save_Config(world->context, progress);
    world->form.InputsList.setRows(2);
    world->form.InputsList.setText(1, form::nameColumn, "");
    world->form.OutputsList.setRows(2);
    world->form.OutputsList.setText(1, form::nameColumn, "");
    return world;
}

std::string readControlFile(BenchForm& world)
{
    return sys::DiskFiles().read(world.folder.path("modelControl.txt"));
}

void loadControlFile(benchmark::State& state)
{
    double size = 0;
    timeStep(
        state,
        [&] {
            auto world = formWithControlFile(state);
            size = static_cast<double>(readControlFile(*world).size());
            return world;
        },
        [](BenchForm& world) { generate::Load_Click(world.context, world.femap.modelName); });
    state.counters["bytes"] = size;
}

void loadControlFileBaseline(benchmark::State& state)
{
    timeStep(
        state, [&] { return formWithControlFile(state); },
        [](BenchForm& world) {
            const std::string content = readControlFile(world);
            std::vector<std::string> lines;
            std::string_view rest = content;
            while (!rest.empty()) {
                const std::size_t end = rest.find("\r\n");
                lines.emplace_back(rest.substr(0, end));
                rest.remove_prefix(end + 2);
            }
            benchmark::DoNotOptimize(lines);
        });
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1000)->Arg(250'000)->Arg(1'000'000)->Iterations(1)->Unit(
        benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(applyBaseline, Velmar, "Velmar")->Apply(sizes);
BENCHMARK_CAPTURE(apply, Velmar, "Velmar")->Apply(sizes);
BENCHMARK_CAPTURE(applyBaseline, Ombra, "Ombra")->Apply(sizes);
BENCHMARK_CAPTURE(apply, Ombra, "Ombra")->Apply(sizes);
BENCHMARK(loadControlFileBaseline)->Apply(sizes);
BENCHMARK(loadControlFile)->Apply(sizes);

}  // namespace
}  // namespace bench
