// Fetches titles or values of output vectors in few calls. Raises RuntimeError when FEMAP refuses,
// lacks a member or answers with something unexpected.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace femap::com::bulk
{

class VectorFetcher
{
public:
    virtual ~VectorFetcher() = default;

    /// The values of a vector at some entities, in the order of their ascending IDs; not-a-number
    /// where it has none. The plain object holds the vector.
    virtual std::vector<double> values(int vectorID, const std::vector<int>& entityIDs) = 0;
    /// IDs, ascending, and titles of all vectors.
    virtual std::vector<std::pair<int, std::string>> titles() = 0;
    /// A vector's ID in the numbering before 2020.1.
    virtual int classicID(int vectorID) = 0;
};

}  // namespace femap::com::bulk
