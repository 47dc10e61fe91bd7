#pragma once

#include "femap/embedded/HostFixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

/// A host with one entity of each kind whose members all have a value of their own.
struct MemberFixture : HostFixture
{
    MemberFixture()
    {
        model().nodes.put({.id = 7,
                           .defCSys = 1,
                           .outCSys = 2,
                           .layer = 3,
                           .color = 4,
                           .type = 5,
                           .permBC = {false, true},
                           .x = 1.5,
                           .y = 2.5,
                           .z = 3.5});
        model().elements.put({.id = 8,
                              .color = 1,
                              .propID = 2,
                              .type = femap::elementPlate,
                              .topology = 4,
                              .layer = 5,
                              .orientID = 6,
                              .geomID = 9,
                              .node = {11, 12, 13, 14},
                              .orient = {30, 31, 32},
                              .offset = {0.25, 0, 0, 0, 0, 0.75}});
        model().elements.put({.id = 9, .type = femap::elementBeam, .orient = {1, 0, 0}});
        model().properties.put({.id = 12,
                                .title = "Skin\tleft",
                                .color = 1,
                                .matlID = 2,
                                .type = 17,
                                .layer = 4,
                                .refCS = 5,
                                .pval = {0.125, 0.5}});
        auto& material = model().materials.put(
            {.id = 3, .title = "Steel", .color = 1, .type = 2, .subtype = 4, .layer = 5});
        for (std::size_t i = 0; i < material.mval.size(); ++i)
            material.mval[i] = static_cast<double>(i) + 0.5;
    }

    std::unique_ptr<femap::Entity> loaded(const std::string& word, int id)
    {
        auto entity = application->entity(word);
        EXPECT_EQ(entity->Get(id), femap::ReturnCode::Ok);
        return entity;
    }
};

inline femap::Value whole(std::int64_t number)
{
    return number;
}
