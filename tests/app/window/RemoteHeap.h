#pragma once

#include <windows.h>

#include <optional>

namespace driver
{

/// The heap from which a program on the machine has its objects and texts.
class RemoteHeap
{
public:
    /// process: as CreateProcess gives it, started and running.
    explicit RemoteHeap(HANDLE process) : process_(process) {}

    /// Whether all its blocks are as the heap left them. With the heap's checks switched on, as
    /// tools/run-wine-tests.sh does, a byte behind a block's end counts as well. Nothing for a
    /// program that ends meanwhile.
    std::optional<bool> isSound() const;
    /// A fresh block of this size, so that a test can spoil it.
    char* allocate(std::size_t size) const;

private:
    /// What the function of the C library returns there. Nothing as above.
    std::optional<DWORD> call(const char* function, std::size_t argument) const;

    HANDLE process_;
};

}  // namespace driver
