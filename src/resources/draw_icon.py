#!/usr/bin/env python3
"""Draws the module's icon: draw_icon.py [--check]

A camera seen from the front, in 16, 32 and 48 pixels' width, written to kolmfluxor.ico beside this script. With
--check nothing is written: the file must hold what the script draws.
"""

import math
import pathlib
import struct
import sys

FILE = pathlib.Path(__file__).resolve().parent / "kolmfluxor.ico"
SIZES = (16, 32, 48)
SAMPLES = 4  # a pixel is the mean of 4 x 4 points


def inside_box(x, y, left, top, right, bottom, radius):
    """Whether a point lies in a box with round corners."""
    dx = max(left + radius - x, x - right + radius, 0)
    dy = max(top + radius - y, y - bottom + radius, 0)
    return left <= x <= right and top <= y <= bottom and math.hypot(dx, dy) <= radius


def color_at(x, y):
    """Red, green, blue and opacity at a point of the unit square; shapes from the front to the back."""
    lens = math.hypot(x - 0.5, y - 0.56)
    if math.hypot(x - 0.43, y - 0.49) < 0.055:
        return (255, 255, 255, 255)  # a gleam on the lens
    if lens < 0.13:
        return (0, 52, 110, 255)
    if lens < 0.21:
        return (0, 110, 200, 255)
    if lens < 0.31:
        return (236, 240, 244, 255)
    if math.hypot(x - 0.83, y - 0.36) < 0.055:
        return (255, 190, 60, 255)  # the light that says that it works
    if inside_box(x, y, 0, 0.1875, 1, 0.9375, 0.12):
        return (58, 66, 78, 255)
    if inside_box(x, y, 0.3125, 0.0625, 0.6875, 0.3, 0.06):
        return (38, 44, 54, 255)
    return (0, 0, 0, 0)


def pixel(column, row, size):
    """Blue, green, red and opacity; colors count by their opacity, so that edges do not darken."""
    points = [
        color_at((column + (i + 0.5) / SAMPLES) / size, (row + (j + 0.5) / SAMPLES) / size)
        for i in range(SAMPLES)
        for j in range(SAMPLES)
    ]
    opacity = sum(point[3] for point in points)
    if opacity == 0:
        return (0, 0, 0, 0)
    red, green, blue = (sum(point[i] * point[3] for point in points) // opacity for i in range(3))
    return (blue, green, red, opacity // len(points))


def image(size):
    """One picture of the file: header, 32-bit pixels from the bottom up, and a mask for displays without opacity."""
    rows = [[pixel(column, row, size) for column in range(size)] for row in reversed(range(size))]
    mask_row_bytes = (size + 31) // 32 * 4
    masks = []
    for row in rows:
        bits = sum(1 << (mask_row_bytes * 8 - 1 - i) for i, each in enumerate(row) if each[3] < 128)
        masks.append(bits.to_bytes(mask_row_bytes, "big"))
    pixels = b"".join(struct.pack("<4B", *each) for row in rows for each in row)
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, len(pixels), 0, 0, 0, 0)
    return header + pixels + b"".join(masks)


def icon():
    images = [image(size) for size in SIZES]
    data = struct.pack("<HHH", 0, 1, len(images))
    start = len(data) + 16 * len(images)
    for size, each in zip(SIZES, images):
        data += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(each), start)
        start += len(each)
    return data + b"".join(images)


def main(arguments):
    if arguments not in ([], ["--check"]):
        sys.exit(__doc__)
    data = icon()
    if not arguments:
        FILE.write_bytes(data)
    elif not FILE.exists() or FILE.read_bytes() != data:
        sys.exit(f"not what the script draws: {FILE.name}")


if __name__ == "__main__":
    main(sys.argv[1:])
