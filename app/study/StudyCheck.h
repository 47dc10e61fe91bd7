#pragma once

#include "app/study/StudyDialogs.h"
#include "app/study/StudyRunner.h"
#include "app/study/StudyScript.h"

#include <vector>

namespace study
{

/// Looks for everything in a script that cannot be done, instead of stopping at the first.
class StudyCheck
{
public:
    /// Both must outlive this; the runner runs with these dialogs.
    StudyCheck(StudyRunner& runner, StudyDialogs& dialogs) : runner_(runner), dialogs_(dialogs) {}

    /// Runs all of the script that can be run, and unloads the form. Returns the problems in the
    /// order of the lines; what only follows from a problem before it is left out.
    std::vector<ScriptError> problemsIn(StudyScript& script);

private:
    template <class Step>
    bool attempt(const Step& step);
    void perform(const ScriptLine& line);

    StudyRunner& runner_;
    StudyDialogs& dialogs_;
    std::vector<ScriptError> problems_;
    bool isBroken_ = false;   // then much is unavailable, and that was told
    bool isSpoiled_ = false;  // the next click has a wrong answer, and that was told
};

}  // namespace study
