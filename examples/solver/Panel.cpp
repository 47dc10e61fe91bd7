#include "examples/solver/Panel.h"

#include "examples/solver/ModelNumbers.h"
#include "examples/solver/Plate.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <span>
#include <utility>

namespace examples::solver
{

using femap::EntityType;
using femap::neutral::Element;
using femap::neutral::Model;
using femap::neutral::Node;

namespace
{

// What the panel is made of, beside the model.
constexpr double stringerTop = 12;
constexpr double stringerBottom = -33;
constexpr double frameFibre = 10;
constexpr double gussetReach = 250;
constexpr double gussetThickness = 4;
constexpr double proof = 1.5;

constexpr EntityType atNodes = EntityType::Node;
constexpr EntityType atElements = EntityType::Element;

// clang-format off
constexpr VectorKind kinds[] = {
    {1,       "Total Translation",          1, atNodes, {2, 3, 4}},
    {2,       "T1 Translation",             1, atNodes},
    {3,       "T2 Translation",             1, atNodes},
    {4,       "T3 Translation",             1, atNodes},
    {5,       "Total Rotation",             1, atNodes, {6, 7, 8}},
    {6,       "R1 Rotation",                1, atNodes},
    {7,       "R2 Rotation",                1, atNodes},
    {8,       "R3 Rotation",                1, atNodes},
    {54,      "T3 Constraint Force",        3, atNodes},
    {3036,    "Rod Axial Force",            3, atElements},
    {3106,    "Rod Axial Stress",           4, atElements},
    {3109,    "Bar EndA Max Stress",        4, atElements},
    {3110,    "Bar EndA Min Stress",        4, atElements},
    {3164,    "Beam EndA Max Comb Stress",  4, atElements},
    {3165,    "Beam EndA Min Comb Stress",  4, atElements},
    {6060,    "Laminate Max Failure Index", 0, atElements},
    {7020,    "Plate Top X Normal Stress",  4, atElements},
    {7021,    "Plate Top Y Normal Stress",  4, atElements},
    {7023,    "Plate Top XY Shear Stress",  4, atElements},
    {7033,    "Plate Top VonMises Stress",  4, atElements},
    {7211,    "Plate X Bending Moment",     3, atElements},
    {7212,    "Plate Y Bending Moment",     3, atElements},
    {7433,    "Plate Bot VonMises Stress",  4, atElements},
    {60012,   "Solid Z Normal Stress",      4, atElements},
    {60031,   "Solid Von Mises Stress",     4, atElements},
    {85002,   "Elem C1 T3 GPForce",         3, atElements},
    {107033,  "PltC1 Top VonMises Stress",  4, atElements},
    {1000020, "Lam Ply1 X Normal Stress",   4, atElements},
};
// clang-format on

constexpr int lastOfProof = 4;  // vectors

using Vectors = std::map<int, std::map<int, double>>;  // vector ID, entity ID, value

double lengthOf(std::span<const double> values)
{
    double sum = 0;
    for (const double value : values)
        sum += value * value;
    return std::sqrt(sum);
}

void addNodes(const Model& model, const Plate& plate, Vectors& vectors)
{
    const auto add = [&](int total, int id, const std::array<double, 3>& values) {
        vectors[total][id] = lengthOf(values);
        for (std::size_t i = 0; i < values.size(); ++i)
            vectors[total + 1 + static_cast<int>(i)][id] = values.at(i);
    };
    for (const Node& node : model.nodes) {
        const Place at = {node.x, node.y, node.z};
        const auto [slopeX, slopeY] = plate.slopes(at);
        add(1, node.id, plate.translation(at));
        add(5, node.id, {slopeY, -slopeX, 0});
        if (plate.isOnEdge(at))
            vectors[54][node.id] = plate.reaction(at);
    }
}

// Results of the elements of one kind.
class Elements
{
public:
    Elements(const Model& model, const Plate& plate, Vectors& vectors)
        : model_(model),
          plate_(plate),
          vectors_(vectors),
          lugForce_(ofLoad(model, lugForceDefinition, 2)),
          lugMoment_(ofLoad(model, lugMomentDefinition, 1))
    {
        for (const Element& element : model.elements)
            if (element.type == femap::elementSolid)
                for (const int id : element.node)
                    if (id != 0)
                        noteBlock(placeOf(id));
    }

    void add(const Element& element)
    {
        element_ = &element;
        switch (element.type) {
        case femap::elementPlate:
            return addPlate();
        case femap::elementPlateParabolic:
            return addGusset();
        case femap::elementLaminate:
            return addLaminate();
        case femap::elementSolid:
            return addSolid();
        case femap::elementBeam:
            return addBeam(plate_.bending(first()).along, {3164, 3165},
                           {stringerTop, stringerBottom});
        case femap::elementBar:
            return addBeam(plate_.bending(first()).across, {3109, 3110}, {frameFibre, -frameFibre});
        case femap::elementRod:
            return addRod();
        default:
            return;
        }
    }

private:
    Place placeOf(int id) const
    {
        const Node& node = entityOf(model_.nodes, id, "node");
        return {node.x, node.y, node.z};
    }
    Place first() const { return placeOf(element_->node[0]); }
    Place middle() const
    {
        Place sum{};
        double count = 0;
        for (const int id : element_->node) {
            if (id == 0)
                continue;
            const Place at = placeOf(id);
            sum = {sum.x + at.x, sum.y + at.y, sum.z + at.z};
            ++count;
        }
        return {sum.x / count, sum.y / count, sum.z / count};
    }
    void noteBlock(const Place& at)
    {
        blockLeft_ = std::min(blockLeft_, at.x);
        blockRight_ = std::max(blockRight_, at.x);
        blockBottom_ = std::min(blockBottom_, at.z);
    }
    void set(int vector, double value) { vectors_[vector][element_->id] = value; }

