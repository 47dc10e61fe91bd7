#pragma once

namespace femap::bulk
{

/// Whether one kind of bulk reading works with this FEMAP. Shared by all who read in that way; who
/// finds out that it does not work withdraws it, and from then on the plain way is taken.
struct Trust
{
    bool isGiven = true;
};

}  // namespace femap::bulk
