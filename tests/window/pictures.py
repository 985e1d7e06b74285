"""Readers of picture files, small and strict: a placeable Windows metafile, a Windows bitmap, a PNG."""

import struct
import zlib


class Metafile:
    """A placeable Windows metafile: its frame, and its lines and texts as far as the tests need them."""

    PLACEABLE_KEY = 0x9AC6CDD7
    END, POLYLINE, POLYGON, POLYPOLYGON, TEXT = 0x0000, 0x0325, 0x0324, 0x0538, 0x0A32

    def __init__(self, data):
        key, _, left, top, right, bottom, self.units_per_inch, _, checksum = struct.unpack_from("<IHhhhhHIH", data)
        assert key == self.PLACEABLE_KEY, f"The key is {key:#x}"
        self.width, self.height = right - left, bottom - top
        words = struct.unpack_from("<10H", data)
        expected = 0
        for word in words:
            expected ^= word
        assert checksum == expected, "The checksum of the header is wrong"
        self._read_records(data[22:])

    def _read_records(self, data):
        kind, header_words, version, file_words, _, largest_words, _ = struct.unpack_from("<HHHIHIH", data)
        assert (kind, header_words, version) == (1, 9, 0x0300)
        assert file_words * 2 == len(data), f"{file_words} words, but {len(data)} bytes"
        self.texts, self.point_count, seen_largest = [], 0, 0
        position, function = header_words * 2, None
        while position < len(data):
            assert function != self.END, "There are records after the last one"
            words, function = struct.unpack_from("<IH", data, position)
            assert words >= 3 and position + words * 2 <= len(data), f"A record of {words} words at {position}"
            seen_largest = max(seen_largest, words)
            self._read_record(function, data[position + 6:position + words * 2])
            position += words * 2
        assert function == self.END, "The last record is missing"
        assert seen_largest == largest_words

    def _read_record(self, function, body):
        if function in (self.POLYLINE, self.POLYGON):
            count, = struct.unpack_from("<H", body)
            self._take_points(body[2:], count)
        elif function == self.POLYPOLYGON:
            outlines, = struct.unpack_from("<H", body)
            counts = struct.unpack_from(f"<{outlines}H", body, 2)
            self._take_points(body[2 + 2 * outlines:], sum(counts))
        elif function == self.TEXT:
            length, = struct.unpack_from("<h", body, 4)
            self.texts.append(body[8:8 + length].decode("cp1252"))

    def _take_points(self, body, count):
        places = struct.unpack(f"<{2 * count}h", body)
        assert all(0 <= x <= self.width for x in places[0::2]), "A point is outside the picture"
        assert all(0 <= y <= self.height for y in places[1::2]), "A point lies above or below the picture"
        self.point_count += count


class Picture:
    """A raster of pixels: its size and how many pixels have which color."""

    def __init__(self, width, height, pixels):
        self.size = (width, height)
        self.colors = {}
        for pixel in pixels:
            self.colors[pixel] = self.colors.get(pixel, 0) + 1

    def assert_drawn_on_white(self):
        """Mostly white, with at least a hundredth covered in more than one color."""
        total = self.size[0] * self.size[1]
        white = sum(count for color, count in self.colors.items() if color[:3] == b"\xff\xff\xff")
        assert total / 2 < white < total * 0.99, f"{white} of {total} pixels are white"
        assert len(self.colors) > 4, f"There are only the colors {self.colors}"


def read_bitmap(data):
    """An uncompressed Windows bitmap of 24 or 32 bits."""
    assert data[:2] == b"BM"
    size, start = struct.unpack_from("<I4xI", data, 2)
    assert size == len(data), f"{size} bytes in the header, {len(data)} in the file"
    width, height, planes, bits, compression = struct.unpack_from("<iiHHI", data, 18)
    assert planes == 1 and bits in (24, 32) and compression == 0, (planes, bits, compression)
    bytes_per_pixel = bits // 8
    row_bytes = (width * bits + 31) // 32 * 4
    assert start + row_bytes * abs(height) == len(data)
    rows = (data[start + row_bytes * row:][:width * bytes_per_pixel] for row in range(abs(height)))
    return Picture(width, abs(height), _pixels(rows, bytes_per_pixel))


def read_png(data):
    """A PNG of 8 bits a channel, not interlaced, with or without a palette."""
    assert data[:8] == b"\x89PNG\r\n\x1a\n"
    parts = {}
    position = 8
    while position < len(data):
        length, = struct.unpack_from(">I", data, position)
        name = data[position + 4:position + 8]
        parts[name] = parts.get(name, b"") + data[position + 8:position + 8 + length]
        position += 12 + length
    width, height, depth, color_type, _, _, interlaced = struct.unpack(">IIBBBBB", parts[b"IHDR"])
    channels = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}[color_type]
    assert (depth, interlaced) == (8, 0), (depth, interlaced)
    pixels = _pixels(_unfiltered(zlib.decompress(parts[b"IDAT"]), width * channels, height, channels), channels)
    if color_type == 3:
        palette = parts[b"PLTE"]
        pixels = (palette[3 * pixel[0]:3 * pixel[0] + 3] for pixel in pixels)
    elif color_type in (0, 4):
        pixels = (pixel[:1] * 3 for pixel in pixels)
    return Picture(width, height, pixels)


def _pixels(rows, step):
    for row in rows:
        for place in range(0, len(row), step):
            yield bytes(row[place:place + step])


def _unfiltered(data, row_bytes, height, step):
    """The rows of a PNG without what they were filtered by."""
    above = bytes(row_bytes)
    for number in range(height):
        start = number * (row_bytes + 1)
        kind, row = data[start], bytearray(data[start + 1:start + 1 + row_bytes])
        for i in range(row_bytes):
            left, corner = (row[i - step], above[i - step]) if i >= step else (0, 0)
            row[i] = row[i] + (0, left, above[i], (left + above[i]) // 2, _paeth(left, above[i], corner))[kind] & 0xFF
        yield row
        above = row


def _paeth(left, above, corner):
    estimate = left + above - corner
    return min((left, above, corner), key=lambda value: abs(estimate - value))
