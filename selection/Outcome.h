// What became of a selection: counted while rows are added, told when it has ended. What FEMAP
// refused and what was lost is told in FEMAP's message window and the log as well, everything else
// on the status line only.
#pragma once

#include "form/Context.h"
#include "form/ParameterGrid.h"

#include <cstddef>
#include <set>
#include <string>
#include <string_view>

namespace selection
{

/// How often something was asked of FEMAP and how often it refused.
struct Asked
{
    std::size_t all = 0;
    std::size_t refused = 0;
};

/// How often something happened, and the words for the first time.
struct Cases
{
    std::size_t count = 0;
    std::string first;

    void add(std::string_view words);
};

struct Outcome
{
    std::size_t rows = 0;           // that were added
    std::size_t entities = 0;       // that the engineer picked
    std::set<int> refusedEntities;  // met once for each list and each vector, counted once
    Asked vectors;
    Asked definitions;
    Asked loadValues;

    std::size_t emptyValues = 0;    // rows without a value
    std::size_t missingValues = 0;  // results that are not there, so there is no row
    Cases sameName;                 // two quantities have one name
    Cases takenOut;                 // a row that was chosen again
    Cases onlyRow;                  // the same, but the grid keeps its last row

    std::string failure;  // the error that ended a part of the selection
    std::string noRow;    // why, when no row was added and nothing else tells

    /// Another part of the same selection.
    Outcome& operator+=(const Outcome& other);
};

/// After a scan that found rows with the name of a new row: notes and logs when the new row is
/// another quantity than one of them, and when the only row stays. newRow: its cells joined by TAB;
/// isAdded: whether it goes into the grid. False when there was another quantity.
bool noteNamesakes(form::Context& context, Outcome& outcome, const form::ParameterGrid& grid,
                   const form::ParameterGrid::NameScan& scan, const std::string& newRow,
                   bool isAdded);

/// Tells all of it, the gravest last.
void tell(form::Context& context, const Outcome& outcome);

/// "2 of 40 rows": how many were refused.
std::string share(const Asked& asked, std::string_view things);

}  // namespace selection
