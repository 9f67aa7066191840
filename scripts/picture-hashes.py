#!/usr/bin/env python3
"""Hashes of the decoded pixels of every code type's demo value in all four rotations.

Run before and after a change to the drawing or the PNG step: the two lists must be the same.
    scripts/picture-hashes.py build/tools/cli/velko-barcode > before.txt
With --bytes the PNG files themselves are hashed, for a change that must not move a byte.
"""
import hashlib
import struct
import subprocess
import sys
import tempfile
import zlib

TYPES = range(25)
ROTATIONS = (0, 90, 180, 270)
# Size and colours: the error picture, a label, and a large coloured one with a clear background.
VARIANTS = ((150, 100, ()), (420, 260, ()),
            (900, 700, ("BarColor=4278190335", "TextColor=4278255360", "BgTransparent=true")))
CHANNELS = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}


def paeth(a, b, c):
    p = a + b - c
    pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
    if pa <= pb and pa <= pc:
        return a
    return b if pb <= pc else c


def unfilter(data, height, stride, bpp):
    rows, prev, pos = [], bytearray(stride), 0
    for _ in range(height):
        kind, line = data[pos], bytearray(data[pos + 1:pos + 1 + stride])
        pos += 1 + stride
        for i in range(stride):
            left = line[i - bpp] if i >= bpp else 0
            up, corner = prev[i], prev[i - bpp] if i >= bpp else 0
            predictor = (0, left, up, (left + up) // 2, paeth(left, up, corner))[kind]
            line[i] = (line[i] + predictor) & 0xFF
        rows.append(line)
        prev = line
    return rows


def rgba_pixels(png):
    pos, idat, palette, alpha = 8, b"", [], b""
    while pos < len(png):
        length, kind = struct.unpack(">I4s", png[pos:pos + 8])
        body = png[pos + 8:pos + 8 + length]
        pos += 12 + length
        if kind == b"IHDR":
            width, height, depth, colour = struct.unpack(">IIBB", body[:10])
        elif kind == b"PLTE":
            palette = [tuple(body[i:i + 3]) for i in range(0, len(body), 3)]
        elif kind == b"tRNS":
            alpha = body
        elif kind == b"IDAT":
            idat += body
    channels = CHANNELS[colour]
    stride = (width * channels * depth + 7) // 8
    rows = unfilter(zlib.decompress(idat), height, stride, max(1, channels * depth // 8))
    out = bytearray()
    for line in rows:
        if depth < 8:
            samples = [(line[(x * depth) // 8] >> (8 - depth - (x * depth) % 8)) & ((1 << depth) - 1)
                       for x in range(width)]
        else:
            samples = line
        for x in range(width):
            if colour == 3:
                index = samples[x]
                out += bytes(palette[index]) + bytes([alpha[index] if index < len(alpha) else 255])
            elif colour == 0:
                grey = samples[x] * 255 // ((1 << depth) - 1)
                out += bytes([grey, grey, grey, 255])
            elif colour == 4:
                out += bytes([samples[2 * x]] * 3 + [samples[2 * x + 1]])
            elif colour == 2:
                out += bytes(samples[3 * x:3 * x + 3]) + b"\xff"
            else:
                out += bytes(samples[4 * x:4 * x + 4])
    return width, height, bytes(out)


def main():
    whole_files = "--bytes" in sys.argv[1:]
    tool = [arg for arg in sys.argv[1:] if arg != "--bytes"][0]
    with tempfile.TemporaryDirectory() as folder:
        path = folder + "/p.png"
        for width, height, colours in VARIANTS:
            for rotation in ROTATIONS:
                for code_type in TYPES:
                    subprocess.run([tool, "-q", "-t", str(code_type), "-s", f"Width={width}",
                                    "-s", f"Height={height}", "-s", f"CanvasRotation={rotation}",
                                    *[arg for c in colours for arg in ("-s", c)], "-o", path],
                                   check=False, stderr=subprocess.DEVNULL)
                    with open(path, "rb") as file:
                        png = file.read()
                    w, h, pixels = rgba_pixels(png)
                    digest = hashlib.sha256(png if whole_files else pixels).hexdigest()[:16]
                    print(f"{width}x{height}{'c' if colours else ''} rot {rotation:3} type {code_type:2}: {w}x{h} {digest}")


if __name__ == "__main__":
    main()
