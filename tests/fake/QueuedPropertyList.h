#pragma once

#include "selection/PropertyListDialog.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace fake
{

/// Answers the property list dialog from a queue, through the dialog's own buttons, and keeps what
/// it showed. A dialog without a queued answer is cancelled.
class QueuedPropertyList : public selection::PropertyListHost
{
public:
    struct Shown
    {
        std::string heading;
        std::vector<std::string> items;
    };
    std::vector<Shown> shown;

    /// Ticks these items, which must be in the list, and accepts.
    void choose(std::vector<std::string> texts)
    {
        answer([texts = std::move(texts)](selection::frmPropertyList& dialog) {
            for (const std::string& text : texts)
                item(dialog, text).selected = true;
            dialog.cmdAdd_Click();
        });
    }
    void chooseAll()
    {
        answer([](selection::frmPropertyList& dialog) {
            dialog.cmdSelect_Click();
            dialog.cmdAdd_Click();
        });
    }
    void chooseNone() { choose({}); }
    /// Ticks everything, then changes its mind.
    void cancel()
    {
        answer([](selection::frmPropertyList& dialog) {
            dialog.cmdSelect_Click();
            dialog.cmdCancel_Click();
        });
    }
    /// Does anything else with the dialog.
    void answer(std::function<void(selection::frmPropertyList&)> action)
    {
        answers_.push_back(std::move(action));
    }
    void forgetAnswers() { answers_.clear(); }

    void showModal(selection::frmPropertyList& dialog) override
    {
        shown.push_back({dialog.Label2, {}});
        for (const auto& each : dialog.lstProperties.items)
            shown.back().items.push_back(each.text);
        if (answers_.empty()) {
            dialog.cmdCancel_Click();
            return;
        }
        const auto action = std::move(answers_.front());
        answers_.pop_front();
        action(dialog);
    }

private:
    static selection::MultiSelectList::Item& item(selection::frmPropertyList& dialog,
                                                  const std::string& text)
    {
        auto& items = dialog.lstProperties.items;
        const auto place = std::ranges::find(items, text, &selection::MultiSelectList::Item::text);
        if (place == items.end())
            throw std::logic_error("the list \"" + dialog.Label2 + "\" has no \"" + text + "\"");
        return *place;
    }

    std::deque<std::function<void(selection::frmPropertyList&)>> answers_;
};

}  // namespace fake
