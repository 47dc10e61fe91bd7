#include "scaling/CountedMemory.h"

#include <algorithm>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace
{

scaling::Taken taken;
std::size_t held = 0;
std::size_t most = 0;

void giveBack(void* memory)
{
    held -= malloc_usable_size(memory);
    std::free(memory);
}

}  // namespace

namespace scaling
{

Taken takenSoFar()
{
    return taken;
}

std::size_t heldNow()
{
    return held;
}

std::size_t mostHeld()
{
    return most;
}

void forgetMostHeld()
{
    most = held;
}

}  // namespace scaling

// In place of the library's own; the forms for arrays come here, too.
void* operator new(std::size_t size, const std::nothrow_t& /*wish*/) noexcept
{
    ++taken.pieces;
    taken.bytes += size;
    void* const memory = std::malloc(size > 0 ? size : 1);
    held += malloc_usable_size(memory);
    most = std::max(most, held);
    return memory;
}

void* operator new(std::size_t size)
{
    if (void* const memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    giveBack(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    giveBack(memory);
}
