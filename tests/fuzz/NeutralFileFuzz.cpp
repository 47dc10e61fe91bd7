// A neutral file of any bytes is read, or refused with its name, the line and the cure. Values that
// are put into its text are read back from it.

#include "femap/embedded/NeutralPatch.h"
#include "femap/neutral/NeutralFile.h"
#include "fuzz/Fuzz.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <array>
#include <optional>

using femap::ModelValues;
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

constexpr double newNumber = 0.125;

// Gives every entity the same number at one of its places.
ModelValues changeSome(Model& model)
{
    ModelValues values;
    const auto change = [&](const char* word, int id, const femap::MemberName& member,
                            double& number) {
        number = newNumber;
        values.entities.push_back({word, id, member, newNumber});
    };
    for (auto& node : model.nodes)
        change("Node", node.id, {"y"}, node.y);
    for (auto& element : model.elements)
        change("Elem", element.id, {"offset", 3}, element.offset[3]);
    for (auto& property : model.properties)
        if (!property.pval.empty())
            change("Prop", property.id, {"pval", 0}, property.pval[0]);
    for (auto& material : model.materials)
        change("Matl", material.id, {"Ey"}, material.mval[1]);
    for (auto& function : model.functions) {
        std::ranges::fill(function.y, newNumber);
        values.functions.push_back({function.id, {function.x, function.y}});
    }
    return values;
}

std::optional<std::string> patched(const std::string& content, const ModelValues& values)
{
    std::string text;
    const auto problems = femap::embedded::writePatched(
        content, std::string(fileName), values, [&](std::string_view piece) { text += piece; });
    for (const auto& problem : problems)
        require(problem.line <= static_cast<std::size_t>(std::ranges::count(content, '\n')) + 1,
                "the file has the line of the problem");
    require(problems.empty() || text.empty(), "with a problem nothing is written");
    return problems.empty() ? std::optional(text) : std::nullopt;
}

template <class Entity, class NumberOf>
bool isSame(const femap::neutral::Table<Entity>& one, const femap::neutral::Table<Entity>& other,
            const NumberOf& numberOf)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [&](const Entity& a, const Entity& b) {
                          return a.id == b.id && numberOf(a) == numberOf(b);
                      });
}

void checkPatch(const std::string& content, Model model)
{
    require(patched(content, {}) == content, "without values the text stays as it is");
    const auto text = patched(content, changeSome(model));
    if (!text)
        return;
    Model read;
    readNeutralFile(*text, std::string(fileName), sys::windows1252(), read);
    require(isSame(read.nodes, model.nodes, [](const auto& node) { return node.y; }) &&
                isSame(read.elements, model.elements,
                       [](const auto& element) { return element.offset; }) &&
                isSame(read.properties, model.properties,
                       [](const auto& property) { return property.pval; }) &&
                isSame(read.materials, model.materials,
                       [](const auto& material) { return material.mval; }) &&
                isSame(read.functions, model.functions,
                       [](const auto& function) { return function.y; }),
            "what is put into the text is read from it");
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
    checkPatch(content, model);

    const auto sizes = sizesOf(model);
    readNeutralFile(content, std::string(fileName), codePage, model);
    checkModel(model);
    require(sizesOf(model) == sizes, "the same file once more adds nothing");
    return 0;
}
