// Words for FEMAP's types of elements and of the properties that they use.
#pragma once

#include <string>
#include <string_view>

namespace selection
{

/// "parabolic plate elements"; "elements of type 77" when the type has no word here.
/// things: "elements" or "properties".
std::string ofType(int type, std::string_view things);

}  // namespace selection
