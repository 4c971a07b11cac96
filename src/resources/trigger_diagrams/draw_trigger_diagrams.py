#!/usr/bin/env python3
"""Draws the timing diagrams of the Trigger page: draw_trigger_diagrams.py [--check]

Fourteen bitmaps of 48 x 48 pixels with 16 colors, beside this script: seven trigger modes, each for a low-active signal
(the camera's own polarity) and for an inverted, high-active one. In each picture time runs to the right; above runs
the signal at the trigger input, what the camera reacts to drawn in red; below stand the exposures that it causes, in
a common outline where several make one picture.
With --check nothing is written: the files must hold what the script draws.
"""

import pathlib
import struct
import sys

SIZE = 48
FOLDER = pathlib.Path(__file__).resolve().parent

# Color number: red, green, blue. No color is one that Windows replaces by a system color when it loads a picture.
PAPER, FRAME, TEXT, SIGNAL, ACTIVE, IDLE, GUIDE, LIGHT, LIGHT_EDGE = range(9)
PALETTE = [
    (255, 255, 255),
    (160, 164, 170),
    (40, 40, 44),
    (0, 82, 165),
    (214, 32, 32),
    (150, 156, 164),
    (176, 182, 190),
    (255, 200, 80),
    (176, 116, 0),
]
PALETTE += [(0, 0, 0)] * (16 - len(PALETTE))

LETTERS = {
    "1": ("010", "110", "010", "010", "111"),
    "N": ("10001", "11001", "10101", "10011", "10001"),
    "t": ("010", "111", "010", "010", "011"),
    "x": ("000", "101", "010", "101", "000"),
    ".": ("0", "0", "0", "0", "1"),
}

TOP, BOTTOM = 11, 20  # the two levels of the signal
BAR_TOP, BAR_BOTTOM = 27, 34
OUTLINE_TOP, OUTLINE_BOTTOM = BAR_TOP - 2, BAR_BOTTOM + 2
LEFT, RIGHT = 3, 44
NOTE = 38  # the line below the exposures, 7 pixels high


class Picture:
    def __init__(self, inverted):
        self.pixels = [[PAPER] * SIZE for _ in range(SIZE)]
        self.idle, self.active = (BOTTOM, TOP) if inverted else (TOP, BOTTOM)
        self.box(0, 0, SIZE - 1, SIZE - 1, FRAME)

    def dot(self, x, y, color):
        self.pixels[y][x] = color

    def line(self, x0, y0, x1, y1, color, step=1):
        """A level or upright line; every `step`-th pixel of it."""
        for y in range(min(y0, y1), max(y0, y1) + 1):
            for x in range(min(x0, x1), max(x0, x1) + 1):
                if (x - x0 + y - y0) % step == 0:
                    self.dot(x, y, color)

    def box(self, x0, y0, x1, y1, edge, fill=None):
        if fill is not None:
            for y in range(y0, y1 + 1):
                self.line(x0, y, x1, y, fill)
        self.line(x0, y0, x1, y0, edge)
        self.line(x0, y1, x1, y1, edge)
        self.line(x0, y0, x0, y1, edge)
        self.line(x1, y0, x1, y1, edge)

    def text(self, x, y, text, color=TEXT):
        """Letters of 5 pixels' height from x, y on; returns the first free column."""
        for letter in text:
            if letter == " ":
                x += 2
                continue
            rows = LETTERS[letter]
            for dy, row in enumerate(rows):
                for dx, bit in enumerate(row):
                    if bit == "1":
                        self.dot(x + dx, y + dy, color)
            x += len(rows[0]) + 1
        return x

    def signal(self, pulses, color=SIGNAL):
        """The signal with active pulses [(start, end), ...]."""
        at = LEFT
        for start, end in pulses:
            self.line(at, self.idle, start, self.idle, color)
            self.line(start, self.idle, start, self.active, color)
            self.line(start, self.active, end, self.active, color)
            self.line(end, self.active, end, self.idle, color)
            at = end
        self.line(at, self.idle, RIGHT, self.idle, color)

    def edge(self, x):
        """Marks an edge into the active level that the camera reacts to: red, two pixels wide, with an arrowhead."""
        self.line(x, self.idle, x, self.active, ACTIVE)
        self.line(x + 1, self.idle, x + 1, self.active, ACTIVE)
        middle = (TOP + BOTTOM) // 2
        towards = 1 if self.active > self.idle else -1
        for i in range(4):
            y = middle + towards * (2 - i)
            self.line(x - i, y, x + 1 + i, y, ACTIVE)

    def level(self, start, end):
        """Marks an active level that the camera follows: red, three pixels high."""
        inward = -1 if self.active > self.idle else 1
        for i in range(3):
            self.line(start, self.active + i * inward, end, self.active + i * inward, ACTIVE)
        self.line(start, self.idle, start, self.active, ACTIVE)
        self.line(end, self.idle, end, self.active, ACTIVE)

    def guide(self, x, bottom=BAR_TOP - 1):
        """Leads the eye from the signal to the exposures."""
        self.line(x, BOTTOM + 2, x, bottom, GUIDE, 2)

    def exposure(self, start, end):
        self.box(start, BAR_TOP, end, BAR_BOTTOM, LIGHT_EDGE, LIGHT)

    def unended_exposure(self, start, end):
        """An exposure that goes on beyond the picture."""
        self.exposure(start, end)
        self.line(end, BAR_TOP + 1, end, BAR_BOTTOM - 1, LIGHT)

    def outline(self, start, end):
        """Holds exposures together that make one picture."""
        self.box(start, OUTLINE_TOP, end, OUTLINE_BOTTOM, TEXT)

    def span(self, start, end, note, top=NOTE):
        """A dimension line below the exposures, with a note in its middle."""
        width = sum(len(LETTERS[letter][0]) + 1 for letter in note) - 1
        middle = top + 2
        x = (start + end - width) // 2 + 1
        self.line(start, top - 1, start, top + 5, TEXT)
        self.line(end, top - 1, end, top + 5, TEXT)
        self.line(start, middle, x - 2, middle, TEXT)
        self.line(x + width + 1, middle, end, middle, TEXT)
        self.text(x, top, note)

    def bytes(self):
        """The file: header, palette, rows from the bottom up, two pixels a byte."""
        rows = b"".join(
            bytes(row[x] << 4 | row[x + 1] for x in range(0, SIZE, 2)) for row in reversed(self.pixels)
        )
        palette = b"".join(struct.pack("<4B", blue, green, red, 0) for red, green, blue in PALETTE)
        start = 14 + 40 + len(palette)
        info = struct.pack("<IiiHHIIiiII", 40, SIZE, SIZE, 1, 4, 0, len(rows), 0, 0, 16, 16)
        return struct.pack("<2sIHHI", b"BM", start + len(rows), 0, 0, start) + info + palette + rows


