#!/usr/bin/env python3
"""Writes the color slider's channel swatches: 16 x 16, 8-bit palette BMPs,
a solid channel color inside a dark grey border. Run once; the BMPs are kept
in resources/."""
import struct
import sys
from pathlib import Path

SWATCHES = {"swatch_red.bmp": (220, 0, 0), "swatch_green.bmp": (0, 176, 0),
            "swatch_blue.bmp": (0, 0, 230)}


def swatch(rgb):
    side = 16
    palette = [(64, 64, 64), rgb]
    rows = bytearray()
    for y in range(side):
        for x in range(side):
            edge = x in (0, side - 1) or y in (0, side - 1)
            rows.append(0 if edge else 1)
    table = b"".join(struct.pack("<BBBB", b, g, r, 0) for r, g, b in palette)
    header = struct.pack("<IiiHHIIiiII", 40, side, side, 1, 8, 0, len(rows), 2835, 2835,
                         len(palette), 0)
    offset = 14 + len(header) + len(table)
    filehdr = struct.pack("<2sIHHI", b"BM", offset + len(rows), 0, 0, offset)
    return filehdr + header + table + bytes(rows)


def main():
    out = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent / "resources")
    for name, rgb in SWATCHES.items():
        (out / name).write_bytes(swatch(rgb))


if __name__ == "__main__":
    main()
