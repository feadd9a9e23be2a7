# SPDX-License-Identifier: MIT
"""A screenshot and what can be counted in it."""


class Picture:
    """Pixels of a binary PPM with 8 bits a channel."""

    def __init__(self, ppm):
        magic, size, depth, self._pixels = ppm.split(b"\n", 3)
        if magic != b"P6" or depth != b"255":
            raise ValueError("not a picture with 8 bits a channel")
        self.width, self.height = map(int, size.split())

    def __eq__(self, other):
        return isinstance(other, Picture) and self._pixels == other._pixels

    __hash__ = None

    def count(self, colour, rectangle=None):
        """How many pixels within `rectangle` (x, y, width, height) have the colour (r, g, b)."""
        x, y, width, height = rectangle or (0, 0, self.width, self.height)
        left, right = max(x, 0), min(x + width, self.width)
        red, green, blue = colour
        total = 0
        for line in range(max(y, 0), min(y + height, self.height)):
            start = (line * self.width + left) * 3
            row = self._pixels[start:start + (right - left) * 3]
            if blue not in row[2::3]:
                continue
            total += sum(1 for pixel in zip(row[0::3], row[1::3], row[2::3])
                         if pixel == (red, green, blue))
        return total
