#!/usr/bin/env python3
"""Draws the picture at the left of the installer's last page: the program's icon on its own blue.

Usage: make-picture.py FILE.bmp. Needs nothing but Python.
"""
import struct
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "app" / "window"))
import make_icon  # noqa: E402

WIDTH, HEIGHT = 164, 314  # what the page has room for
ICON = 128
TOP = 60


def rows():
    """From the top, each of (red, green, blue)."""
    left = (WIDTH - ICON) // 2
    for y in range(HEIGHT):
        row = [make_icon.BACKGROUND] * WIDTH
        if TOP <= y < TOP + ICON:
            for x in range(ICON):
                red, green, blue, opacity = make_icon.pixel(x, y - TOP, ICON)
                if opacity == 255:
                    row[left + x] = (red, green, blue)
        yield row


def bitmap():
    """A Windows bitmap: bottom row first, each filled up to whole words."""
    fill = b"\0" * (-3 * WIDTH % 4)
    lines = b"".join(
        b"".join(struct.pack("3B", blue, green, red) for red, green, blue in row) + fill
        for row in reversed(list(rows())))
    size = 14 + 40
    return (struct.pack("<2sIHHI", b"BM", size + len(lines), 0, 0, size)
            + struct.pack("<IiiHHIIiiII", 40, WIDTH, HEIGHT, 1, 24, 0, len(lines), 0, 0, 0, 0)
            + lines)


if __name__ == "__main__":
    Path(sys.argv[1]).write_bytes(bitmap())
