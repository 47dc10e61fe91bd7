#pragma once

#include "fake/FormFixture.h"
#include "fake/QueuedPropertyList.h"
#include "selection/InputSelection.h"
#include "selection/OutputSelection.h"

#include <string>
#include <utility>
#include <vector>

namespace selection
{

/// The texts in a dialog's list.
inline std::vector<std::string> itemsOf(const frmPropertyList& dialog)
{
    std::vector<std::string> result;
    for (const auto& item : dialog.lstProperties.items)
        result.push_back(item.text);
    return result;
}

/// The form with FEMAP behind it and the property list dialog.
class SelectionFixture : public fake::FormFixture
{
public:
    fake::QueuedPropertyList list;
    frmPropertyList dialog{femap, list};

    /// The answer to FEMAP's next selection dialog.
    void pick(std::vector<int> ids)
    {
        dialogs.answers.push_back({femap::ReturnCode::Ok, std::move(ids)});
    }
    /// "Select..." under Input, with all answers given before.
    void selectInput(const std::string& kind)
    {
        form.InputSelection.Text = kind;
        InputsButton_Click(context, dialog);
    }
    void selectInput(const std::string& kind, std::vector<int> ids, std::vector<std::string> fields)
    {
        pick(std::move(ids));
        list.choose(std::move(fields));
        selectInput(kind);
    }
    /// The same under Output.
    void selectOutput(const std::string& kind)
    {
        form.OutputSelection.Text = kind;
        OutputsButton_Click(context, dialog);
    }

    /// The log lines that an action writes.
    template <class Action>
    std::vector<std::string> logOf(Action&& action)
    {
        const std::size_t before = log().size();
        action();
        std::vector<std::string> all = log();
        return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end()};
    }

    femap::embedded::OutputVector& addVector(int id, const std::string& title,
                                             std::vector<int> ids = {},
                                             std::vector<double> values = {})
    {
        femap::embedded::OutputSet* set = model().outputSets.find(1);
        if (set == nullptr) {
            femap::embedded::OutputSet fresh;
            fresh.id = 1;
            set = &model().outputSets.put(fresh);
        }
        femap::embedded::OutputVector vector;
        vector.id = id;
        vector.title = title;
        vector.ids = std::move(ids);
        vector.values = std::move(values);
        vector.minval = -2.5;
        vector.maxval = 7.5;
        return set->vectors.put(vector);
    }
    void addNodes(const std::vector<int>& ids)
    {
        for (const int id : ids) {
            femap::embedded::Node node;
            node.id = id;
            node.x = id + 0.5;
            model().nodes.put(node);
        }
    }
    void addElements(const std::vector<std::pair<int, int>>& idsAndTypes)
    {
        for (const auto& [id, type] : idsAndTypes) {
            femap::embedded::Element element;
            element.id = id;
            element.type = type;
            model().elements.put(element);
        }
    }
    void addProperties(const std::vector<std::pair<int, int>>& idsAndTypes)
    {
        for (const auto& [id, type] : idsAndTypes) {
            femap::embedded::Property property;
            property.id = id;
            property.type = type;
            property.pval = {0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9};
            property.pval[0] = id;
            model().properties.put(property);
        }
    }
};

}  // namespace selection
