#include "selection/AskedList.h"

#include <cstddef>

namespace selection
{

std::string AskedList::text() const
{
    std::string result = "list " + std::to_string(list);
    if (lists != 0)
        result += " of " + std::to_string(lists);
    for (std::size_t first = 0; first < ids.size();) {
        std::size_t last = first;
        while (last + 1 < ids.size() && ids[last + 1] == ids[last] + 1)
            ++last;
        result += (first == 0 ? ": " : ", ") + std::to_string(ids[first]);
        if (last != first)
            result += "-" + std::to_string(ids[last]);
        first = last + 1;
    }
    return result;
}

}  // namespace selection
