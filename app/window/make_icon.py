#!/usr/bin/env python3
"""Draws the program's icon: a bent beam over its supports, with the path of its deflection.

Usage: make_icon.py [app.ico]. Needs nothing but Python.
"""
import math
import struct
import sys
import zlib
from pathlib import Path

SIZES = (16, 20, 24, 32, 40, 48, 64, 256)
SAMPLES = 4  # per pixel and direction

BACKGROUND = (24, 62, 99)
BEAM = (255, 255, 255)
DEFLECTED = (255, 170, 60)
SUPPORT = (150, 190, 225)


def beam_height(x, depth):
    return 0.40 + depth * math.sin(math.pi * (x - 0.14) / 0.72)


def colour_at(x, y):
    """Colour of a point of the unit square; None outside the rounded corners."""
    corner = 0.18
    dx = max(corner - x, x - (1 - corner), 0)
    dy = max(corner - y, y - (1 - corner), 0)
    if math.hypot(dx, dy) > corner:
        return None
    for foot in (0.20, 0.80):
        if 0.46 < y < 0.64 and abs(x - foot) < 0.55 * (y - 0.46):
            return SUPPORT
    if 0.10 < x < 0.90 and abs(y - 0.40) < 0.055:
        return BEAM
    if 0.14 < x < 0.86 and abs(y - beam_height(x, 0.36)) < 0.05:
        return DEFLECTED
    return BACKGROUND


def pixel(column, row, size):
    """Red, green, blue, opacity, averaged over the samples."""
    hits = []
    for i in range(SAMPLES):
        for j in range(SAMPLES):
            colour = colour_at((column + (i + 0.5) / SAMPLES) / size,
                               (row + (j + 0.5) / SAMPLES) / size)
            if colour is not None:
                hits.append(colour)
    if not hits:
        return (0, 0, 0, 0)
    mean = [round(sum(hit[k] for hit in hits) / len(hits)) for k in range(3)]
    return (*mean, round(255 * len(hits) / SAMPLES**2))


def bitmap(pixels, size):
    """A device-independent bitmap: bottom row first, then the old one-bit mask."""
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    colours = b"".join(struct.pack("4B", blue, green, red, opacity)
                       for row in reversed(pixels) for red, green, blue, opacity in row)
    stride = (size + 31) // 32 * 4
    mask = b""
    for row in reversed(pixels):
        bits = 0
        for red, green, blue, opacity in row:
            bits = bits << 1 | (opacity == 0)
        mask += (bits << (stride * 8 - size)).to_bytes(stride, "big")
    return header + colours + mask


def png(pixels, size):
    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data
                + struct.pack(">I", zlib.crc32(kind + data)))

    lines = b"".join(b"\0" + b"".join(struct.pack("4B", *each) for each in row) for row in pixels)
    return (b"\x89PNG\r\n\x1a\n"
            + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(lines, 9)) + chunk(b"IEND", b""))


def icon():
    images = []
    for size in SIZES:
        pixels = [[pixel(column, row, size) for column in range(size)] for row in range(size)]
        images.append(png(pixels, size) if size == 256 else bitmap(pixels, size))
    result = struct.pack("<HHH", 0, 1, len(images))
    offset = len(result) + 16 * len(images)
    for size, image in zip(SIZES, images):
        result += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    return result + b"".join(images)


if __name__ == "__main__":
    target = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).with_name("app.ico")
    target.write_bytes(icon())
