#pragma once

#include "app/study/StudyScript.h"
#include "femap/SelectionDialogs.h"
#include "selection/PropertyListDialog.h"

#include <deque>
#include <string>
#include <vector>

namespace study
{

/// Answers FEMAP's selection dialogs and the property list dialog as the script says. Raises
/// ScriptError when it says nothing, or what cannot be chosen.
class StudyDialogs : public femap::SelectionDialogs, public selection::PropertyListHost
{
public:
    void queue(Pick pick) { picks_.push_back(std::move(pick)); }
    void queue(Choice choice) { choices_.push_back(std::move(choice)); }

    /// The line of the action that is at work, to be blamed for a dialog without an answer.
    void setLine(int line) { line_ = line; }

    /// Forgets the answers that are left.
    void forget();

    /// Raises ScriptError when an answer is left.
    void checkNothingIsLeft() const;

    femap::Selection answer(femap::EntityType type, const std::string& title, bool onlyOne,
                            const std::vector<int>& available) override;
    void showModal(selection::frmPropertyList& dialog) override;

private:
    int line_ = 0;
    std::deque<Pick> picks_;
    std::deque<Choice> choices_;
};

}  // namespace study
