#pragma once

#include "femap/embedded/HostFixture.h"
#include "femap/embedded/HostLoads.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

/// A host with load set 2, which has loads of every kind.
struct PutLoadFixture : HostFixture
{
    PutLoadFixture()
    {
        femap::neutral::LoadSet set;
        set.id = 2;
        set.definitions = {{.id = 1, .title = "Force", .dataType = 13, .loadType = 1},
                           {.id = 2, .title = "Convection", .dataType = 14, .loadType = 181},
                           {.id = 3, .title = "Nodal", .dataType = 15, .loadType = 9},
                           {.id = 4, .title = "Elemental", .dataType = 16, .loadType = 43},
                           {.id = 5, .title = "Other nodal", .dataType = 15, .loadType = 9}};
        set.meshLoads = {{.id = 1, .entityID = 11, .type = 1, .definitionID = 1, .load = {5, 6}}};
        set.geometryLoads = {
            {.id = 1, .entityID = 21, .type = 181, .definitionID = 2, .load = {12.5, 300}}};
        set.nodalTemperatures = {{.entityID = 31, .temp = 20.5, .definitionID = 3},
                                 {.entityID = 31, .temp = 70, .definitionID = 5}};
        set.elementTemperatures = {{.entityID = 41, .temp = -3, .definitionID = 4}};
        model().loadSets.put(std::move(set));
    }

    std::unique_ptr<femap::embedded::HostLoad> firstOf(int id)
    {
        EXPECT_EQ(definition.Get(2, id), femap::ReturnCode::Ok);
        return definition.nextLoad();
    }
    femap::neutral::LoadSet& set() { return *model().loadSets.find(2); }

    femap::embedded::HostLoadDefinition definition{host};
};
