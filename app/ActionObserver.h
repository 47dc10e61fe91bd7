// An observer that is told, in order, what the engineer and FEMAP do with the form.
#pragma once

#include "form/Controls.h"
#include "form/Event.h"
#include "selection/PropertyListDialog.h"

namespace app
{

/// What the engineer or FEMAP does with the form.
struct Action
{
    form::Event event;
    int argument = 0;                     // the key code, or the code of FEMAP's event
    const form::ComboBox* box = nullptr;  // in which something was chosen or typed; else null
};

class ActionObserver
{
public:
    virtual ~ActionObserver() = default;

    /// Before the procedure of the action runs.
    virtual void begins(const Action& action) = 0;
    /// The property list dialog was answered; the procedure of the action still runs.
    virtual void answered(const selection::frmPropertyList& dialog) = 0;
    virtual void ended(const Action& action) = 0;
    /// Rows that the latest action took away are back.
    virtual void steppedBack() = 0;
    /// Both grids hold what an earlier run left now.
    virtual void broughtBack() = 0;
};

}  // namespace app
