#include "scaling/CountedMemory.h"

#include <cstdlib>
#include <new>

namespace
{

scaling::Taken taken;

}  // namespace

namespace scaling
{

Taken takenSoFar()
{
    return taken;
}

}  // namespace scaling

// In place of the library's own; the forms for arrays come here, too.
void* operator new(std::size_t size, const std::nothrow_t& /*wish*/) noexcept
{
    ++taken.pieces;
    taken.bytes += size;
    return std::malloc(size > 0 ? size : 1);
}

void* operator new(std::size_t size)
{
    if (void* const memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}
