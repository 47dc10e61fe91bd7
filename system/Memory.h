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

/// Runs a step that takes memory; raises RuntimeError when there is none. What stands
/// before the reason says what was to be done, and with which file.
template <class Step>
auto whileMemoryLasts(const std::string& before, Step&& step)
{
    try {
        return step();
    }
    catch (const std::bad_alloc&) {
        throw RuntimeError(ErrorNumber::ObjectFailed, before + noMemory);
    }
}

/// Why a program has to end; takes no memory itself.
inline const char* reasonOf(const std::exception& error)
{
    return dynamic_cast<const std::bad_alloc*>(&error) != nullptr ? noMemory : error.what();
}

}  // namespace sys
