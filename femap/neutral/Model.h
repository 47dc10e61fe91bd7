// A finite-element model in memory, as a neutral file carries it. Plain data; lengths, forces and
// masses are in the model's own units.
#pragma once

#include "femap/Constants.h"
#include "femap/Numbers.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace femap::neutral
{

struct Node
{
    int id = 0;
    int defCSys = 0;
    int outCSys = 0;
    int layer = 1;
    int color = 46;
    int type = 0;
    std::array<bool, 6> permBC{};
    double x = 0;  // global rectangular
    double y = 0;
    double z = 0;
};

struct Element
{
    int id = 0;
    int color = 124;
    int propID = 0;
    int type = 0;      // ElementType
    int topology = 0;  // 0 line2, 1 line3, 2 tri3, 3 tri6, 4 quad4, 5 quad8, 6 tet4, 7 wedge6, …
    int layer = 1;
    int orientID = 0;
    int geomID = 0;
    std::array<int, 20> node{};      // 0 in entries that are not used
    std::array<double, 3> orient{};  // planar elements: entry 0 is the material angle
    std::array<double, 6> offset{};  // end 1, end 2; planar elements: entry 0 is the plate offset
};

struct Property
{
    int id = 0;
    std::string title{};
    int color = 110;
    int matlID = 0;
    int type = 0;  // ElementType
    int layer = 1;
    int refCS = 0;
    int layupID = 0;  // of laminates; 0: none
    std::vector<double> pval{};
};

struct Ply
{
    int matlID = 0;
    double thickness = 0;
};

/// The plies of a laminate, from its bottom to its top.
struct Layup
{
    int id = 0;
    std::vector<Ply> plies{};
};

struct Material
{
    int id = 0;
    std::string title{};
    int color = 55;
    int type = 0;
    int subtype = 0;
    int layer = 1;
    std::vector<double> mval = std::vector<double>(numbersLength);  // as in a neutral file
};

struct Function
{
    int id = 0;
    std::string title{};
    int type = 0;
    std::vector<double> x{};
    std::vector<double> y{};
};

/// A load on mesh entities or on geometry.
struct Load
{
    int id = 0;        // position in its list, from 1
    int entityID = 0;  // node, element, point, curve or surface
    int type = 0;
    int subtype = 0;
    int layer = 1;
    int color = 10;
    bool expanded = false;
    int faceNumber = 0;
    int definitionID = 0;
    std::array<double, 5> load{};
    double phase = 0;  // the reader knows no place for it in the file
};

/// The temperature of a node or element.
struct TemperatureLoad
{
    int entityID = 0;
    int layer = 1;
    int color = 10;
    bool expanded = false;
    double temp = 0;
    double phase = 0;
    double gradient = 0;  // of elements; no neutral file holds one
    int definitionID = 0;
};

struct LoadDefinition
{
    int id = 0;
    std::string title{};
    int dataType = 0;  // LoadDataType
    int loadType = 0;
};

struct LoadSet
{
    int id = 0;
    std::string title{};
    std::vector<Load> meshLoads{};
    std::vector<Load> geometryLoads{};
    std::vector<TemperatureLoad> nodalTemperatures{};
    std::vector<TemperatureLoad> elementTemperatures{};
    std::vector<LoadDefinition> definitions{};  // ascending ID
};

struct OutputVector
{
    int id = 0;
    std::string title{};
    double minval = 0;
    double maxval = 0;
    EntityType location = EntityType::Node;
    std::vector<int> ids{};  // entities with a value, ascending
    std::vector<double> values{};

    /// Null where it has none.
    const double* valueAt(int entityID) const
    {
        const auto found = std::lower_bound(ids.begin(), ids.end(), entityID);
        const bool isThere = found != ids.end() && *found == entityID;
        return isThere ? &values[static_cast<std::size_t>(found - ids.begin())] : nullptr;
    }
};

/// Puts rows in ascending order of ID; of several rows with one ID the last stays.
template <class Entity>
void sortByID(std::vector<Entity>& rows)
{
    const auto ascending = [](const Entity& a, const Entity& b) { return a.id < b.id; };
    const auto notAscending = [](const Entity& a, const Entity& b) { return a.id >= b.id; };
    if (std::adjacent_find(rows.begin(), rows.end(), notAscending) == rows.end())
        return;
    std::stable_sort(rows.begin(), rows.end(), ascending);
    const auto sameID = [](const Entity& a, const Entity& b) { return a.id == b.id; };
    const auto firstToStay = std::unique(rows.rbegin(), rows.rend(), sameID).base();
    rows.erase(rows.begin(), firstToStay);
}

/// Entities of one kind in ascending order of ID.
template <class Entity>
class Table
{
public:
    /// Adds the entity or replaces the one with its ID.
    Entity& put(Entity entity)
    {
        const auto found = lowerBound(entity.id);
        if (found != rows_.end() && found->id == entity.id)
            return *found = std::move(entity);
        return *rows_.insert(found, std::move(entity));
    }

    /// Adds or replaces many entities at once, in any order.
    void merge(std::vector<Entity> rows)
    {
        if (rows.empty())
            return;
        sortByID(rows);
        if (rows_.empty()) {
            rows_ = std::move(rows);
            return;
        }
        std::vector<Entity> both;
        both.reserve(rows_.size() + rows.size());
        std::set_union(std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()),
                       std::make_move_iterator(rows_.begin()), std::make_move_iterator(rows_.end()),
                       std::back_inserter(both),
                       [](const Entity& a, const Entity& b) { return a.id < b.id; });
        rows_ = std::move(both);
    }

    /// False when there is no entity with the ID.
    bool remove(int id)
    {
        const auto found = lowerBound(id);
        if (found == rows_.end() || found->id != id)
            return false;
        rows_.erase(found);
        return true;
    }

    /// Null when there is no entity with the ID.
    const Entity* find(int id) const { return const_cast<Table*>(this)->find(id); }
    Entity* find(int id)
    {
        const auto found = lowerBound(id);
        return found != rows_.end() && found->id == id ? &*found : nullptr;
    }

    bool empty() const { return rows_.empty(); }
    std::size_t size() const { return rows_.size(); }
    auto begin() const { return rows_.begin(); }
    auto end() const { return rows_.end(); }
    auto begin() { return rows_.begin(); }
    auto end() { return rows_.end(); }

    std::vector<int> ids() const
    {
        std::vector<int> result;
        result.reserve(rows_.size());
        for (const Entity& row : rows_)
            result.push_back(row.id);
        return result;
    }

private:
    auto lowerBound(int id)
    {
        // Files list their entities in ascending order, so most come at the end.
        if (rows_.empty() || rows_.back().id < id)
            return rows_.end();
        return std::lower_bound(rows_.begin(), rows_.end(), id,
                                [](const Entity& row, int key) { return row.id < key; });
    }

    std::vector<Entity> rows_;
};

struct OutputSet
{
    int id = 0;
    std::string title{};
    double value = 0;
    Table<OutputVector> vectors{};
};

struct Model
{
    Table<Node> nodes;
    Table<Element> elements;
    Table<Property> properties;
    Table<Layup> layups;
    Table<Material> materials;
    Table<Function> functions;
    Table<LoadSet> loadSets;
    Table<OutputSet> outputSets;
    int activeLoadSet = 0;    // 0: the first one
    int activeOutputSet = 0;  // 0: the first one
};

}  // namespace femap::neutral
