#include "study/StudyDialogs.h"

#include <algorithm>
#include <cstddef>

namespace study
{

using femap::ReturnCode;
using selection::frmPropertyList;
using selection::MultiSelectList;

namespace
{

constexpr std::size_t mostNamed = 12;  // of the things on offer, in a message

template <class Queue>
auto takeFirst(Queue& queue)
{
    auto first = std::move(queue.front());
    queue.pop_front();
    return first;
}

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

std::string itemsText(const MultiSelectList& list)
{
    std::string result;
    for (std::size_t i = 0; i < list.items.size(); ++i) {
        if (i == mostNamed)
            return result + " | …";
        result += (i == 0 ? "" : " | ") + list.items[i].text;
    }
    return result;
}

// The IDs of the ranges, all of which must be on offer.
std::vector<int> pickedIds(const Pick& pick, const std::string& title,
                           const std::vector<int>& available)
{
    std::vector<int> ids;
    for (const femap::IDRange& range : pick.ranges) {
        auto offered = std::ranges::lower_bound(available, range.first);
        for (int id = range.first;; ++id, ++offered) {
            if (offered == available.end() || *offered != id)
                throw ScriptError(pick.line, "FEMAP's dialog " + quoted(title) +
                                                 " does not offer the ID " + std::to_string(id) +
                                                 "; it offers " +
                                                 femap::rangesText(available, mostNamed));
            ids.push_back(id);
            if (id == range.last)
                break;
        }
    }
    std::ranges::sort(ids);
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

// A script names an output vector by its text in the list or by the ID that the text begins with.
bool isNamed(const MultiSelectList::Item& item, const std::string& name)
{
    if (item.text == name)
        return true;
    const bool isNumber = std::ranges::all_of(name, [](char c) { return c >= '0' && c <= '9'; });
    return isNumber && item.text.starts_with(name + " - ");
}

void selectItems(const Choice& choice, frmPropertyList& dialog)
{
    for (const std::string& name : choice.items) {
        std::vector<MultiSelectList::Item>& items = dialog.lstProperties.items;
        const auto found = std::ranges::find_if(
            items, [&](const MultiSelectList::Item& item) { return isNamed(item, name); });
        if (found == items.end())
            throw ScriptError(choice.line, "the list " + quoted(dialog.Label2) + " has no item " +
                                               quoted(name) + "; it offers " +
                                               itemsText(dialog.lstProperties));
        found->selected = true;
    }
}

}  // namespace

void StudyDialogs::forget()
{
    picks_.clear();
    choices_.clear();
}

void StudyDialogs::checkNothingIsLeft() const
{
    const bool pickIsFirst =
        !picks_.empty() && (choices_.empty() || picks_.front().line < choices_.front().line);
    if (pickIsFirst)
        throw ScriptError(picks_.front().line,
                          "this pick was never used: no selection dialog of FEMAP opened for it; "
                          "remove it or put it before the click that opens the dialog");
    if (!choices_.empty())
        throw ScriptError(choices_.front().line,
                          "this choose was never used: no property list dialog opened for it; "
                          "remove it or put it before the click that opens the dialog");
}

femap::Selection StudyDialogs::answer(femap::EntityType /*type*/, const std::string& title,
                                      bool onlyOne, const std::vector<int>& available)
{
    if (picks_.empty())
        throw ScriptError(line_, "FEMAP's dialog " + quoted(title) +
                                     " opened without an answer; put a pick before this line");
    const Pick pick = takeFirst(picks_);
    if (pick.kind == Pick::Kind::Cancel)
        return {ReturnCode::Cancel, {}};
    if (pick.kind == Pick::Kind::Missing)
        return {ReturnCode::NotExist, {}};
    if (pick.kind == Pick::Kind::Fail)
        return {ReturnCode::Fail, {}};

    const std::vector<int> ids =
        pick.kind == Pick::Kind::All ? available : pickedIds(pick, title, available);
    if (ids.empty())
        return {ReturnCode::NotExist, {}};
    if (onlyOne && ids.size() > 1)
        throw ScriptError(pick.line, "FEMAP's dialog " + quoted(title) +
                                         " takes one ID; it offers " +
                                         femap::rangesText(available, mostNamed));
    return {ReturnCode::Ok, ids};
}

void StudyDialogs::showModal(frmPropertyList& dialog)
{
    if (choices_.empty())
        throw ScriptError(line_, "the list " + quoted(dialog.Label2) +
                                     " opened without an answer; put a choose before this line");
    const Choice choice = takeFirst(choices_);
    if (choice.kind == Choice::Kind::Cancel) {
        dialog.cmdCancel_Click();
        return;
    }
    dialog.cmdDeSelect_Click();
    if (choice.kind == Choice::Kind::All)
        dialog.cmdSelect_Click();
    else
        selectItems(choice, dialog);
    dialog.cmdAdd_Click();
}

}  // namespace study
