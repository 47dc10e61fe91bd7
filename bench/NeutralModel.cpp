#include "bench/NeutralModel.h"

#include "bench/BenchForm.h"

#include <filesystem>
#include <fstream>
#include <iomanip>

namespace bench
{

namespace
{

constexpr int vectors = 10;
constexpr int lastLine = 11;  // of nodes; plates lie between neighbouring lines

void writeNodes(std::ostream& file, int size)
{
    file << "   -1\n   403\n";
    for (int id = 1; id <= size; ++id)
        file << id << ",0,0,1,46,0,0,0,0,0,0," << coordinateOf(id, 0) << ',' << coordinateOf(id, 1)
             << ',' << coordinateOf(id, 2) << ",0,\n";
    file << "   -1\n";
}

void writeElements(std::ostream& file, int size)
{
    file << "   -1\n   404\n";
    for (int id = 1; id <= size; ++id) {
        const auto node = [&](int step) { return (id + step - 1) % size + 1; };
        file << id << ",124,1,17,4,1,0,0,0,0,0,0,0,0,\n"
             << node(0) << ',' << node(1) << ',' << node(lastLine + 1) << ',' << node(lastLine)
             << ",0,0,0,0,0,0,\n0,0,0,0,0,0,0,0,0,0,\n0.,0.,0.,0,0,0,0,0,0,\n0.,0.,0.,\n"
             << "0.,0.,0.,\n0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,\n";
    }
    file << "   -1\n";
}

void writeResults(std::ostream& file, int size)
{
    file << "   -1\n   450\n1,\nResults\n0,1,\n0.,\n1,\nnotes\n   -1\n   -1\n   451\n";
    for (int vector = 1; vector <= vectors; ++vector) {
        file << "1," << vector << ",1,\nT" << vector << " Translation\n0.,100.,0.,\n"
             << "0,0,0,0,0,0,0,0,0,0,\n0,0,0,0,0,0,0,0,0,0,\n0,0,1,7,\n0,0,1,\n";
        for (int id = 1; id <= size; ++id)
            file << id << ',' << coordinateOf(id, vector) / 1024 << ",\n";
        file << "-1,0.,\n";
    }
    file << "   -1\n";
}

}  // namespace

std::string neutralModel(int size)
{
    std::string path = "model" + std::to_string(size) + ".neu";
    if (std::filesystem::exists(path))
        return path;
    {
        std::ofstream file(path + "~", std::ios::binary);
        file << std::setprecision(9) << "   -1\n   100\n<NULL>\n8.2,\n   -1\n";
        writeNodes(file, size);
        writeElements(file, size);
        writeResults(file, size);
    }
    std::filesystem::rename(path + "~", path);
    return path;
}

}  // namespace bench
