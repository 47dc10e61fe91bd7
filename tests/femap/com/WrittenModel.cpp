#include "femap/com/WrittenModel.h"

#include "standin/StartedStandin.h"
#include "windows/Text.h"

#include <filesystem>
#include <fstream>

namespace comtest
{

namespace
{

constexpr int nodesPerPlate = 4;
constexpr int numbersOfProperty = 75;
constexpr int numbersOfMaterial = 200;

void startBlock(std::ostream& file, int number)
{
    file << "   -1\n   " << number << '\n';
}

void endBlock(std::ostream& file)
{
    file << "   -1\n";
}

// A count and as many numbers that tell every place of every entity from the others.
void writeNumbers(std::ostream& file, int count, int id)
{
    file << count << ',';
    for (int i = 0; i < count; ++i)
        file << (i % 5 == 0 ? "\n" : "") << id + i / 256.0 << ',';
    file << '\n';
}

void writeNodes(std::ostream& file, const ModelSize& size)
{
    startBlock(file, 403);
    for (int i = 1; i <= size.nodes; ++i)
        file << 2 * i << ',' << i % 3 << ',' << i % 2 << ",1,46,0,0,0,0,0,0," << i / 8.0 << ','
             << -i / 4.0 << ',' << i % 10 << ".,0,\n";
    endBlock(file);
}

void writeElements(std::ostream& file, const ModelSize& size)
{
    startBlock(file, 404);
    for (int i = 1; i <= size.elements; ++i) {
        const auto node = [&](int corner) { return 2 * ((i + corner) % size.nodes + 1); };
        const bool isPlate = i % 5 != 0;
        file << 2 * i << ",124," << i % 4 + 1 << (isPlate ? ",17,4" : ",1,0")
             << ",1,0,0,0,0,0,0,0,0,\n";
        for (int corner = 0; corner < 10; ++corner)
            file << (corner < (isPlate ? nodesPerPlate : 2) ? node(corner) : 0) << ',';
        file << "\n0,0,0,0,0,0,0,0,0,0,\n"
             << i / 16.0 << ",0.5,-1.,0,0,0,0,0,0,\n0.25,0.,0.,\n0.,0.,0.,\n"
             << "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,\n";
    }
    endBlock(file);
}

void writeProperties(std::ostream& file, const ModelSize& size)
{
    startBlock(file, 402);
    for (int id = 1; id <= size.properties; ++id) {
        file << id << ",110,1," << (id % 2 == 0 ? 17 : 5) << ",1,0,\nProperty " << id
             << "\n0,0,0,0,\n0,\n";
        writeNumbers(file, numbersOfProperty, id);
    }
    endBlock(file);
}

void writeMaterials(std::ostream& file, const ModelSize& size)
{
    startBlock(file, 601);
    for (int id = 1; id <= size.materials; ++id) {
        file << id << ",-601,55,0,0,1,0,\nMaterial " << id << "\n0,\n0,\n";
        writeNumbers(file, numbersOfMaterial, id);
    }
    endBlock(file);
}

struct Vectors
{
    int first;
    int count;
    int location;
    int entities;
};

void writeVectors(std::ostream& file, const Vectors& vectors)
{
    for (int i = 0; i < vectors.count; ++i) {
        const int id = vectors.first + i;
        file << "1," << id << ",1,\nVector " << id << " of results\n-3.,100.,100.,\n"
             << "0,0,0,0,0,0,0,0,0,0,\n0,0,0,0,0,0,0,0,0,0,\n0,0,1," << vectors.location
             << ",\n0,0,1,\n";
        for (int entity = 1; entity <= vectors.entities; ++entity)
            if (entity % 7 != 0)
                file << 2 * entity << ',' << (entity % 10 == 0 ? 0 : id + entity / 32.0) << ",\n";
        file << "-1,0.,\n";
    }
}

}  // namespace

std::string writeModel(const ModelSize& size, const std::string& name)
{
    std::string path = temporaryFile(name);
    std::ofstream file(std::filesystem::path(windows::toWide(path)), std::ios::binary);
    file.precision(12);
    file << "   -1\n   100\n<NULL>\n8.2,\n   -1\n";
    writeNodes(file, size);
    writeElements(file, size);
    writeProperties(file, size);
    writeMaterials(file, size);
    startBlock(file, 450);
    file << "1,\nResults\n0,1,\n0.,\n1,\nnotes\n";
    endBlock(file);
    startBlock(file, 451);
    writeVectors(file, {1, size.nodeVectors, 7, size.nodes});
    writeVectors(file, {6033, size.plateVectors, 8, size.elements});
    endBlock(file);
    return path;
}

}  // namespace comtest
