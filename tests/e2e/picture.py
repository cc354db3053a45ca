"""Pictures that programs wrote, pixel by pixel."""

import struct
import zlib


class Picture:
    """A PNG file of 8 bits a channel, without a palette and not interlaced."""

    def __init__(self, path):
        data = path.read_bytes()
        if data[:8] != b"\x89PNG\r\n\x1a\n":
            raise ValueError(f"{path} is no PNG")
        packed, place = b"", 8
        while place < len(data):
            size, kind = struct.unpack_from(">I4s", data, place)
            part = data[place + 8:place + 8 + size]
            if kind == b"IHDR":
                self.width, self.height, depth, colours = struct.unpack_from(">IIBB", part)
                self.channels = {2: 3, 6: 4}[colours]
                if depth != 8 or part[12]:
                    raise ValueError(f"{path} has {depth} bits a channel, or is interlaced")
            elif kind == b"IDAT":
                packed += part
            place += 12 + size
        self.rows = self._unfiltered(zlib.decompress(packed))

    def _unfiltered(self, raw):
        length, step = self.width * self.channels, self.channels
        rows, above = [], bytes(length)
        for start in range(0, len(raw), length + 1):
            row = bytearray(raw[start + 1:start + 1 + length])
            for i in range(length):
                left = row[i - step] if i >= step else 0
                corner = above[i - step] if i >= step else 0
                row[i] = (row[i] + predicted(raw[start], left, above[i], corner)) & 0xFF
            rows.append(bytes(row))
            above = rows[-1]
        return rows

    def at(self, x, y):
        """The colour as layout files write it."""
        start = int(x) * self.channels
        return "#" + self.rows[int(y)][start:start + 3].hex().upper()


def predicted(kind, left, above, corner):
    """What a filter of the format adds to a byte."""
    if kind == 4:
        guess = left + above - corner
        return min((left, above, corner), key=lambda near: abs(guess - near))
    return (0, left, above, (left + above) // 2)[kind]
