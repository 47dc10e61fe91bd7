#pragma once

#include "system/Files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace fake
{

/// A model that FEMAP wrote: one of those kept in tests/models, else one beside the project, where
/// it may be or not.
inline std::filesystem::path realModel(const std::string& name)
{
    const auto kept = std::filesystem::path(SOURCE_FOLDER) / "tests" / "models" / name;
    return std::filesystem::exists(kept) ? kept : std::filesystem::path(SHARED_MODELS) / name;
}

inline std::string contentOfModel(const std::string& name)
{
    return sys::DiskFiles().read(realModel(name).string());
}

/// Tests that want models which are not kept here, for their makers name no licence.
template <class Fixture = testing::Test>
class OnModelsBesideTheProject : public Fixture
{
protected:
    void SetUp() override
    {
        for (const char* const name : {"callback.NEU", "lam1.neu"})
            if (!std::filesystem::exists(realModel(name)))
                GTEST_SKIP() << "The model " << realModel(name) << " is not on this machine.";
    }
};

}  // namespace fake
