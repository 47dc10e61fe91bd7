// What the model host writes for a solver: all numbers of the model, by kinds of entities.
#pragma once

#include "femap/neutral/Model.h"

#include <functional>
#include <string>

namespace femap::embedded
{

/// Hands out the deck in pieces of some lines. It is no Nastran deck: a line for each entity, its
/// members separated by commas, below a line that names them. A deck differs when a number of the
/// model does, results apart.
void writeDeck(const neutral::Model& model, const std::function<void(const std::string&)>& write);

}  // namespace femap::embedded
