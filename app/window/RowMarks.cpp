#include "app/window/RowMarks.h"

#include <array>
#include <iterator>

namespace window
{

namespace
{

// Twips.
constexpr int pictureWidth = 150;
constexpr int pictureHeight = 195;  // that of a line of text, so that the mark stands amid it
constexpr int thickness = 15;       // of a ring's line

// With the pen and the brush that the device has.
void drawCircle(HDC device, const RECT& square)
{
    Ellipse(device, square.left, square.top, square.right, square.bottom);
}

void drawTriangle(HDC device, const RECT& square)
{
    const POINT corners[] = {{(square.left + square.right) / 2, square.top},
                             {square.right - 1, square.bottom - 1},
                             {square.left, square.bottom - 1}};
    Polygon(device, corners, static_cast<int>(std::size(corners)));
}

void drawCross(HDC device, const RECT& square)
{
    const LONG arm = (square.right - square.left) / 4;
    for (LONG shift = 0; shift <= arm; ++shift) {
        MoveToEx(device, square.left + shift, square.top, nullptr);
        LineTo(device, square.right - arm + shift, square.bottom);
        MoveToEx(device, square.right - arm + shift - 1, square.top, nullptr);
        LineTo(device, square.left + shift - 1, square.bottom);
    }
}

struct Shape
{
    Mark mark;
    bool isFilled;
    void (*draw)(HDC device, const RECT& square);
};

// In the order of marks.
constexpr std::array shapes{
    Shape{Mark::NotApplied, false, drawCircle}, Shape{Mark::New, true, drawCircle},
    Shape{Mark::Warning, true, drawTriangle}, Shape{Mark::Error, false, drawCross}};

HBITMAP blank(HDC screen, SIZE size, COLORREF background)
{
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, size.cx, size.cy);
    const HDC device = CreateCompatibleDC(screen);
    const HGDIOBJ before = SelectObject(device, bitmap);
    const HBRUSH brush = CreateSolidBrush(background);
    const RECT all{0, 0, size.cx, size.cy};
    FillRect(device, &all, brush);
    DeleteObject(brush);
    SelectObject(device, before);
    DeleteDC(device);
    return bitmap;
}

void draw(const Shape& shape, HDC screen, HBITMAP bitmap, SIZE size, int line, COLORREF colour)
{
    const HDC device = CreateCompatibleDC(screen);
    const HGDIOBJ bitmapBefore = SelectObject(device, bitmap);
    const HPEN pen = CreatePen(PS_INSIDEFRAME, line, colour);
    const HBRUSH brush = CreateSolidBrush(colour);
    const HGDIOBJ penBefore = SelectObject(device, pen);
    const HGDIOBJ brushBefore = SelectObject(
        device, shape.isFilled ? static_cast<HGDIOBJ>(brush) : GetStockObject(NULL_BRUSH));
    const LONG edge = size.cx / 8;
    const LONG top = (size.cy - size.cx) / 2 + edge;
    shape.draw(device, {edge, top, size.cx - edge, top + size.cx - 2 * edge});
    for (const HGDIOBJ each : {brushBefore, penBefore, bitmapBefore})
        SelectObject(device, each);
    DeleteObject(brush);
    DeleteObject(pen);
    DeleteDC(device);
}

}  // namespace

MarkPictures::MarkPictures(Pixels pixels)
{
    const SIZE size{pixels.fromTwips(pictureWidth), pixels.fromTwips(pictureHeight)};
    const COLORREF colour = GetSysColor(COLOR_WINDOWTEXT);
    const COLORREF background = colour ^ RGB(255, 255, 255);  // never the same
    images_ = ImageList_Create(size.cx, size.cy, ILC_COLOR24 | ILC_MASK,
                               static_cast<int>(shapes.size()) + 1, 0);
    const HDC screen = GetDC(nullptr);
    const HBITMAP none = blank(screen, size, background);
    ImageList_AddMasked(images_, none, background);
    DeleteObject(none);
    for (const Shape& shape : shapes) {
        const HBITMAP bitmap = blank(screen, size, background);
        draw(shape, screen, bitmap, size, pixels.fromTwips(thickness), colour);
        ImageList_AddMasked(images_, bitmap, background);
        DeleteObject(bitmap);
    }
    ReleaseDC(nullptr, screen);
}

}  // namespace window
