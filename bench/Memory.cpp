#include "bench/BenchForm.h"
#include "bench/NeutralModel.h"

#include <filesystem>
#include <iostream>
#include <malloc.h>
#include <string>
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

}  // namespace

// bench_memory model|rows|rowsAtPeak SIZE prints one number.
int main(int argc, char* argv[])
{
    const std::string what = argc == 3 ? argv[1] : "";
    if (what != "model" && what != "rows" && what != "rowsAtPeak") {
        std::cerr << "usage: bench_memory model|rows|rowsAtPeak SIZE\n";
        return 2;
    }
    const int size = std::stoi(argv[2]);
    std::cout << (what == "model" ? ofModel(size) : ofRows(size, what == "rowsAtPeak")) << '\n';
}
