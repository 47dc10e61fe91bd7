#include "form/ScreenPlace.h"

#include <algorithm>

namespace form
{

namespace
{

// One direction: the first pixel and the one behind the last.
void keep(int& first, int& end, int screenFirst, int screenEnd)
{
    const int length = std::min(end - first, screenEnd - screenFirst);
    first = std::clamp(first, screenFirst, screenEnd - length);
    end = first + length;
}

}  // namespace

ScreenPlace centredOn(const ScreenPlace& other, int width, int height)
{
    const int left = other.left + (other.right - other.left - width) / 2;
    const int top = other.top + (other.bottom - other.top - height) / 2;
    return {left, top, left + width, top + height};
}

ScreenPlace keptWithin(const ScreenPlace& wanted, const ScreenPlace& screen)
{
    ScreenPlace result = wanted;
    keep(result.left, result.right, screen.left, screen.right);
    keep(result.top, result.bottom, screen.top, screen.bottom);
    return result;
}

}  // namespace form
