#!/usr/bin/env python3
"""Writes the seed folders of the fuzz targets: one seed or more for every code type."""
import os
import struct
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))

# Code type, a value, and the writes that go with it; "--" takes a picture in between.
CBARCODE = [
    (0, "9638507", ["CanvasRotation=90", "TextPos=1"]),
    (1, "400638133393", ["Font=DejaVuSans", "FontSize=14", "--", "CodeShowCS=b:0"]),
    (2, "(01)04006381333931(10)ABC123", ["Width=400", "BarVerticalAlign=2"]),
    (3, "CODE-39 TEST", ["TextAlign=3", "BgTransparent=b:1", "--", "TextAlign=9"]),
    (4, "Hello, World!", ["Шрифт=DejaVuSerif", "РазмерШрифта=20", "Height=120"]),
    (5, "CODE16K 123", ["RowCount=4", "ColumnCount=0"]),
    (6, "PDF417 Кириллица", ["ECL=3", "AspectRatio=s:1:3", "Width=400"]),
    (7, "123456", ["BarColor=255", "TextColor=i:65280", "BgColor=d:16777215.5"]),
    (8, "12345678", ["CodeIsRaw=b:1", "--", "CodeIsRaw=b:0"]),
    (9, "Code39 ext!", ["CanvasRotation=180", "BarAlign=1"]),
    (10, "CODE93", ["TextVisible=b:0", "--", "TextVisible=b:1", "FontSize=300"]),
    (11, "1540014128876", ["CodeSentinel=60", "Width=300"]),
    (12, "0123456789012", ["Height=60"]),
    (13, "A40156B", ["TextPos=1", "CanvasRotation=270"]),
    (14, "40063813339312", ["Width=220"]),
    (15, "40063813339312345", ["Width=260", "Font=DejaVuSans-Bold"]),
    (16, "https://example.com/?q=Привет", ["QRErrorCorrectionLevel=3", "Height=200", "!"]),
    (17, "(01)98898765432106(3202)012345(15)991231", ["GS1DatabarRowCount=2", "Width=300"]),
    (18, "Data Matrix 18", ["Height=150"]),
    (19, "DATAMATRIX19", ["RemoveExeedBackgroud=b:1", "--"]),
    (20, "data matrix 20", ["InputDataType=0"]),
    (21, "2121212121", ["Width=150", "Height=150"]),
    (22, "Матрица 22", ["Height=150"]),
    (23, "DM23", ["#38=1", "=RE0yMw=="]),
    (24, "(01)04006381333931(17)251231", ["Height=150", "@FontAt=s:0", "@FindFont=i:5"]),
]

EXTRA = {
    "auto_value": ("auto", "4006381333931", ["@FontAt=i:0", "@FindFont=s:DejaVuSans"]),
    "refusals": ("4", "refused", ["BarAlign=7", "ТипКода=99", "AspectRatio=wide", "Font=s:",
                                  "#18=i:5", "#41=n:", "--", "CanvasMargin=-1"]),
    "base64": ("16", "", ["InputDataType=1", "=0JPQvtC70L7QstCw", "--", "=!!notbase64"]),
    "lifecycle": ("none", "", ["=4006381333931", "--", "Font=DejaVuSans", "@FontAt=i:0",
                               "@FindFont=s:DejaVuSans", "init", "=4006381333931", "--", "done",
                               "--", "Width=300", "LogoImage=s:AAAA", "init", "done", "done"]),
    "long_values": ("4", "", ["~9000=AB", "--", "CodeIsRaw=b:1", "~8002=3", "--", "CodeType=8",
                              "~12000=A", "--", "CodeAuto=b:1", "~8001=(01)"]),
}


def seed_text(kind, value, writes):
    lines = [str(kind)] + (["=" + value] if value else []) + writes
    return ("\n".join(lines) + "\n").encode("utf-8")


def chunk(tag, body):
    return struct.pack(">I", len(body)) + tag + body + struct.pack(">I", zlib.crc32(tag + body))


def png(width, height, colour_type, depth=8, palette=None, claimed=None):
    channels = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}[colour_type]
    row_bytes = (width * channels * depth + 7) // 8
    raw = b"".join(b"\0" + bytes((x * 37 + y * 11) % 256 for x in range(row_bytes))
                   for y in range(height))
    w, h = claimed or (width, height)
    out = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", w, h, depth,
                                                             colour_type, 0, 0, 0))
    if palette:
        out += chunk(b"PLTE", palette)
    return out + chunk(b"IDAT", zlib.compress(raw)) + chunk(b"IEND", b"")


LOGOS = [
    png(1, 1, 6), png(16, 16, 0), png(32, 8, 3, palette=bytes(range(48))), png(64, 64, 2),
    png(40, 30, 6), png(7, 90, 4), png(128, 128, 0, depth=1), png(20, 20, 2, depth=16),
    png(8, 8, 6)[:40], b"not a png at all", png(4, 4, 6, claimed=(60000, 60000)),
]


def main():
    folder = os.path.join(HERE, "corpus", "cbarcode")
    os.makedirs(folder, exist_ok=True)
    for kind, value, writes in CBARCODE:
        with open(os.path.join(folder, "type%02d" % kind), "wb") as f:
            f.write(seed_text(kind, value, writes))
    for name, (kind, value, writes) in EXTRA.items():
        with open(os.path.join(folder, name), "wb") as f:
            f.write(seed_text(kind, value, writes))
    folder = os.path.join(HERE, "corpus", "logo")
    os.makedirs(folder, exist_ok=True)
    for kind in range(25):
        percent = [0, 10, 20, 30, 50, 100][kind % 6]
        with open(os.path.join(folder, "type%02d" % kind), "wb") as f:
            f.write(bytes([kind, percent]) + LOGOS[kind % len(LOGOS)])


if __name__ == "__main__":
    main()
