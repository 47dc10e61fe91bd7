#include "selection/Offer.h"

#include "femap/Constants.h"

namespace selection
{

using femap::ReturnCode;

namespace
{

// Keeps a text on the status line.
class StandingText
{
public:
    StandingText(form::Context& context, const std::string& text) : status_(context.form.status)
    {
        if (text.empty())
            return;
        status_.showProgress(text);
        context.host.showProgress();
    }
    ~StandingText() { status_.showProgress({}); }
    StandingText(const StandingText&) = delete;
    StandingText& operator=(const StandingText&) = delete;

private:
    form::Status& status_;
};

}  // namespace

void offer(form::Context& context, frmPropertyList& dialog, Outcome& outcome,
           const std::string& askedFor)
{
    const bool isEmpty = dialog.lstProperties.items.empty();
    {
        const StandingText standing(context, askedFor);
        dialog.Show();
    }
    // Of several lists one that has something says more.
    if (isEmpty && outcome.noRow.empty())
        outcome.noRow = "No row was added: there is nothing of this kind to choose";
    else if (!isEmpty && dialog.selectedFields.empty() && dialog.chosenEntries().empty())
        outcome.noRow = "No row was added: nothing was chosen in the list";
}

void noteNothingPicked(Outcome& outcome, int returnCode)
{
    const auto is = [&](ReturnCode code) { return returnCode == static_cast<int>(code); };
    if (is(ReturnCode::Ok) || is(ReturnCode::Cancel))
        outcome.noRow = "No row was added: nothing was picked in FEMAP";
    else if (is(ReturnCode::NotExist))
        outcome.noRow = "No row was added: the model has nothing of this kind";
    else
        outcome.failure =
            "FEMAP's selection failed (FEMAP's code " + std::to_string(returnCode) + ")";
}

}  // namespace selection
