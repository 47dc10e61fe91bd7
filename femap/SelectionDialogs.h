// Answers FEMAP's selection dialogs in place of an engineer, for scripts and tests.
#pragma once

#include "femap/Constants.h"

#include <string>
#include <vector>

namespace femap
{

/// How an engineer answered one of FEMAP's selection dialogs.
struct Selection
{
    /// Cancel: the dialog was cancelled. NotExist: nothing of that kind exists. Fail: FEMAP failed.
    ReturnCode code = ReturnCode::Ok;
    std::vector<int> ids;  // for Ok
};

class SelectionDialogs
{
public:
    virtual ~SelectionDialogs() = default;

    /// onlyOne: the dialog takes a single entity. available: the IDs that exist, ascending.
    virtual Selection answer(EntityType type, const std::string& title, bool onlyOne,
                             const std::vector<int>& available) = 0;
};

}  // namespace femap
