#include "selection/FieldCatalogue.h"

#include "femap/Numbers.h"
#include "selection/MassQuantities.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <utility>

namespace selection
{

namespace
{

// A field that FEMAP holds in a plain member of the same name.
constexpr Field same(std::string_view name)
{
    return {name, name};
}

// clang-format off
constexpr Field nodeFields[] = {
    same("x"),
    same("y"),
    same("z"),
    same("defCSys"),
    same("outCSys"),
};

constexpr Field elementFields[] = {
    {"orientA", "orient", 0},
    {"orientB", "orient", 1},
    {"orientC", "orient", 2},
    {"node1",   "node",   0},
    {"node2",   "node",   1},
    {"node3",   "node",   2},
    {"node4",   "node",   3},
    {"node5",   "node",   4},
    same("MaterialAngle"),
    same("PlateOffset"),
    same("geomID"),
    {"orientID", "orient", 11},  // sic: its position in this list, as for the other "orient" rows
    same("topology"),
};

constexpr Field beamFields[] = {
    {"End A Area",   "pval", 0},
    {"I1",           "pval", 1},
    {"I2",           "pval", 2},
    {"I12",          "pval", 3},
    {"J",            "pval", 4},
    {"ShearAr, K1",  "pval", 5},
    {"ShearAr, K2",  "pval", 6},
    {"NS Mass/Len",  "pval", 7},
};

constexpr Field plateFields[] = {
    {"Thickness",    "pval", 0},
    {"Thick Corn2",  "pval", 1},
    {"Thick Corn3",  "pval", 2},
    {"Thick Corn4",  "pval", 3},
    {"NS Mass/Len",  "pval", 7},
    {"Top Fiber",    "pval", 8},
    {"Bot Fiber",    "pval", 9},
};

constexpr Field rodFields[] = {
    {"Area",             "pval", 0},
    {"J",                "pval", 4},
    {"Ctors",            "pval", 5},
    {"NS Mass/Len",      "pval", 7},
    {"Initial Tension",  "pval", 8},
};

constexpr Field commonPropertyFields[] = {
    same("Color"),
    same("layer"),
    same("type"),
    same("matlID"),
    same("refCS"),
};

// Named as FEMAP's members are, but for two that FEMAP does not have: their values stay empty.
constexpr Field materialField(std::string_view name)
{
    return same(name == "Alphazx" ? "Alphaxz" : name == "Kzx" ? "Kxz" : name);  // sic
}

template <std::size_t... number>
constexpr auto makeMaterialFields(std::index_sequence<number...>)
{
    return std::array{materialField(femap::materialNumbers[number].name)...};
}
constexpr auto materialFields =
    makeMaterialFields(std::make_index_sequence<std::size(femap::materialNumbers)>());

constexpr Field bodyLoadFields[] = {
    {"BodyAccelA",    "BodyAccel",    0},
    {"BodyAccelB",    "BodyAccel",    1},
    {"BodyAccelC",    "BodyAccel",    2},
    {"BodyAccelD",    "BodyAccel",    3},
    {"BodyAccelE",    "BodyAccel",    4},
    {"BodyAccelF",    "BodyAccel",    5},
    {"BodyVelocityA", "BodyVelocity", 0},
    {"BodyVelocityB", "BodyVelocity", 1},
    {"BodyVelocityC", "BodyVelocity", 2},
    {"BodyOriginA",   "BodyOrigin",   0},
    {"BodyOriginB",   "BodyOrigin",   1},
    {"BodyOriginC",   "BodyOrigin",   2},
    same("BodyDefTemp"),
    same("BodyRefTemp"),
    same("StefanBoltzmann"),
    same("RadiationAmbientElem"),
    same("TempOffset"),
    same("FreeConvExponent"),
    same("FCFluidCoductivity"),  // sic
    same("FCFluidHeatCapacity"),
    same("FCFluidViscosity"),
    same("FCFluidDensity"),
};

// The index tells which quantity is meant; FEMAP has no such members.
template <std::size_t... index>
constexpr auto makeMassFields(std::index_sequence<index...>)
{
    return std::array{Field{massQuantities[index].offered, massQuantities[index].offered,
                            static_cast<int>(index)}...};
}
constexpr auto massFields =
    makeMassFields(std::make_index_sequence<std::size(massQuantities)>());

constexpr Field constraintFields[] = {
    {"Degrees of freedom 0", "dof", 0},
    {"Degrees of freedom 1", "dof", 1},
    {"Degrees of freedom 2", "dof", 2},
    {"Degrees of freedom 3", "dof", 3},
    {"Degrees of freedom 4", "dof", 4},
    {"Degrees of freedom 5", "dof", 5},
    same("color"),
    same("layer"),
    same("expanded"),
};

constexpr FieldList lists[] = {
    {"Node",     "",      "Node Properties",       nodeFields},
    {"Elem",     "",      "Element Properties",    elementFields},
    {"Prop",     "Bar",   "Bar Properties",        beamFields,  commonPropertyFields},
    {"Prop",     "Beam",  "Beam Properties",       beamFields,  commonPropertyFields},
    {"Prop",     "Plate", "Plate Properties",      plateFields, commonPropertyFields},
    {"Prop",     "Rod",   "Rod Properties",        rodFields,   commonPropertyFields},
    {"Prop",     "",      "Undefined Property",    {},          commonPropertyFields},
    {"Matl",     "",      "Material Properties",   materialFields},
    {"LoadSet",  "",      "LoadSet Properties",    bodyLoadFields},
    {"MeshMass", "",      "Total Mesh Properties", massFields},
    {"BCNode",   "",      "Constraint Properties", constraintFields},
    {"BCGeom",   "",      "Constraint Properties", constraintFields},
};

constexpr VectorRange ranges[] = {
    {     1, VectorGroup::Node,           false},
    {  3000, VectorGroup::LineElement,    true},
    {  6000, VectorGroup::Plate,          true},
    { 60000, VectorGroup::Solid,          true},
    { 80000, VectorGroup::FurtherElement, true},
    { 90000, VectorGroup::Patran,         false},
    {100000, VectorGroup::PlateCorner,    false},
    {300000, VectorGroup::Last,           false},
};

constexpr OutputCategory categories[] = {
    {"Node",            "Node Output Properties",             VectorGroup::Node},
    {"LineElement",     "Line Element Output Properties",     VectorGroup::LineElement},
    {"PlateElement",    "Plate Element Output Properties",    VectorGroup::Plate},
    {"LaminateElement", "Laminate Element Output Properties", VectorGroup::Plate},
    {"ShearPanel",      "Shear Panel Output Properties",      VectorGroup::Plate},
    {"SolidElement",    "Solid Element Output Properties",    VectorGroup::Solid},
    {"AllElements",     "All Element Output Properties",      VectorGroup::AllElements},
    {"PATRAN",          "PATRAN Element Output Properties",   VectorGroup::Patran},
    {"Corner",          "Plate Corner Output Properties",     VectorGroup::PlateCorner},
    {"",                "Undefined Output Property",          VectorGroup::AllElements},
};
// clang-format on

static_assert(std::size(elementFields) == 13 && elementFields[11].name == "orientID");
static_assert(std::ranges::is_sorted(ranges, {}, &VectorRange::firstID));
static_assert(static_cast<int>(VectorGroup::Last) == vectorGroupCount - 1);

}  // namespace

const FieldList* findFieldList(std::string_view kind, std::string_view subType)
{
    const auto found = std::ranges::find_if(lists, [&](const FieldList& list) {
        return list.kind == kind && (list.subType.empty() || list.subType == subType);
    });
    return found == std::end(lists) ? nullptr : found;
}

const VectorRange* findVectorRange(int classicID)
{
    const auto next = std::ranges::upper_bound(ranges, classicID, {}, &VectorRange::firstID);
    return next == std::begin(ranges) ? nullptr : std::prev(next);
}

const OutputCategory& findOutputCategory(std::string_view category)
{
    const auto found = std::ranges::find(categories, category, &OutputCategory::category);
    return found == std::end(categories) ? *std::prev(std::end(categories)) : *found;
}

}  // namespace selection
