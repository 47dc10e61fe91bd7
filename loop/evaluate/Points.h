// The points that a table asks for: which input each column is of, and the values of each row.
#pragma once

#include "loop/Problems.h"
#include "loop/evaluate/Bounds.h"
#include "loop/evaluate/Study.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace loop::evaluate
{

struct Point
{
    std::size_t number = 0;  // of the row, counted from 1
    Values values;           // one for each variable of the study
};

/// A name, its value where it has one, and the line of a file where both stand.
struct NamedValue
{
    std::string name;
    std::string value;
    std::size_t line = 0;

    bool operator==(const NamedValue&) const = default;
};

/// Without those around it.
std::string withoutBlanks(std::string_view text);

/// Which of the names each of the wanted ones is, blanks around them aside. Several of one name, as
/// the loads of a definition have it, are wanted in their order. One that is none of them, or that
/// is wanted more or less often than it is there, is a problem of its line of the file.
std::vector<std::size_t> placesOf(std::span<const NamedValue> wanted,
                                  std::span<const std::string> names, std::string_view file,
                                  Problems& problems);

/// The names of a study's variables.
std::vector<std::string> variableNames(const Study& study);

/// The values of a point: of the variables at those places, the others nominal. What is no number,
/// or beyond the bounds, is a problem of its line.
Values pointValues(const Study& study, const Bounds& bounds, std::span<const std::size_t> places,
                   std::span<const NamedValue> given, std::string_view file, Problems& problems);

/// A variable at none of the places keeps its value, which must be a number.
void demandNominal(const Study& study, std::span<const std::size_t> places, Problems& problems);

/// The points of a table whose head has names of inputs.
std::vector<Point> readPoints(std::string_view text, std::string_view file, const Study& study,
                              const Bounds& bounds, Problems& problems);

}  // namespace loop::evaluate
