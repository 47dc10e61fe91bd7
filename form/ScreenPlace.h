// Where a window goes on the screen, in pixels, so that no part of it lies beyond an edge.
#pragma once

namespace form
{

struct ScreenPlace
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bool operator==(const ScreenPlace&) const = default;
};

/// The place of a window of this size whose middle is that of another one.
ScreenPlace centredOn(const ScreenPlace& other, int width, int height);

/// The nearest place within a screen, which may lie left of the main one or above it; smaller where
/// the screen is.
ScreenPlace keptWithin(const ScreenPlace& wanted, const ScreenPlace& screen);

}  // namespace form
