#include "femap/Application.h"

#include "femap/Value.h"

namespace femap
{

std::string cutToMessage(const std::string& text)
{
    return std::string(firstCharacters(text, longestMessage));
}

}  // namespace femap
