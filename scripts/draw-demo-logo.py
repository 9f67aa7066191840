#!/usr/bin/env python3
"""Draws data/demo_logo.png, the logo of the gallery's QR label: an orange V on a navy disc,
on white, 96 x 96, opaque. Run from the top of the tree; needs only the standard library."""
import struct
import zlib

SIZE = 96
SUB = 4  # samples a side for each pixel, for smooth edges
WHITE, NAVY, ORANGE = (255, 255, 255), (20, 40, 110), (245, 130, 20)


def colour_at(x, y):
    cx = cy = SIZE / 2
    if (x - cx) ** 2 + (y - cy) ** 2 > (SIZE * 0.47) ** 2:
        return WHITE
    # The V: two strokes from the top corners of a box down to its bottom middle.
    top, bottom, half, stroke = SIZE * 0.28, SIZE * 0.74, SIZE * 0.24, SIZE * 0.085
    if top <= y <= bottom:
        reach = half * (bottom - y) / (bottom - top)
        if abs(abs(x - cx) - reach) <= stroke:
            return ORANGE
    return NAVY


def main():
    rows = []
    for py in range(SIZE):
        row = bytearray([0])
        for px in range(SIZE):
            samples = [colour_at(px + (i + 0.5) / SUB, py + (j + 0.5) / SUB)
                       for i in range(SUB) for j in range(SUB)]
            row += bytes(round(sum(s[c] for s in samples) / len(samples)) for c in range(3))
        rows.append(bytes(row))

    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data +
                struct.pack(">I", zlib.crc32(kind + data) & 0xFFFFFFFF))

    png = (b"\x89PNG\r\n\x1a\n" +
           chunk(b"IHDR", struct.pack(">IIBBBBB", SIZE, SIZE, 8, 2, 0, 0, 0)) +
           chunk(b"IDAT", zlib.compress(b"".join(rows), 9)) + chunk(b"IEND", b""))
    with open("data/demo_logo.png", "wb") as out:
        out.write(png)


if __name__ == "__main__":
    main()
