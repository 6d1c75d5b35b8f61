"""Pictures of the screen, from the memory that the X server keeps it in, without any other program."""

import struct
import zlib


def write_png(screen, file):
    """`screen`: the X server's window dump of 32-bit pixels."""
    data = screen.read_bytes()
    # The dump's header: its own size first, then 24 more numbers.
    header = struct.unpack(">25I", data[:100])
    width, height, line, colors = header[4], header[5], header[12], header[19]
    pixels = data[header[0] + 12 * colors:]
    rows = bytearray()
    for top in range(height):
        row = pixels[top * line:top * line + 4 * width]
        rgb = bytearray(3 * width)
        # The bytes of a pixel are blue, green, red and one that is not used.
        rgb[0::3], rgb[1::3], rgb[2::3] = row[2::4], row[1::4], row[0::4]
        rows += b"\0" + rgb

    def chunk(kind, content):
        return (struct.pack(">I", len(content)) + kind + content
                + struct.pack(">I", zlib.crc32(kind + content)))

    file.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
                     + chunk(b"IDAT", zlib.compress(bytes(rows), 6)) + chunk(b"IEND", b""))
