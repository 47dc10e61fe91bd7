// Which entities have data in an output vector. FEMAP may give 0 for one that has none, so a 0 is
// taken for a value only where this says that there is one.
#pragma once

#include "femap/com/BulkCalls.h"
#include "femap/com/ComObjects.h"

#include <memory>
#include <vector>

namespace femap::com
{

class VectorEntities
{
public:
    explicit VectorEntities(const ComContext& context) : context_(context) {}

    /// Whether the entity has data; true as well where FEMAP does not tell.
    bool has(int outputSet, int vectorID, int entityID);
    /// The ID of FEMAP's set of them; 0, which stands for all, where FEMAP does not tell.
    int setOf(int outputSet, int vectorID);

private:
    struct Asked
    {
        Dispatch results;
        Dispatch set;
        int setID;
    };

    ComContext context_;
    std::unique_ptr<Asked> femap_;

    // Of the vector that was asked for last.
    int outputSet_ = 0;
    int vectorID_ = 0;
    bool isTold_ = false;
    bool isListed_ = false;
    std::vector<int> ids_;  // ascending
};

}  // namespace femap::com
