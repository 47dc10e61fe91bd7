#pragma once

#include "fake/FormFixture.h"
#include "fake/QueuedPropertyList.h"
#include "fake/WatchedFemap.h"
#include "selection/InputSelection.h"
#include "selection/OutputSelection.h"

#include <string>
#include <utility>
#include <vector>

namespace selection
{

using Texts = std::vector<std::string>;

/// Rows of a grid that was filled before, with these names and the rest as given.
inline void fill(form::ParameterGrid& grid, Texts names, const std::string& rest)
{
    for (std::string& name : names)
        name += rest;
    fake::fill(grid, names);
}

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
    fake::WatchedConnector connector{femap};  // of the dialog
    frmPropertyList dialog{connector, list};

    /// The headings of the property lists that were shown.
    Texts headings() const
    {
        Texts result;
        for (const auto& shown : list.shown)
            result.push_back(shown.heading);
        return result;
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

    femap::neutral::OutputVector& addVector(int id, const std::string& title,
                                            std::vector<int> ids = {},
                                            std::vector<double> values = {})
    {
        femap::neutral::OutputSet* set = model().outputSets.find(1);
        if (set == nullptr) {
            femap::neutral::OutputSet fresh;
            fresh.id = 1;
            set = &model().outputSets.put(fresh);
        }
        femap::neutral::OutputVector vector;
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
            femap::neutral::Node node;
            node.id = id;
            node.x = id + 0.5;
            model().nodes.put(node);
        }
    }
    void addElements(const std::vector<std::pair<int, int>>& idsAndTypes)
    {
        for (const auto& [id, type] : idsAndTypes) {
            femap::neutral::Element element;
            element.id = id;
            element.type = type;
            model().elements.put(element);
        }
    }
    void addProperties(const std::vector<std::pair<int, int>>& idsAndTypes)
    {
        for (const auto& [id, type] : idsAndTypes) {
            femap::neutral::Property property;
            property.id = id;
            property.type = type;
            property.pval = {0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9};
            property.pval[0] = id;
            model().properties.put(property);
        }
    }
};

}  // namespace selection
