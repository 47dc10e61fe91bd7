#pragma once

#include "femap/ForwardingApplication.h"

#include <memory>
#include <utility>

namespace fake
{

/// Hands every call on to another FEMAP; tests derive from it to count calls or to let some fail.
class ForwardingFemap : public femap::ForwardingApplication
{
public:
    explicit ForwardingFemap(std::unique_ptr<femap::Application> real)
        : ForwardingApplication(std::move(real))
    {}
};

}  // namespace fake
