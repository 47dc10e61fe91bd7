#include "form/Status.h"

#include <algorithm>

namespace form
{

void Status::clear()
{
    first_.clear();
    result_.clear();
    hints_.clear();
    problem_.clear();
    failure_.clear();
    asWell_.clear();
    compose();
}

void Status::tellFirst(std::string_view text)
{
    first_ = text;
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

void Status::tellAsWell(std::string_view text)
{
    asWell_ = text;
    compose();
}

void Status::withdraw(std::string_view text)
{
    std::erase(hints_, text);
    for (std::string* const each : {&first_, &result_, &problem_, &failure_})
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
    const std::string& passing = waiting_.empty() ? progress_ : waiting_;
    if (!passing.empty()) {
        caption_ = passing;
        return;
    }
    const std::string& gravestText = gravest();
    caption_ = first_;
    append(gravestText.empty() ? result_ : gravestText);
    if (gravestText.empty()) {
        for (const std::string& hint : hints_)
            append(hint);
    }
    append(asWell_);
}

void Status::append(std::string_view sentence)
{
    if (!caption_.empty() && !sentence.empty())
        caption_ += caption_.ends_with('.') ? " " : ". ";
    caption_ += sentence;
}

}  // namespace form
