// The names of output rows: made of a vector's title and of what is read from it, or of a quantity
// of the mass.
#pragma once

#include "femap/Objects.h"
#include "selection/MassQuantities.h"

#include <string>
#include <string_view>

namespace selection
{

/// An extreme of a vector and the rows that show it.
struct Extreme
{
    std::string_view suffix;  // in the name, behind the title
    std::string_view tag;     // the kind of the row
    double (femap::OutputVector::*read)();
    std::string_view listName;  // in the log line of a removed row
};

// clang-format off
inline constexpr Extreme extremes[] = {
    {"MaxAt", "maxval", &femap::OutputVector::maxval, "Output List"},
    {"MinAt", "minval", &femap::OutputVector::minval, "Input List"},  // sic
};
// clang-format on

/// Null when no rows of that kind show an extreme.
const Extreme* findExtreme(std::string_view tag);

/// What the names of a vector's values begin with; the entity's ID follows. entityWord: "Node" or
/// "Elem".
std::string startOfValueNames(std::string_view title, std::string_view vectorID,
                              std::string_view entityWord);
/// The name of an extreme of a vector.
std::string nameOfExtreme(std::string_view title, std::string_view vectorID, const Extreme& extreme,
                          std::string_view entityWord);
/// The name of a component of the quantity, counted from 0.
std::string nameOfMass(const MassQuantity& quantity, std::size_t component);

/// The word of the entities that an output's name ends with: "Node" or "Elem" before the ID; empty
/// for a quantity of the mass.
std::string_view entityWordIn(std::string_view outputName);

}  // namespace selection
