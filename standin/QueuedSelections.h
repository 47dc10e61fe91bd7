// Answers the selection dialogs from a queue; when the queue is empty, asks the user.
#pragma once

#include "femap/SelectionDialogs.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace standin
{

using femap::EntityType;
using femap::Selection;

/// One answer to a selection dialog: "1-5 7", "all", "cancel", "missing" or "fail". Raises
/// RuntimeError for any other text.
Selection parseSelection(const std::string& text, const std::vector<int>& available);

class QueuedSelections : public femap::SelectionDialogs
{
public:
    void queue(const std::string& text) { texts_.push_back(text); }

    /// Asks the user; none: a dialog without an answer is cancelled.
    std::function<Selection(EntityType type, const std::string& title, bool onlyOne,
                            const std::vector<int>& available)>
        ask;

    Selection answer(EntityType type, const std::string& title, bool onlyOne,
                     const std::vector<int>& available) override;

private:
    std::deque<std::string> texts_;
};

}  // namespace standin
