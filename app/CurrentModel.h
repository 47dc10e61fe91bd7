// What the form takes over from the model that FEMAP has open: at the start, when another model is
// opened, and when FEMAP is back.
#pragma once

#include "app/Session.h"
#include "system/RuntimeError.h"

#include <optional>
#include <string>
#include <utility>

namespace app
{

/// Runs step after step although some fail, so that one refused call of FEMAP does not keep the
/// rest from being done.
class Steps
{
public:
    /// False when the step failed.
    template <class Step>
    bool run(Step&& step)
    {
        try {
            std::forward<Step>(step)();
            return true;
        }
        catch (const sys::RuntimeError& error) {
            if (!first_)
                first_ = error;
            return false;
        }
    }
    /// Raises the first error, if there was one.
    void raiseFirst() const
    {
        if (first_)
            throw sys::RuntimeError(*first_);
    }

private:
    std::optional<sys::RuntimeError> first_;
};

/// The first choices in the boxes and the widths of the columns, once in a run.
void makeInitialChoices(Session& session);

/// Enables the controls if FEMAP has a model open, else disables them. Returns its file, which is
/// empty while it was never saved; none when no model is open.
std::optional<std::string> enableWhileModelIsOpen(Session& session);

/// How many output vectors the model has.
int countOutputVectors(Session& session);

/// The open model became the current one: controls, command line, output vectors, and its stored
/// selection when the grids are empty and it was not read in this run.
void takeOverModel(Session& session, Steps& steps);

}  // namespace app
