#include "study/StudyCheck.h"

#include <algorithm>

namespace study
{

namespace
{

constexpr std::string_view applyButton = "GenerateButton";

}  // namespace

std::vector<ScriptError> StudyCheck::problemsIn(StudyScript& script)
{
    for (bool isAtEnd = false; !isAtEnd;)
        attempt([&] {
            const auto line = script.next();
            isAtEnd = !line;
            if (line)
                perform(*line);
        });
    if (studies_.empty())
        look(lastLine_);
    attempt([&] { dialogs_.checkNothingIsLeft(); });
    attempt([&] { runner_.unload(); });
    // A wrong answer is found only when its dialog opens, at a later line.
    std::ranges::stable_sort(problems_, {}, &ScriptError::line);
    return std::move(problems_);
}

// False when the step cannot be done.
template <class Step>
bool StudyCheck::attempt(const Step& step)
{
    try {
        step();
        return true;
    }
    catch (const Unavailable& problem) {
        if (!isBroken_)
            problems_.push_back(problem);
    }
    catch (const ScriptError& problem) {
        problems_.push_back(problem);
    }
    return false;
}

void StudyCheck::perform(const ScriptLine& line)
{
    const bool isClick = line.action == "click";
    const bool isAnswer = line.action == "pick" || line.action == "choose";
    const bool isApply = isClick && line.argument == applyButton;
    if (isApply || (line.action == "close" && studies_.empty()))
        look(line.number);
    lastLine_ = line.number;
    const bool isDone = (isClick && isSpoiled_) || attempt([&] { runner_.perform(line); });
    if (isClick && (isSpoiled_ || !isDone))
        dialogs_.forget();
    const bool bringsModel = line.action == "start" || line.action == "open";
    if (bringsModel && isDone)
        isBroken_ = false;
    isBroken_ = isBroken_ || (!isDone && (!runner_.isStarted() || bringsModel));
    isSpoiled_ = !isClick && (isSpoiled_ || (isAnswer && !isDone));
}

void StudyCheck::look(int line)
{
    if (runner_.isOpen())
        studies_.push_back({line, runner_.findings()});
}

}  // namespace study
