#pragma once

#include "fake/FormFixture.h"
#include "fake/NeutralText.h"
#include "fake/TemporaryFolder.h"
#include "femap/NumberText.h"
#include "loop/Problems.h"
#include "system/Platform.h"

#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace loop
{

/// A vector of a file of results, and its values by entity.
struct ResultVector
{
    int id;
    std::string title;
    int location;  // 7: nodes, 8: elements
    std::vector<std::pair<int, double>> values;
};
using ResultSet = std::vector<ResultVector>;

/// The text of a neutral file of results; the sets count from 1.
inline std::string textOfResults(const std::vector<ResultSet>& sets)
{
    std::string records;
    std::string vectors;
    for (std::size_t i = 0; i < sets.size(); ++i) {
        const int set = static_cast<int>(i) + 1;
        records += std::to_string(set) + ",\nRun\n0,1,\n0.,\n1,\nNote\n";
        for (const ResultVector& vector : sets[i]) {
            vectors +=
                neutral::vectorHead(set, vector.id, vector.title, "0.,0.,0.,", vector.location);
            for (const auto& [id, value] : vector.values)
                vectors += std::to_string(id) + "," + femap::numberText(value) + ",\n";
            vectors += "-1,0.,\n";
        }
    }
    return neutral::header() + neutral::block(450, records) + neutral::block(451, vectors);
}

inline void writeText(const std::string& path, const std::string& text)
{
    std::ofstream(sys::toPath(path), std::ios::binary) << text;
}

/// Nodes 12 and 13, a plate of four nodes, and output sets without vectors, the last one active.
class OutputFixture : public fake::FormFixture
{
public:
    OutputFixture()
    {
        femap::neutral::Model& it = model();
        for (int id = 10; id < 14; ++id)
            it.nodes.put({.id = id, .x = id < 12 ? 0.0 : 2.0, .y = id % 2 == 0 ? 0.0 : 1.0});
        it.elements.put({.id = 40,
                         .propID = 7,
                         .type = femap::elementPlate,
                         .topology = 4,
                         .node = {10, 12, 13, 11}});
        it.properties.put({.id = 7, .matlID = 3, .type = femap::elementPlate, .pval = {0.5}});
        femap::neutral::Material steel{.id = 3};
        steel.mval[49] = 8;
        it.materials.put(steel);
    }

    void addSets(const std::vector<int>& ids)
    {
        for (const int id : ids)
            model().outputSets.put({.id = id});
        femap.activate(femap::EntityType::OutputSet, ids.back());
    }
    std::vector<int> sets() { return femap.idsOf(femap::EntityType::OutputSet); }
    int activeSet() { return femap.activeID(femap::EntityType::OutputSet); }

    /// Such a file of results in the folder; returns its path.
    std::string results(const std::vector<ResultSet>& of)
    {
        writeText(folder.path("beam.results.neu"), textOfResults(of));
        return folder.path("beam.results.neu");
    }

    fake::TemporaryFolder folder;
    Problems problems;
};

}  // namespace loop
