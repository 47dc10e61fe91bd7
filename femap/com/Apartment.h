// COM on this thread for as long as the object lives; every object of FEMAP's must be gone before.
#pragma once

#include "windows/Text.h"

#include <windows.h>

#include <objbase.h>
#include <stdexcept>

namespace femap::com
{

class Apartment
{
public:
    /// Raises std::runtime_error when COM cannot be initialised.
    Apartment()
    {
        const HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        if (FAILED(result))
            throw std::runtime_error("COM could not be initialised: " + windows::describe(result));
    }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

}  // namespace femap::com
