#include "femap/Application.h"

namespace femap
{

std::string cutToMessage(const std::string& text)
{
    std::size_t characters = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool startsCharacter = (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80;
        if (startsCharacter && ++characters > longestMessage)
            return text.substr(0, i);
    }
    return text;
}

}  // namespace femap
