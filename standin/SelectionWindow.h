// Asks the user to select entities, in a window that lists them with their titles.
#pragma once

#include "femap/SelectionDialogs.h"

#include <functional>
#include <string>
#include <vector>

namespace standin
{

using femap::EntityType;
using femap::Selection;

class Server;

std::function<Selection(EntityType type, const std::string& title, bool onlyOne,
                        const std::vector<int>& available)>
selectionWindow(Server& server);

}  // namespace standin