    // Stresses and moments; the last two are those of the first corner.
    void addPlate()
    {
        const Place at = middle();
        const double whole = ofProperty(model_, element_->propID, thickness);
        const Stress top = plate_.skinStress(at, whole / 2);
        const Bending bend = plate_.bending(at);
        const double rigidity = plate_.rigidity(whole);
        set(7020, top.x);
        set(7021, top.y);
        set(7023, top.shear);
        set(7033, top.vonMises());
        set(7433, plate_.skinStress(at, -whole / 2).vonMises());
        set(7211, rigidity * (bend.along + plate_.poisson() * bend.across));
        set(7212, rigidity * (bend.across + plate_.poisson() * bend.along));
        const double half = plate_.step() / 2;
        const Place corner = {at.x - half, at.y - half, at.z};
        set(85002, plate_.cornerForce(corner));
        set(107033, plate_.skinStress(corner, whole / 2).vonMises());
    }

    // A cantilever of the block's height that takes a quarter of the lug's force at its tip.
    void addGusset()
    {
        const double fromTip = gussetReach - std::abs(middle().y - plate_.width / 2);
        const double stress =
            std::abs(lugForce_) / 4 * fromTip / (gussetThickness * blockBottom_ * blockBottom_ / 6);
        set(7033, stress);
        set(7433, stress);
    }

    void addLaminate()
    {
        const auto& property = entityOf(model_.properties, element_->propID, "property");
        const auto& layup = entityOf(model_.layups, property.layupID, "layup");
        const double ply = layup.plies.at(0).thickness;
        const double skin = ofProperty(model_, skinProperty, thickness);
        const double outer = (skin + ply) / 2 + ply * (static_cast<double>(layup.plies.size()) - 1);
        const Bending bend = plate_.bending(middle());
        const double stress = ofMaterial(model_, glass, youngsModulus) * outer *
                              (bend.along + ofMaterial(model_, glass, poissonsRatio) * bend.across);
        set(6060, stress / ofMaterial(model_, glass, tensionLimit));
        set(1000020, stress);
    }

    // Force over area and moment over section modulus of the block.
    void addSolid()
    {
        const double side = blockRight_ - blockLeft_;
        const double stress = lugForce_ / (side * side) + lugMoment_ *
                                                              (middle().x - plate_.length / 2) /
                                                              (std::pow(side, 4) / 12);
        set(60012, stress);
        set(60031, std::abs(stress));
    }

    void addBeam(double curvature, std::array<int, 2> vectors, std::array<double, 2> fibres)
    {
        for (std::size_t i = 0; i < vectors.size(); ++i)
            set(vectors.at(i), fibres.at(i) * plate_.youngsModulusOfSkin() * curvature);
    }

    // The lug hangs on the four rods, which carry nothing but tension.
    void addRod()
    {
        const Place one = first();
        const Place other = placeOf(element_->node[1]);
        const double length =
            lengthOf(std::array{other.x - one.x, other.y - one.y, other.z - one.z});
        const double force = -lugForce_ / 4 * length / (other.z - one.z);
        set(3036, force);
        set(3106, force / ofProperty(model_, rodProperty, area));
    }

    const Model& model_;
    const Plate& plate_;
    Vectors& vectors_;
    double lugForce_;
    double lugMoment_;
    double blockLeft_ = HUGE_VAL;
    double blockRight_ = -HUGE_VAL;
    double blockBottom_ = 0;
    const Element* element_ = nullptr;
};

ResultSet madeOf(std::string title, const Vectors& vectors, double factor, int lastVector)
{
    ResultSet set{std::move(title), {}};
    for (const VectorKind& kind : kinds) {
        const auto found = vectors.find(kind.id);
        if (kind.id > lastVector || found == vectors.end())
            continue;
        ResultVector& vector = set.vectors.emplace_back(ResultVector{&kind, found->second});
        for (auto& [id, value] : vector.values)
            value *= factor;
    }
    return set;
}

}  // namespace

std::vector<ResultSet> solve(const Model& model)
{
    const Plate plate(model);
    Vectors vectors;
    addNodes(model, plate, vectors);
    Elements elements(model, plate, vectors);
    for (const Element& element : model.elements)
        elements.add(element);
    return {madeOf("Betriebslast", vectors, 1, INT_MAX),
            madeOf("Prüflast", vectors, proof, lastOfProof)};
}

}  // namespace examples::solver
