// Converts the form's lengths (twips) to the screen's (pixels) and back.
#pragma once

#include <windows.h>

namespace window
{

constexpr int twipsPerInch = 1440;

class Pixels
{
public:
    explicit Pixels(UINT dotsPerInch) : dotsPerInch_(static_cast<int>(dotsPerInch)) {}

    int fromTwips(int twips) const { return MulDiv(twips, dotsPerInch_, twipsPerInch); }
    int toTwips(int pixels) const { return MulDiv(pixels, twipsPerInch, dotsPerInch_); }
    UINT dotsPerInch() const { return static_cast<UINT>(dotsPerInch_); }

private:
    int dotsPerInch_;
};

}  // namespace window
