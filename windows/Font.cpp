#include "windows/Font.h"

namespace windows
{

namespace
{

HFONT messageFont(UINT dotsPerInch)
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                                   dotsPerInch) == FALSE)
        return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

}  // namespace

Font::Font(UINT dotsPerInch) : font_(messageFont(dotsPerInch)) {}

}  // namespace windows
