// The words for FEMAP's types of elements and of the properties that they use.
#pragma once

#include "femap/Constants.h"

#include <string>
#include <string_view>

namespace femap
{

struct ElementTypeWord
{
    enum Order
    {
        Linear,
        Parabolic,
    };

    ElementType type;
    std::string_view word;  // the same for both orders
    Order order = Linear;
};

/// Null for a type that FEMAP does not have.
const ElementTypeWord* findElementTypeWord(int type);

}  // namespace femap
