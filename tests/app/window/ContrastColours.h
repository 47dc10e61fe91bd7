// Windows' colours as its contrast themes have them, for as long as this lives.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>

namespace driver
{

inline constexpr COLORREF black = RGB(0, 0, 0);
inline constexpr COLORREF white = RGB(255, 255, 255);
inline constexpr COLORREF green = RGB(0, 255, 0);

/// Light on black, what is off in green.
class ContrastColours
{
public:
    ContrastColours()
    {
        for (std::size_t i = 0; i < which.size(); ++i)
            before_[i] = GetSysColor(which[i]);
        set(contrast);
    }
    ~ContrastColours() { set(before_); }
    ContrastColours(const ContrastColours&) = delete;
    ContrastColours& operator=(const ContrastColours&) = delete;

private:
    static constexpr std::array which{COLOR_BTNFACE, COLOR_BTNTEXT, COLOR_WINDOW, COLOR_WINDOWTEXT,
                                      COLOR_GRAYTEXT};
    static constexpr std::array<COLORREF, which.size()> contrast{black, white, black, white, green};

    static void set(const std::array<COLORREF, which.size()>& colours)
    {
        SetSysColors(static_cast<int>(which.size()), which.data(), colours.data());
    }

    std::array<COLORREF, which.size()> before_{};
};

}  // namespace driver
