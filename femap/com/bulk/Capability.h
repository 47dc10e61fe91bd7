// Whether one kind of bulk reading works with this FEMAP. All objects that read in that way share
// it; the first that finds it not working withdraws it, and all read one by one from then on.
#pragma once

namespace femap::com::bulk
{

struct Capability
{
    bool isUsable = true;
};

}  // namespace femap::com::bulk
