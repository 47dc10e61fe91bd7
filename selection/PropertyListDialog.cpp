#include "selection/PropertyListDialog.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace selection
{

namespace
{

constexpr std::string_view outputKind = "Output";

}  // namespace

frmPropertyList::frmPropertyList(femap::Connector& connector, PropertyListHost& host)
    : connector_(connector), host_(host)
{}

void frmPropertyList::Form_Load()
{
    GetPropertyList("BCNode", "");
}

void frmPropertyList::GetPropertyList(const std::string& kind, const std::string& subType)
{
    entityKind_ = kind;
    clear();
    connector_.attach();  // raises here when FEMAP is gone, before anything is offered

    if (kind == outputKind) {
        showCategory(subType);
        return;
    }
    const FieldList* const list = findFieldList(kind, subType);
    if (list == nullptr)
        return;
    Label2 = list->caption;
    addItems(list->fields);
    addItems(list->commonFields);
}

void frmPropertyList::UpdateCollection()
{
    const std::unique_ptr<femap::Application> application = connector_.attach();
    vectors_ = {};
    outputSet_.reset();
    refusedVectors_ = 0;
    const int outputSet = application->Info_ActiveID(femap::EntityType::OutputSet);
    const std::unique_ptr<femap::EntitySet> set = application->feSet();
    const std::unique_ptr<femap::OutputVector> vector = application->feOutput();
    set->AddAll(femap::EntityType::OutputVector);
    vectorIDs_ = set->ids();
    const std::vector<int>& ids = vectorIDs_;
    std::vector<femap::VectorReading> plan;
    plan.reserve(ids.size());
    for (const int id : ids)
        plan.push_back({id});
    vector->prefetch(std::move(plan));
    for (const int id : ids) {
        if (vector->Get(id) != femap::ReturnCode::Ok) {
            ++refusedVectors_;
            continue;
        }
        const VectorRange* const range = findVectorRange(vector->classicID());
        if (range == nullptr)
            continue;
        const std::string text = std::to_string(id) + " - " + vector->Title();
        vectorsOf(range->group).push_back(text);
        if (range->isOfElements)
            vectorsOf(VectorGroup::AllElements).push_back(text);
    }
    outputSet_ = outputSet;
}

bool frmPropertyList::isBuiltFrom(int outputSet, const std::vector<int>& vectorIDs) const
{
    return outputSet_ == outputSet && vectorIDs_ == vectorIDs && refusedVectors_ == 0;
}

void frmPropertyList::Show()
{
    Visible = true;
    host_.showModal(*this);
    Visible = false;
}

void frmPropertyList::cmdSelect_Click()
{
    for (MultiSelectList::Item& item : lstProperties.items)
        item.selected = true;
}

void frmPropertyList::cmdDeSelect_Click()
{
    for (MultiSelectList::Item& item : lstProperties.items)
        item.selected = false;
}

void frmPropertyList::cmdAdd_Click()
{
    for (const MultiSelectList::Item& item : lstProperties.items) {
        if (!item.selected)
            continue;
        if (entityKind_ == outputKind)
            chosenEntries_.push_back(item.text.substr(0, item.text.find(' ') + 1));
        else
            addField(item.text);
    }
    Visible = false;
}

void frmPropertyList::cmdCancel_Click()
{
    Visible = false;
}

std::string frmPropertyList::GetMemberName(const std::string& field) const
{
    const Field* const found = findField(field);
    return found == nullptr ? field : std::string(found->member);
}

std::string frmPropertyList::GetMemberIndex(const std::string& field) const
{
    const Field* const found = findField(field);
    return found == nullptr || !found->isIndexed() ? "" : std::to_string(found->index);
}

void frmPropertyList::clear()
{
    lstProperties.items.clear();
    fields_.clear();
    selectedFields.clear();
    fieldMembers.clear();
    fieldIndexes.clear();
    chosenEntries_.clear();
}

void frmPropertyList::addItems(std::span<const Field> fields)
{
    for (const Field& field : fields) {
        lstProperties.items.push_back({std::string(field.name)});
        fields_.push_back(&field);
    }
}

void frmPropertyList::showCategory(const std::string& category)
{
    const OutputCategory& shown = findOutputCategory(category);
    Label2 = shown.caption;
    for (const std::string& text : vectorsOf(shown.group))
        lstProperties.items.push_back({text});
}

void frmPropertyList::addField(const std::string& name)
{
    selectedFields.push_back(name);
    fieldMembers.emplace(name, GetMemberName(name));
    const std::string index = GetMemberIndex(name);
    if (index.empty())
        return;
    fieldIndexes.emplace(name, index);
    chosenEntries_.push_back(index);
}

const Field* frmPropertyList::findField(std::string_view name) const
{
    const auto found = std::ranges::find(fields_, name, &Field::name);
    return found == fields_.end() ? nullptr : *found;
}

std::vector<std::string>& frmPropertyList::vectorsOf(VectorGroup group)
{
    return vectors_[static_cast<std::size_t>(group)];
}

}  // namespace selection
