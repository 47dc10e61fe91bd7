#include "selection/OutputNames.h"

#include "femap/NumberText.h"
#include "selection/ParameterRows.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace selection
{

namespace
{

// How much of a vector's title goes into a name, in characters.
constexpr std::size_t titleOfValue = 10;
constexpr std::size_t titleOfExtreme = 14;

constexpr std::string_view at = "At";

std::string shortened(std::string_view title, std::size_t characters)
{
    const std::string words = without(title, " -/");
    return std::string(femap::firstCharacters(words, characters));
}

}  // namespace

const Extreme* findExtreme(std::string_view tag)
{
    const auto* const found = std::ranges::find(extremes, tag, &Extreme::tag);
    return found == std::end(extremes) ? nullptr : found;
}

std::string startOfValueNames(std::string_view title, std::string_view vectorID,
                              std::string_view entityWord)
{
    return shortened(title, titleOfValue).append(vectorID).append(at).append(entityWord);
}

std::string nameOfExtreme(std::string_view title, std::string_view vectorID, const Extreme& extreme,
                          std::string_view entityWord)
{
    return shortened(title, titleOfExtreme)
        .append(extreme.suffix)
        .append(entityWord)
        .append(vectorID);
}

std::string nameOfMass(const MassQuantity& quantity, std::size_t component)
{
    return std::string(quantity.name).append(quantity.suffixes[component]);
}

std::string_view entityWordIn(std::string_view outputName)
{
    constexpr std::string_view words[] = {"Node", "Elem"};
    const std::size_t end = outputName.find_last_not_of("0123456789") + 1;
    if (end == outputName.size())
        return {};
    const std::string_view start = outputName.substr(0, end);
    for (const std::string_view word : words)
        if (start.ends_with(word) && start.substr(0, end - word.size()).ends_with(at))
            return word;
    return {};
}

}  // namespace selection
