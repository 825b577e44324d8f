#!/usr/bin/python3
"""Draws the four lamps of the traffic light as icons: lampen.py DIRECTORY

Each lamp is told by its shape as well as by its colour: an empty ring, a disc with a tick, a triangle with an exclamation
mark, an octagon with a minus. An icon has 256 colours and a mask of one bit, so it has no half-transparent edges; a dark
rim keeps the shape clear on any background. NAME.ico is 16 x 16 pixels and 1,406 bytes, NAME32.ico the same drawing at
twice the resolution, for screens of 200 %.
"""

import math
import os
import struct
import sys

GRID = 16  # the drawings' own unit: one pixel of the small icon
SAMPLES = 8  # a side, per pixel
WHITE = (255, 255, 255)

# A shape is a function that gives the signed distance of a point from the shape's edge; inside, it is negative.


def disc(radius, centre_x=8, centre_y=8):
    return lambda x, y: math.hypot(x - centre_x, y - centre_y) - radius


def polygon(*corners):
    """A convex polygon, its corners clockwise as seen on the screen."""
    sides = []
    for (x0, y0), (x1, y1) in zip(corners, corners[1:] + corners[:1]):
        length = math.hypot(x1 - x0, y1 - y0)
        sides.append((x0, y0, (y1 - y0) / length, (x0 - x1) / length))
    return lambda x, y: max((x - x0) * nx + (y - y0) * ny for x0, y0, nx, ny in sides)


def octagon(half):
    cut = half * math.tan(math.pi / 8)
    near, far = 8 - half, 8 + half
    return polygon((8 - cut, near), (8 + cut, near), (far, 8 - cut), (far, 8 + cut),
                   (8 + cut, far), (8 - cut, far), (near, 8 + cut), (near, 8 - cut))


def stroke(width, *points):
    def distance(x, y):
        def to_line(a, b):
            dx, dy = b[0] - a[0], b[1] - a[1]
            along = ((x - a[0]) * dx + (y - a[1]) * dy) / (dx * dx + dy * dy)
            along = min(1, max(0, along))
            return math.hypot(x - a[0] - along * dx, y - a[1] - along * dy)
        return min(to_line(a, b) for a, b in zip(points, points[1:])) - width / 2
    return distance


# Name: outline, colour of the rim (one unit wide), colour of the lamp, signs on it with their colours.
LAMPS = {
    "Ampelgrau": (disc(7.9), (84, 84, 84), (168, 168, 168), [(disc(3.5), (84, 84, 84)), (disc(2.5), (232, 232, 232))]),
    "Ampelgruen": (disc(7.9), (0, 80, 16), (22, 156, 48), [(stroke(2, (4.5, 8.5), (7, 11), (11.5, 5.5)), WHITE)]),
    "Ampelgelb": (polygon((8, -0.6), (16, 15), (0, 15)), (110, 76, 0), (255, 204, 0),
                  [(stroke(2, (8, 5.5), (8, 9.2)), (40, 28, 0)), (disc(1, 8, 12), (40, 28, 0))]),
    "Ampelrot": (octagon(7.5), (110, 0, 0), (220, 28, 28), [(stroke(2, (4.5, 8), (11.5, 8)), WHITE)]),
}


def pixel(lamp, left, top, step):
    """The colour of a pixel, or None where more than half of it lies outside the lamp."""
    outline, rim, colour, signs = lamp
    found = []
    for row in range(SAMPLES):
        for column in range(SAMPLES):
            x, y = left + (column + 0.5) * step / SAMPLES, top + (row + 0.5) * step / SAMPLES
            if outline(x, y) > 0:
                continue
            shown = rim if outline(x, y) > -1 else colour
            for sign, sign_colour in signs:
                if sign(x, y) <= 0:
                    shown = sign_colour
            found.append(shown)
    if 2 * len(found) < SAMPLES * SAMPLES:
        return None
    return tuple(round(sum(part) / len(found)) for part in zip(*found))


def icon(lamp, size):
    """The bytes of an icon file with one picture. Rows run from the bottom up and are padded to four bytes."""
    step = GRID / size
    rows = [[pixel(lamp, x * step, y * step, step) for x in range(size)] for y in reversed(range(size))]
    palette = [(0, 0, 0)] + sorted({p for row in rows for p in row if p} - {(0, 0, 0)})  # transparent pixels are black
    assert len(palette) <= 256, "too many colours"
    palette_bytes = b"".join(struct.pack("<4B", b, g, r, 0) for r, g, b in palette).ljust(256 * 4, b"\0")
    pixels = b"".join(bytes(palette.index(p or (0, 0, 0)) for p in row) for row in rows)
    mask = b""
    for row in rows:
        bits = int("".join("0" if p else "1" for p in row), 2)
        mask += bits.to_bytes(size // 8, "big").ljust((size + 31) // 32 * 4, b"\0")
    picture = struct.pack("<3I2H6I", 40, size, 2 * size, 1, 8, 0, len(pixels) + len(mask), 0, 0, 256, 0)
    picture += palette_bytes + pixels + mask
    return struct.pack("<3H4B2H2I", 0, 1, 1, size, size, 0, 0, 1, 8, len(picture), 22) + picture


def main(directory):
    for name, lamp in LAMPS.items():
        for size, suffix in ((16, ""), (32, "32")):
            with open(os.path.join(directory, f"{name}{suffix}.ico"), "wb") as file:
                file.write(icon(lamp, size))


if __name__ == "__main__":
    main(sys.argv[1])
