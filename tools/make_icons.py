#!/usr/bin/env python3
"""Draws the library's icons and writes them as .ico files.

    make_icons.py OUTPUT_DIR

Each icon is drawn from simple shapes (discs, rings, strokes along arcs and
lines), four by four samples per pixel for smooth edges, and stored as a
32x32 icon with 32-bit colour and alpha.
"""
import math
import os
import struct
import sys

SIZE = 32
SAMPLES = 4


def distance_to_segment(px, py, ax, ay, bx, by):
    dx, dy = bx - ax, by - ay
    length2 = dx * dx + dy * dy
    t = 0.0 if length2 == 0 else max(0.0, min(1.0, ((px - ax) * dx + (py - ay) * dy) / length2))
    cx, cy = ax + t * dx, ay + t * dy
    return math.hypot(px - cx, py - cy)


def arc_points(cx, cy, radius, start_deg, end_deg, steps=48):
    """Points along an arc; angles counter-clockwise from the right, y down."""
    points = []
    for i in range(steps + 1):
        angle = math.radians(start_deg + (end_deg - start_deg) * i / steps)
        points.append((cx + radius * math.cos(angle), cy - radius * math.sin(angle)))
    return points


def near_polyline(px, py, points, half_width):
    return any(distance_to_segment(px, py, *points[i], *points[i + 1]) <= half_width
               for i in range(len(points) - 1))


def question_mark_colour(x, y):
    """RGBA of one sample of the question mark icon, or None outside."""
    centre = SIZE / 2
    radius = math.hypot(x - centre, y - centre)
    if radius > 15.2:
        return None
    blue = (30, 90, 168)
    if radius > 13.6:
        return blue + (255,)
    hook = arc_points(16.0, 11.6, 5.0, 160.0, -50.0) + [(16.0, 18.2), (16.0, 20.0)]
    if near_polyline(x, y, hook, 1.75) or math.hypot(x - 16.0, y - 24.6) <= 2.0:
        return blue + (255,)
    # A light disc, a little darker towards the lower right.
    shade = int(18 * (x + y) / (2 * SIZE))
    return (244 - shade, 248 - shade, 255 - shade // 2, 255)


ICONS = {
    "message_box_question.ico": question_mark_colour,
}


def render(colour_at):
    """Rows of RGBA pixels, top row first, each the average of its samples."""
    rows = []
    for py in range(SIZE):
        row = []
        for px in range(SIZE):
            r = g = b = a = 0
            for sy in range(SAMPLES):
                for sx in range(SAMPLES):
                    sample = colour_at(px + (sx + 0.5) / SAMPLES, py + (sy + 0.5) / SAMPLES)
                    if sample is None:
                        continue
                    sa = sample[3]
                    r += sample[0] * sa
                    g += sample[1] * sa
                    b += sample[2] * sa
                    a += sa
            count = SAMPLES * SAMPLES
            if a == 0:
                row.append((0, 0, 0, 0))
            else:
                row.append((r // a, g // a, b // a, a // count))
        rows.append(row)
    return rows


def ico_bytes(rows):
    """One 32x32 image, 32 bits per pixel, with its AND mask."""
    pixels = bytearray()
    for row in reversed(rows):  # bottom-up
        for r, g, b, a in row:
            pixels += bytes((b, g, r, a))
    mask_stride = ((SIZE + 31) // 32) * 4
    mask = bytearray()
    for row in reversed(rows):
        bits = bytearray(mask_stride)
        for x, (_, _, _, a) in enumerate(row):
            if a == 0:
                bits[x // 8] |= 0x80 >> (x % 8)
        mask += bits
    header = struct.pack("<IiiHHIIiiII", 40, SIZE, SIZE * 2, 1, 32, 0, len(pixels) + len(mask), 0, 0, 0, 0)
    image = header + pixels + mask
    directory = struct.pack("<HHH", 0, 1, 1)
    entry = struct.pack("<BBBBHHII", SIZE, SIZE, 0, 0, 1, 32, len(image), 6 + 16)
    return directory + entry + image


def main(argv):
    if len(argv) != 2:
        sys.stderr.write("usage: make_icons.py OUTPUT_DIR\n")
        return 2
    out_dir = argv[1]
    os.makedirs(out_dir, exist_ok=True)
    for name, colour_at in ICONS.items():
        data = ico_bytes(render(colour_at))
        path = os.path.join(out_dir, name)
        with open(path + ".tmp", "wb") as f:
            f.write(data)
        os.replace(path + ".tmp", path)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
