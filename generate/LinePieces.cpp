#include "generate/LinePieces.h"

namespace generate
{

bool LinePieces::operator==(std::string_view text) const
{
    return concatenated(*this) == text;
}

std::string concatenated(std::span<const std::string_view> pieces)
{
    std::size_t length = 0;
    for (const std::string_view piece : pieces)
        length += piece.size();
    std::string text;
    text.reserve(length);
    for (const std::string_view piece : pieces)
        text += piece;
    return text;
}

}  // namespace generate
