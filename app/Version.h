// The version of the project, such as "1.2.3".
#pragma once

#include <string_view>

namespace app
{

std::string_view version();

}  // namespace app
