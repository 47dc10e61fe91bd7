// The dialog "Select Properties", in which the engineer ticks which quantities of the selected
// entities become parameters.
#pragma once

#include "femap/Application.h"
#include "selection/AskedList.h"
#include "selection/FieldCatalogue.h"

#include <array>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace selection
{

class frmPropertyList;

/// Shows the dialog to the engineer and returns when it is hidden again. The implementation
/// selects in lstProperties and ends with cmdAdd_Click or cmdCancel_Click of the dialog.
class PropertyListHost
{
public:
    virtual ~PropertyListHost() = default;
    virtual void showModal(frmPropertyList& dialog) = 0;
};

/// A list box in which several items can be selected.
struct MultiSelectList
{
    struct Item
    {
        std::string text;
        bool selected = false;
    };
    std::vector<Item> items;
};

class frmPropertyList
{
public:
    /// Both must outlive the dialog.
    frmPropertyList(femap::Connector& connector, PropertyListHost& host);

    std::string Caption = "Select Properties";
    MultiSelectList lstProperties;
    std::string Label2 = "Properties:";  // the heading above the list
    std::string cmdSelect = "Select All";
    std::string cmdDeSelect = "Deselect All";
    std::string cmdAdd = "Add";
    std::string cmdCancel = "Cancel";
    /// Tells lists of different quantities apart.
    std::string kindOfList() const { return entityKind_ + ' ' + Label2; }
    bool Visible = false;  // from Show to cmdAdd or cmdCancel
    AskedList asked;       // what the list is for; the caller of Show knows

    /// A fresh dialog shows the list of constraints until GetPropertyList is called.
    void Form_Load();

    /// Fills list and heading for a kind of entity ("Node", "Elem", "Prop", "Matl", "LoadSet",
    /// "MeshMass", "BCNode", "BCGeom", "Output") and its sub-type or output category, and empties
    /// what was chosen before. Raises RuntimeError when FEMAP cannot be reached; then list and
    /// choice are empty.
    void GetPropertyList(const std::string& kind, const std::string& subType);

    /// Sorts the output vectors of the open model into the groups that output lists show.
    void UpdateCollection();
    /// Whether the groups were built from these vectors of this output set, all of them.
    bool isBuiltFrom(int outputSet, const std::vector<int>& vectorIDs) const;
    /// How many vectors FEMAP refused then; they are in no group.
    int refusedVectors() const { return refusedVectors_; }

    /// Modal; the caller reads the collections afterwards.
    void Show();

    void cmdSelect_Click();
    void cmdDeSelect_Click();
    void cmdAdd_Click();
    void cmdCancel_Click();

    /// The FEMAP member that holds a field of the present list, and the field's index in an array
    /// member as decimal text, empty for a plain member.
    std::string GetMemberName(const std::string& field) const;
    std::string GetMemberIndex(const std::string& field) const;

    // Input mode: the chosen fields in list order, and by field the FEMAP member and, for array
    // members only, the index as decimal text.
    std::vector<std::string> selectedFields;
    std::map<std::string, std::string> fieldMembers;
    std::map<std::string, std::string> fieldIndexes;
    /// In list order. Output mode: the chosen vector IDs, each followed by one blank. Mass
    /// properties: the indexes of the chosen quantities.
    const std::vector<std::string>& chosenEntries() const { return chosenEntries_; }

private:
    void clear();
    void addItems(std::span<const Field> fields);
    void showCategory(const std::string& category);
    void addField(const std::string& name);
    const Field* findField(std::string_view name) const;
    std::vector<std::string>& vectorsOf(VectorGroup group);

    femap::Connector& connector_;
    PropertyListHost& host_;
    std::string entityKind_;
    std::vector<const Field*> fields_;  // of the items in the list; none in output mode
    std::vector<std::string> chosenEntries_;
    std::array<std::vector<std::string>, vectorGroupCount> vectors_;  // by VectorGroup

    // What the groups were built from.
    std::optional<int> outputSet_;  // none before they were built to the end
    std::vector<int> vectorIDs_;
    int refusedVectors_ = 0;
};

}  // namespace selection
