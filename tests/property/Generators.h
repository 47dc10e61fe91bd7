#pragma once

#include "form/ParameterGrid.h"

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace property
{

/// Choices that one seed repeats on every machine.
class Random
{
public:
    explicit Random(unsigned seed) : engine_(seed) {}

    std::uint64_t bits() { return engine_(); }
    /// From 0 up to, but not including, the bound.
    int below(int bound) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(bound)); }
    int between(int least, int most) { return least + below(most - least + 1); }
    bool oneIn(int count) { return below(count) == 0; }
    template <class List>
    const auto& of(const List& list)
    {
        return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
    }

private:
    std::mt19937_64 engine_;
};

/// Text as it stands in titles and cells: letters of many languages, blanks, dashes and everything
/// that some file uses as a mark of its own.
std::string randomText(Random& random, int leastCharacters, int mostCharacters);

/// The characters of UTF-8 text, one by one.
std::vector<std::string> charactersOf(std::string_view text);

/// What a file in the code page of Western Europe keeps of a random text.
std::string afterTheCodePage(std::string text);

/// The cells of one row of a grid.
using Row = std::vector<std::string>;

/// Rows of all kinds that the input grid can hold; some have no name.
std::vector<Row> randomInputs(Random& random, int most);
/// The same for the output grid.
std::vector<Row> randomOutputs(Random& random, int most);

/// Those that have a name.
std::vector<Row> named(const std::vector<Row>& rows);

/// A row as the grid takes it, and as the grid gives it back with so many columns.
std::string joined(const Row& row);
std::string joined(const Row& row, int columns);

/// Makes these the rows of a fresh grid; without any, it keeps its blank row.
void putInto(form::ParameterGrid& grid, const std::vector<Row>& rows);

}  // namespace property
