// Answers FEMAP's selection dialogs and the property list dialog as the script says. Raises
// ScriptError when the script has no answer or chooses what the dialog does not offer.
#pragma once

#include "femap/SelectionDialogs.h"
#include "selection/PropertyListDialog.h"
#include "study/StudyScript.h"

#include <deque>
#include <string>
#include <vector>

namespace study
{

class StudyDialogs : public femap::SelectionDialogs, public selection::PropertyListHost
{
public:
    void queue(Pick pick) { picks_.push_back(std::move(pick)); }
    void queue(Choice choice) { choices_.push_back(std::move(choice)); }

    /// The number of the line that is carried out; errors for a dialog without an answer name it.
    void setLine(int line) { line_ = line; }

    /// Drops the answers that are left.
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
