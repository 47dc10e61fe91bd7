// Program: what is found in the study. A window has it looked for after each action; a script asks.
#include "app/Program.h"
#include "findings/Findings.h"

#include <algorithm>
#include <utility>

namespace app
{

namespace
{

// Without a row there is no study yet.
bool hasRows(const form::MainForm& form)
{
    const auto isNotEmpty = [](const std::string& row) {
        return row.find_first_not_of('\t') != std::string::npos;
    };
    return std::ranges::any_of(form.InputsList.rows(), isNotEmpty) ||
           std::ranges::any_of(form.OutputsList.rows(), isNotEmpty);
}

}  // namespace

std::vector<findings::Finding> Program::check()
{
    std::vector<findings::Finding> found;
    if (closed_)
        return found;
    const Ended ended =
        dispatcher_.run("Check", [&] { found = findings::allFindings(session_.context); });
    if (watchesStudy_ && ended == Ended::Normally) {
        const std::optional<std::string>& model = form().openModel;
        latestFindings_.take(found, model.value_or(""), isConnected() && model.has_value());
        tellFindings();
    }
    return found;
}

// What was told before an action is gone; what is told stays true when the engineer just types.
bool Program::followStudy(bool isAction)
{
    if (!watchesStudy_ || closed_ || dispatcher_.isBusy())
        return false;
    const bool hasLooked = latestFindings_.follow(form().openModel.value_or(""), isAction);
    if (isAction || hasLooked)
        ++studyChanges_;
    if (isAction || (hasLooked && !toldFindings_.empty()))
        tellFindings();
    return hasLooked;
}

void Program::tellFindings()
{
    form::Status& status = form().status;
    status.withdraw(toldFindings_);
    toldFindings_.clear();
    findings::Count count = findings::counted(latestFindings_.found());
    count.hints = 0;
    if (count.errors + count.warnings == 0 || !hasRows(form()))
        return;
    const bool isOne = count.errors + count.warnings == 1;
    const std::string message =
        findings::summary(count) + (isOne ? ": F8 shows it" : ": F8 shows them");
    status.tellHint(message);
    toldFindings_ = message;
}

}  // namespace app
