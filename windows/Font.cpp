#include "windows/Font.h"

#include <string_view>

namespace windows
{

namespace
{

HFONT fontOf(UINT dotsPerInch, Font::Kind kind)
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                                   dotsPerInch) == FALSE)
        return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    LOGFONTW& font = metrics.lfMessageFont;
    if (kind == Font::Kind::FixedPitch) {
        constexpr std::wstring_view face = L"Consolas";
        font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;  // where that one is missing
        font.lfFaceName[face.copy(font.lfFaceName, LF_FACESIZE - 1)] = L'\0';
    }
    return CreateFontIndirectW(&font);
}

}  // namespace

Font::Font(UINT dotsPerInch, Kind kind) : font_(fontOf(dotsPerInch, kind)) {}

}  // namespace windows
