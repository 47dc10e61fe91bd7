#include "form/Status.h"

#include <algorithm>

namespace form
{

void Status::clear()
{
    result_.clear();
    hints_.clear();
    problem_.clear();
    failure_.clear();
    compose();
}

void Status::tellResult(std::string_view text)
{
    result_ = text;
    compose();
}

void Status::tellHint(std::string_view text)
{
    if (std::ranges::find(hints_, text) == hints_.end())
        hints_.emplace_back(text);
    compose();
}

void Status::tellProblem(std::string_view text)
{
    problem_ = text;
    compose();
}

void Status::tellFailure(std::string_view text)
{
    failure_ = text;
    compose();
}

void Status::withdraw(std::string_view text)
{
    std::erase(hints_, text);
    for (std::string* const each : {&result_, &problem_, &failure_})
        if (*each == text)
            each->clear();
    compose();
}

void Status::showProgress(std::string_view text)
{
    progress_ = text;
    compose();
}

void Status::showWaiting(std::string_view text)
{
    waiting_ = text;
    compose();
}

void Status::compose()
{
    for (const std::string* const each : {&waiting_, &progress_, &failure_, &problem_})
        if (!each->empty()) {
            caption_ = *each;
            return;
        }
    caption_ = result_;
    for (const std::string& hint : hints_) {
        if (!caption_.empty())
            caption_ += caption_.ends_with('.') ? " " : ". ";
        caption_ += hint;
    }
}

}  // namespace form
