#pragma once

#include "logging/Files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace fake
{

/// Tests on real models that FEMAP wrote. They lie beside the project, not in it; without them the
/// tests are skipped.
class SharedModels : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(SHARED_MODELS))
            GTEST_SKIP() << "the shared models are not on this machine";
    }

    /// The bytes of one of them.
    static std::string contentOf(const std::string& model)
    {
        return logging::DiskFiles().read(SHARED_MODELS "/" + model);
    }
};

}  // namespace fake
