#pragma once

#include "femap/SelectionDialogs.h"

#include <functional>
#include <string>
#include <vector>

namespace femap::com::standin
{

class Server;

/// Asks the user in a window that lists the entities with their titles.
std::function<Selection(EntityType type, const std::string& title, bool onlyOne,
                        const std::vector<int>& available)>
pickWindow(Server& server);

}  // namespace femap::com::standin
