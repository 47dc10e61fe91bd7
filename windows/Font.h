// The font of the user's message boxes, and one of its size for texts of files; deleted with its
// owner.
#pragma once

#include <windows.h>

namespace windows
{

class Font
{
public:
    enum class Kind
    {
        Message,
        FixedPitch,  // each letter is as wide as the others
    };

    /// The font at a resolution.
    explicit Font(UINT dotsPerInch, Kind kind = Kind::Message);
    ~Font() { DeleteObject(font_); }
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    HFONT handle() const { return font_; }

private:
    HFONT font_;
};

}  // namespace windows
