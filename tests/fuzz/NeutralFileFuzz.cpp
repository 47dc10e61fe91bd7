// A neutral file of any bytes is read, or refused with its name, the line and the cure.

#include "femap/neutral/NeutralFile.h"
#include "fuzz/Fuzz.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <array>

using femap::neutral::Model;
using fuzz::require;

namespace
{

constexpr std::string_view fileName = "wing.neu";

std::array<std::size_t, 8> sizesOf(const Model& model)
{
    return {model.nodes.size(),      model.elements.size(),  model.properties.size(),
            model.materials.size(),  model.functions.size(), model.loadSets.size(),
            model.outputSets.size(), model.layups.size()};
}

template <class Entity>
bool ascends(const femap::neutral::Table<Entity>& table)
{
    const auto notAscending = [](const Entity& a, const Entity& b) { return a.id >= b.id; };
    return std::adjacent_find(table.begin(), table.end(), notAscending) == table.end();
}

void checkModel(const Model& model)
{
    require(ascends(model.nodes) && ascends(model.elements) && ascends(model.properties) &&
                ascends(model.materials) && ascends(model.functions) && ascends(model.loadSets) &&
                ascends(model.outputSets) && ascends(model.layups),
            "every ID stands once and in its place");
    for (const auto& function : model.functions)
        require(function.x.size() == function.y.size(), "a function has a Y for each X");
    for (const auto& set : model.outputSets)
        for (const auto& vector : set.vectors) {
            require(vector.ids.size() == vector.values.size(), "a vector has a value for each ID");
            require(std::is_sorted(vector.ids.begin(), vector.ids.end()), "a vector's IDs ascend");
        }
}

void checkMessage(std::string_view message, std::string_view content)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    require(message.starts_with(fileName), "the message names the file");
    message.remove_prefix(fileName.size());
    require(message.starts_with(':'), "a line follows the file");
    message.remove_prefix(1);
    const auto end =
        static_cast<std::size_t>(std::ranges::find_if_not(message, isDigit) - message.begin());
    require(end > 0 && end < 10 && message.substr(end).starts_with(": "),
            "the message names the line");
    const long line = std::stol(std::string(message.substr(0, end)));
    require(line >= 1 && line <= std::ranges::count(content, '\n') + 1, "the file has that line");
    require(message.find("Export the model again") != std::string_view::npos,
            "the message says what to do");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string content = fuzz::textOf(data, size);
    const auto& codePage = sys::windows1252();
    Model model;
    try {
        readNeutralFile(content, std::string(fileName), codePage, model);
    }
    catch (const sys::RuntimeError& error) {
        checkMessage(error.description(), content);
        require(sizesOf(model) == sizesOf(Model()), "a file that is refused leaves no trace");
        return 0;
    }
    checkModel(model);

    const auto sizes = sizesOf(model);
    readNeutralFile(content, std::string(fileName), codePage, model);
    checkModel(model);
    require(sizesOf(model) == sizes, "the same file once more adds nothing");
    return 0;
}
