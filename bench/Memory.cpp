#include "bench/BenchForm.h"
#include "bench/NeutralModel.h"
#include "generate/GenerationDriver.h"
#include "preview/Preview.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <malloc.h>
#include <string>
#include <string_view>
#include <sys/resource.h>

namespace
{

// In bytes; the largest amount of memory that the process had so far.
double peak()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

// In bytes; what the process has taken from the heap, with what the heap itself needs for it.
double taken()
{
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

// Bytes of the peak for each byte of the file.
double ofModel(int size)
{
    const std::string path = bench::neutralModel(size);
    bench::BenchForm world;
    world.femap.openNeutralFile(path);
    return peak() / static_cast<double>(std::filesystem::file_size(path));
}

double textOf(const form::ParameterGrid& grid)
{
    double bytes = 0;
    for (int row = 1; row < grid.Rows(); ++row)
        bytes += static_cast<double>(grid.rowText(row).size());
    return bytes;
}

// Bytes for each row beyond its text, while the rows are selected (atPeak) or afterwards.
double ofRows(int rows, bool atPeak)
{
    bench::BenchForm world;
    world.addNodes(rows / 3 + 1);
    const double before = atPeak ? peak() : taken();
    world.selectInputs(rows / 3 + 1);
    const double after = atPeak ? peak() : taken();
    const form::ParameterGrid& grid = world.form.InputsList;
    return (after - before - textOf(grid)) / (grid.Rows() - 1);
}

// From now on the peak is that of what follows. What was freed goes back to the system, so that
// nothing of it serves anew unseen.
void forgetPeak()
{
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5";
}

// MB beyond the rows while a preview of "Apply" is made, with the files of the last one there.
double ofPreview(int rows)
{
    bench::BenchForm world;
    bench::fillGrids(world.form, rows);
    generate::GenerateButton_Click(world.context);
    forgetPeak();
    const double before = peak();
    preview::previewOfApply(world.context);
    return (peak() - before) / 1e6;
}

struct Figure
{
    std::string_view name;
    double (*of)(int size);
};

constexpr Figure figures[] = {
    {"model", ofModel},
    {"rows", [](int rows) { return ofRows(rows, false); }},
    {"rowsAtPeak", [](int rows) { return ofRows(rows, true); }},
    {"preview", ofPreview},
};

}  // namespace

// bench_memory model|rows|rowsAtPeak|preview SIZE prints one number.
int main(int argc, char* argv[])
{
    const std::string_view what = argc == 3 ? argv[1] : "";
    const auto* const figure = std::ranges::find(figures, what, &Figure::name);
    if (figure == std::end(figures)) {
        std::cerr << "usage: bench_memory model|rows|rowsAtPeak|preview SIZE\n";
        return 2;
    }
    std::cout << figure->of(std::stoi(argv[2])) << '\n';
}
