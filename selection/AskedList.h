// What a list of quantities is asked for: of which entities, and which list of the click it is.
#pragma once

#include <string>
#include <vector>

namespace selection
{

struct AskedList
{
    std::vector<int> ids;  // ascending; none where no entities were picked
    int list = 1;          // of the lists that one click shows, counted from 1
    int lists = 0;         // that the click shows, those left out by errors too; 0: not known

    /// "list 2 of 7: 1-3, 7"; without what is not known.
    std::string text() const;
};

}  // namespace selection
