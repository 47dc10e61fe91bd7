#pragma once

#include <gtest/gtest.h>

#include <string>

namespace comtest
{

/// The generations of FEMAP as the stand-in's options; the parameter of tests that run with each.
inline const auto bothGenerations = testing::Values("--classic", "--modern");

inline std::string nameOfGeneration(const testing::TestParamInfo<const char*>& generation)
{
    return std::string(generation.param).substr(2);
}

}  // namespace comtest
