// What the property list dialog offers for each kind of entity; FieldCatalogue.cpp has the tables.
#pragma once

#include <span>
#include <string_view>

namespace selection
{

/// A quantity of an entity and the FEMAP member that holds it.
struct Field
{
    static constexpr int noIndex = -1;

    std::string_view name;
    std::string_view member;
    int index = noIndex;  // in an array member, from 0

    constexpr bool isIndexed() const { return index != noIndex; }
};

/// What the dialog offers for one kind of entity, from the top of the list.
struct FieldList
{
    std::string_view kind;
    std::string_view subType;  // empty: every sub-type that no list above this one names
    std::string_view caption;
    std::span<const Field> fields;
    std::span<const Field> commonFields = {};  // offered below them
};

/// The list of a kind and sub-type; null for a kind that has none.
const FieldList* findFieldList(std::string_view kind, std::string_view subType);

/// The groups into which output vectors are sorted.
enum class VectorGroup
{
    Node,
    LineElement,
    Plate,
    Solid,
    FurtherElement,  // shown by no category
    AllElements,
    Patran,
    PlateCorner,
    Last,  // shown by no category
};
constexpr int vectorGroupCount = 9;

/// Vectors from firstID, in FEMAP's classic numbering by kind, up to the next range's firstID.
struct VectorRange
{
    int firstID;
    VectorGroup group;
    bool isOfElements;  // then AllElements lists the vectors too
};

/// The range that an ID lies in; null below the first one.
const VectorRange* findVectorRange(int classicID);

/// What the dialog shows for one category of output.
struct OutputCategory
{
    std::string_view category;
    std::string_view caption;
    VectorGroup group;
};

/// The category of that name, or the one that stands for every other name.
const OutputCategory& findOutputCategory(std::string_view category);

}  // namespace selection
