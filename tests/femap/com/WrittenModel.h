#pragma once

#include <string>

namespace comtest
{

/// How much there is of everything in a model. Nodes and elements have even IDs only, every seventh
/// entity has no value in any vector, and properties and elements are of two types.
struct ModelSize
{
    int nodes = 0;
    int elements = 0;
    int properties = 0;
    int materials = 0;
    int nodeVectors = 0;
    int plateVectors = 0;
};

/// Writes the model into a neutral file in the system's folder for temporary ones. Returns its
/// path.
std::string writeModel(const ModelSize& size, const std::string& name);

}  // namespace comtest
