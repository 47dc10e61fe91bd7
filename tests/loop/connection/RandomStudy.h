#pragma once

#include "PanelStudy.h"
#include "femap/NumberText.h"
#include "selection/InputList.h"
#include "selection/InputSelection.h"
#include "selection/LoadDefinitionInputs.h"
#include "system/PendingError.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <random>

namespace loop::connection
{

/// Writes a study of random inputs of the panel, with random values.
class RandomStudy
{
public:
    RandomStudy(PanelStudy& study, unsigned seed)
        : study_(study),
          random_(seed),
          session_(study.system, toModelHost(study.errors), study.folder.path("panel.neu"))
    {
        for (const char* const word : {"Prop", "Node", "Matl", "Elem"})
            addEntities(word);
        addLoads();
        addFunctions();
        study.write("CAEInput.txt",
                    "Reference Model (FEMAP) = panel.neu\r\n"
                    "Input Deck (NastranNE) = panel.nas\r\n"
                    "NameValue = InputValues.txt\r\n" +
                        description_);
        study.write("InputValues.txt", values_);
    }

private:
    static constexpr int idsOfKind = 8;

    std::size_t below(std::size_t bound) { return random_() % bound; }

    void addEntities(const std::string& word)
    {
        const auto entity = session_.femap().entity(word);
        for (int id = 1; id <= idsOfKind; ++id) {
            if (below(2) == 0 || entity->Get(id) != femap::ReturnCode::Ok)
                continue;
            const auto* const list =
                selection::fieldListFor(word, word == "Prop" ? entity->Type() : 0);
            for (const auto& fields : {list->fields, list->commonFields})
                for (const selection::Field& field : fields)
                    addField(*entity, word, id, field);
        }
    }
    void addField(femap::Entity& entity, const std::string& word, int id,
                  const selection::Field& field)
    {
        // These are another name of orient and change the record.
        constexpr std::string_view leftOut[] = {"type", "topology", "MaterialAngle", "Alphaxz",
                                                "Kxz"};
        if (below(3) != 0 || std::ranges::find(leftOut, field.member) != std::end(leftOut))
            return;
        const femap::MemberName member{std::string(field.member), field.isIndexed()
                                                                      ? std::optional(field.index)
                                                                      : std::nullopt};
        const std::string name = selection::variableName(field.name, word, id);
        const std::string index = member.index ? std::to_string(*member.index) : "";
        femap::Value present;
        sys::PendingError notThere;  // such as a place beyond those of an element's orientation
        if (!notThere.attempt([&] { present = loop::read(entity, member); }))
            return;
        addRow(form::InputCells{name, {}, word, std::to_string(id), field.member, index},
               std::holds_alternative<std::int64_t>(present) ? wholeText() : realText());
    }
    void addLoads()
    {
        const auto definition = session_.femap().feLoadDefinition();
        for (int id = 1; id <= idsOfKind; ++id) {
            if (definition->Get(1, id) != femap::ReturnCode::Ok)
                continue;
            const form::RowKind* const kind = form::findLoadRowKind(definition->dataType());
            for (const selection::LoadComponent& component :
                 selection::loadComponents(definition->dataType(), definition->loadType())) {
                if (below(2) == 0)
                    continue;
                const std::string name =
                    selection::loadVariableName(definition->title(), id, component.word);
                definition->ResetNextLoad();
                while (definition->NextLoad() != nullptr)
                    addRow(
                        form::InputCells{name, {}, kind->tag, ' ' + std::to_string(id), "0", "0"},
                        realText());
            }
        }
    }
    void addFunctions()
    {
        const auto function = session_.femap().feFunction();
        std::string text;
        for (int id = 1; function->Get(id) == femap::ReturnCode::Ok; ++id) {
            const std::size_t points = function->GetFunctionList().x.size();
            text += "Function Definition\r\n " + std::to_string(id) + " \r\n" +
                    encoded(function->title()) + "\r\n " + std::to_string(points) + "\r\n";
            for (std::size_t i = 0; i < points; ++i)
                text += realText() + '_' + realText() + "\r\n";
        }
        study_.write("FunctionsInputvalues.txt", text);
    }
    void addRow(const form::InputCells& cells, const std::string& value)
    {
        std::string row;
        cells.joinIn(row);
        description_ +=
            encoded(generate::concatenated(generate::inputParameterLine(form::ParameterRow(row)))) +
            "\r\n";
        values_ += encoded(std::string(cells.name)) + "  " + value + "\r\n";
    }
    std::string wholeText() { return std::to_string(below(400) + 1); }
    std::string realText()
    {
        const double number = (static_cast<double>(below(2000000)) - 1000000) *
                              std::pow(10.0, static_cast<double>(below(14)) - 10);
        const std::string text =
            below(2) == 0 ? femap::numberText(number) : femap::signBlankText(number);
        const std::size_t exponent = text.find('E');
        if (exponent == std::string::npos || below(2) == 0)
            return text;
        return text.substr(0, exponent) + 'D' + text.substr(exponent + 1);
    }
    std::string encoded(const std::string& text) const
    {
        std::string bytes;
        study_.system.codePage.encode(text, bytes);
        return bytes;
    }

    PanelStudy& study_;
    std::mt19937 random_;
    Session session_;
    std::string description_;
    std::string values_;
};

}  // namespace loop::connection
