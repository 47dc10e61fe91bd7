// The font of the user's message boxes, deleted with its owner.
#pragma once

#include <windows.h>

namespace windows
{

class Font
{
public:
    /// The font at a resolution.
    explicit Font(UINT dotsPerInch);
    ~Font() { DeleteObject(font_); }
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    HFONT handle() const { return font_; }

private:
    HFONT font_;
};

}  // namespace windows
