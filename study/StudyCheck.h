// Looks for everything in a script that cannot be done, instead of stopping at the first problem.
#pragma once

#include "study/StudyDialogs.h"
#include "study/StudyRunner.h"
#include "study/StudyScript.h"

#include <vector>

namespace study
{

class StudyCheck
{
public:
    /// Both must outlive this; the runner runs with these dialogs.
    StudyCheck(StudyRunner& runner, StudyDialogs& dialogs) : runner_(runner), dialogs_(dialogs) {}

    /// A study that the script writes, or would leave.
    struct Found
    {
        int line;  // of "Apply", or the last one
        std::vector<findings::Finding> findings;
    };

    /// Runs all of the script that can be run, and unloads the form. Returns the problems in the
    /// order of the lines, without those that only follow from an earlier one.
    std::vector<ScriptError> problemsIn(StudyScript& script);

    /// Then: what was found before each "Apply" or, without one, before the form was unloaded.
    const std::vector<Found>& studies() const { return studies_; }

private:
    template <class Step>
    bool attempt(const Step& step);
    void perform(const ScriptLine& line);
    void look(int line);

    StudyRunner& runner_;
    StudyDialogs& dialogs_;
    std::vector<ScriptError> problems_;
    std::vector<Found> studies_;
    int lastLine_ = 0;
    bool isBroken_ = false;   // no model came; what is unavailable for that is not told
    bool isSpoiled_ = false;  // an answer for the next click is wrong; that click is skipped
};

}  // namespace study