def mode0(picture):
    """One edge starts an exposure; its length t is the shutter's, whatever the pulse does."""
    picture.signal([(10, 19)])
    picture.edge(10)
    picture.guide(10)
    picture.exposure(10, 38)
    picture.span(10, 38, "t")


def mode1(picture):
    """The exposure lasts as long as the active level."""
    picture.signal([(10, 37)])
    picture.level(10, 37)
    picture.guide(10)
    picture.guide(37)
    picture.exposure(10, 37)


def mode2(picture):
    """The first edge starts the exposure, the N-th ends it."""
    picture.signal([(7, 12), (17, 22), (27, 32), (38, 42)])
    picture.edge(7)
    picture.edge(38)
    picture.text(6, 4, "1")
    picture.text(36, 4, "N")
    picture.guide(7)
    picture.guide(38)
    picture.exposure(7, 38)


def mode3(picture):
    """The camera triggers itself every N cycles (ticks); the input, dashed, does not matter."""
    input_level = picture.idle - 5  # well above the ticks in either polarity
    picture.line(LEFT, input_level, RIGHT, input_level, IDLE, 2)
    for x in range(5, 45, 6):
        counts = x in (5, 35)
        picture.line(x, 22 if counts else 24, x, 26, ACTIVE if counts else SIGNAL)
    picture.line(LEFT, 26, RIGHT, 26, SIGNAL)
    picture.exposure(5, 16)
    picture.unended_exposure(35, RIGHT)
    picture.span(5, 35, "N")


def mode4(picture):
    """Each of N edges adds an exposure of the shutter's length to one picture."""
    for start in (6, 20, 34):
        picture.exposure(start, start + 9)
        picture.guide(start, OUTLINE_TOP - 1)
    picture.outline(4, 45)
    picture.signal([(6, 12), (20, 26), (34, 40)])
    for start in (6, 20, 34):
        picture.edge(start)
    picture.span(4, 45, "Nx", NOTE + 1)


def mode5(picture):
    """Each of N active levels adds an exposure of its own length to one picture."""
    pulses = [(5, 14), (20, 25), (31, 42)]
    picture.signal(pulses)
    for start, end in pulses:
        picture.level(start, end)
        picture.guide(start, OUTLINE_TOP - 1)
        picture.guide(end, OUTLINE_TOP - 1)
        picture.exposure(start, end)
    picture.outline(3, 44)
    picture.span(3, 44, "Nx", NOTE + 1)


def mode15(picture):
    """One edge starts a whole series of pictures."""
    picture.signal([(6, 15)])
    picture.edge(6)
    picture.guide(6)
    for start in (6, 16, 26):
        picture.exposure(start, start + 7)
    for x in (37, 40, 43):
        picture.dot(x, BAR_BOTTOM - 3, LIGHT_EDGE)
        picture.dot(x, BAR_BOTTOM - 4, LIGHT_EDGE)


MODES = (mode0, mode1, mode2, mode3, mode4, mode5, mode15)


def main(arguments):
    if arguments not in ([], ["--check"]):
        sys.exit(__doc__)
    stale = []
    for draw in MODES:
        for inverted in (False, True):
            picture = Picture(inverted)
            draw(picture)
            file = FOLDER / (draw.__name__ + ("_inverted" if inverted else "") + ".bmp")
            if not arguments:
                file.write_bytes(picture.bytes())
            elif not file.exists() or file.read_bytes() != picture.bytes():
                stale.append(file.name)
    if stale:
        sys.exit("not what the script draws: " + ", ".join(stale))


if __name__ == "__main__":
    main(sys.argv[1:])
