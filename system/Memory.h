// What is told when the memory of the machine is used up, in place of the library's own word.
#pragma once

#include "system/RuntimeError.h"

#include <exception>
#include <new>
#include <string>

namespace sys
{

constexpr const char* noMemory =
    "No memory is left. Close other programs or work with fewer rows, and try again";

/// Runs a step that takes memory, with a file unless the path is empty. Raises RuntimeError when
/// there is none.
template <class Step>
auto whileMemoryLasts(const std::string& path, Step&& step)
{
    try {
        return step();
    }
    catch (const std::bad_alloc&) {
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           path.empty() ? noMemory : noMemory + (": " + path));
    }
}

/// Why a program has to end; takes no memory itself.
inline const char* reasonOf(const std::exception& error)
{
    return dynamic_cast<const std::bad_alloc*>(&error) != nullptr ? noMemory : error.what();
}

}  // namespace sys
