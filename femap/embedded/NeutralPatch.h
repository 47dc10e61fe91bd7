// Puts values into the text of a model's neutral file: what stands elsewhere in it, also what the
// model host does not read, stays byte for byte.
#pragma once

#include "femap/ModelValues.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace femap::embedded
{

/// Why a value cannot be put into the file.
struct PatchProblem
{
    std::size_t line = 0;  // of the file, from 1; 0: none, for the file lacks it
    std::string what;

    bool operator==(const PatchProblem&) const = default;
};

/// Writes the file with these values in it, as ModelChanges::put would put them into its model. A
/// number that is the value already keeps its text. Only numbers that the file holds are replaced,
/// and of these none on which the kind of an entity or the shape of its record depends. Where a
/// value does not fit nothing is written, and all that do not are returned, by line. Raises
/// RuntimeError as readNeutralFile does for what is read of the file.
[[nodiscard]] std::vector<PatchProblem> writePatched(
    std::string_view content, const std::string& fileName, const ModelValues& values,
    const std::function<void(std::string_view)>& write);

}  // namespace femap::embedded
