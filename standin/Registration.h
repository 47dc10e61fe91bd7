// The stand-in's entries under "femap.model" in the registry: machine-wide under Wine, which looks
// nowhere else, and the user's own on Windows.
#pragma once

#include <windows.h>

#include <string>

namespace standin
{

/// {7C1B5A64-2D0E-4B53-9E0B-5D6F3A1C8E27}: the stand-in's own class.
extern const CLSID standinClass;

class Registration
{
public:
    /// Raises RuntimeError where a femap.model that is not the stand-in is registered.
    Registration();

    bool isThere() const;
    /// Raises RuntimeError when they cannot be written.
    void add() const;
    void remove() const;

private:
    HKEY root_;
};

}  // namespace standin
