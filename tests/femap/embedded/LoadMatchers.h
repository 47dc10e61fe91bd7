#pragma once

#include "femap/neutral/Model.h"

#include <gmock/gmock.h>

#include <string>

namespace neutral
{

/// A load definition with these.
inline auto isDefinition(int id, const std::string& title, int dataType, int loadType)
{
    using femap::neutral::LoadDefinition;
    using testing::Field;
    return testing::AllOf(Field(&LoadDefinition::id, id), Field(&LoadDefinition::title, title),
                          Field(&LoadDefinition::dataType, dataType),
                          Field(&LoadDefinition::loadType, loadType));
}

}  // namespace neutral
