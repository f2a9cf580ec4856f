#!/usr/bin/python3
"""Checks the rendered artwork: sizes, depths, and that no frame is empty, smudged or misplaced."""

import pathlib
import struct
import sys
import zlib

ICON_SIZES = [16, 20, 24, 32, 40, 48, 64, 128, 256]
LARGEST_ICON_BITMAP = 40  # above that an entry is a PNG
SMALL_PROGRAM_SIZES = [16, 20, 24, 32, 48]
LARGEST_SMALL_PROGRAM_BITMAP = 24
GLYPHS = 4  # bell, close, browse, play
GLYPH_SIZES = [20, 25, 30, 35, 40]
FRAME = 20  # pixels at 96 dpi
ROWS = ("close", "pushpin", "pushpin in", "menu", "warning")
PLATE_PERCENT = (0, 14, 26)  # by column: normal, hot, pressed

ABOUT_SIZES = [96, 120, 144, 168, 192]
TAB_ICONS = 4
TAB_ICON_SIZES = (16, 20, 24, 30, 32, 36, 40, 48)

MENU_PLANES = ("panel", "tile", "shade", "line", "well", "paper", "edge", "accent", "glyph", "ink")
# The menu's items: left, top, right, bottom at 96 dpi, and the planes that must show something there.
MENU_ITEMS = {
    "close": (265, 0, 300, 40, ("tile", "glyph")),
    "about": (231, 0, 265, 40, ("tile", "glyph")),
    "new note": (0, 41, 100, 180, ("panel", "tile", "paper", "edge", "glyph", "ink")),
    "show all notes": (101, 41, 200, 120, ("tile", "paper", "edge", "glyph", "ink")),
    "options": (201, 41, 300, 120, ("tile", "paper", "glyph", "ink")),
    "word mark": (0, 0, 231, 40, ("paper", "edge", "accent", "ink")),
}
MENU_ITEMS |= {f"slot {n + 1}": (100 + 50 * n, 121, 150 + 50 * n, 180, ("tile", "well")) for n in range(4)}
MENU_MARGIN = 1  # the margin inside an item's area, which only backgrounds and lines may use


def expect(condition, message):
    if not condition:
        raise ValueError(message)


def read_header(data, at):
    size, width, height, planes, bits, compression = struct.unpack_from("<IiiHHI", data, at)
    expect((size, planes, compression) == (40, 1, 0), "not a plain bitmap header")
    expect(bits == 32, f"{bits} bits a pixel, not 32")
    return width, height


def check_icon(data, sizes_expected=ICON_SIZES, largest_bitmap=LARGEST_ICON_BITMAP):
    reserved, kind, count = struct.unpack_from("<HHH", data)
    expect((reserved, kind) == (0, 1), "not an icon")
    sizes = []
    end = 6 + 16 * count
    for entry in range(count):
        width, height, colors, _, planes, bits, length, at = struct.unpack_from("<BBBBHHII", data, 6 + 16 * entry)
        size = width or 256
        expect((height or 256, colors, planes, bits) == (size, 0, 1, 32), f"entry {size} has a wrong directory row")
        expect(at == end, f"entry {size} does not follow its predecessor")
        end = at + length
        sizes.append(size)
        if size > largest_bitmap:
            expect(data[at : at + 8] == b"\x89PNG\r\n\x1a\n", f"the entry of {size} is not a PNG")
            expect(struct.unpack_from(">II", data, at + 16) == (size, size), f"the PNG is not {size} pixels wide and high")
            continue
        expect(read_header(data, at) == (size, 2 * size), f"entry {size} holds another size")
        mask_stride = (size + 31) // 32 * 4
        expect(length == 40 + 4 * size * size + mask_stride * size, f"entry {size} has a wrong length")
        alphas = data[at + 43 : at + 40 + 4 * size * size : 4]
        drawn = sum(1 for alpha in alphas if alpha == 255)
        expect(2 * drawn > size * size, f"entry {size} is mostly empty")
        expect(alphas[0] == 0 and alphas[-1] == 0, f"entry {size} fills its corners")
        mask = data[at + 40 + 4 * size * size : end]
        for index, alpha in enumerate(alphas):
            bit = mask[index // size * mask_stride + index % size // 8] >> (7 - index % size % 8) & 1
            expect(bit == (alpha == 0), f"the mask of entry {size} differs from its alpha")
    expect(sizes == sizes_expected, f"the sizes are {sizes}")
    expect(end == len(data), "bytes are left over")


def read_planes(data, size_expected, count_expected):
    width, height, count = struct.unpack_from("<HHH", data)
    expect((width, height) == size_expected, f"{width} x {height} pixels")
    expect(count == count_expected, f"{count} planes")
    stream = zlib.decompressobj(-15)
    plain = stream.decompress(data[6:])
    expect(stream.eof and not stream.unused_data, "the stream does not end with the file")
    expect(len(plain) == width * height * count, "the planes have a wrong length")
    return [plain[at : at + width * height] for at in range(0, len(plain), width * height)]


def check_glyphs(data, size):
    for number, plane in enumerate(read_planes(data, (size, size), GLYPHS), 1):
        covered = sum(1 for value in plane if value) / len(plane)
        expect(0.05 < covered < 0.5, f"glyph {number} covers {covered:.0%} of its frame")
        expect(max(plane) > 240, f"glyph {number} is faint")


def check_strip(data, scale):
    frame = FRAME * scale // 100
    width = 3 * frame
    glyph_plane, plate_plane = read_planes(data, (width, len(ROWS) * frame), 2)
    for row, name in enumerate(ROWS):
        glyphs = []
        for column, percent in enumerate(PLATE_PERCENT):
            cells = [(row * frame + y) * width + column * frame + x for y in range(frame) for x in range(frame)]
            where = f"{name}, column {column}"
            plate = max(plate_plane[cell] for cell in cells)
            expect(plate == round(255 * percent / 100), f"{where}: the plate's strength is {plate}")
            glyph = [glyph_plane[cell] for cell in cells]
            glyphs.append(glyph)
            expect(max(glyph) == 255, f"{where}: no pixel of the glyph is solid")
            covered = sum(1 for alpha in glyph if alpha) / len(glyph)
            expect(0.05 < covered < 0.5, f"{where}: the glyph covers {covered:.0%} of its frame")
            rim = glyph[:frame] + glyph[-frame:] + glyph[::frame] + glyph[frame - 1 :: frame]
            expect(not any(rim), f"{where}: the glyph touches its frame's rim")
        expect(glyphs[0] == glyphs[1] == glyphs[2], f"{name}: the glyph moves between its states")


def check_about(data):
    reserved, kind, count = struct.unpack_from("<HHH", data)
    expect((reserved, kind) == (0, 1), "not an icon")
    sizes = []
    for entry in range(count):
        width, height, _, _, _, bits, _, at = struct.unpack_from("<BBBBHHII", data, 6 + 16 * entry)
        expect((width, bits) == (height, 32), f"entry {width} has a wrong directory row")
        expect(data[at : at + 8] == b"\x89PNG\r\n\x1a\n", f"entry {width} is not a PNG")
        expect(struct.unpack_from(">II", data, at + 16) == (width, width), f"entry {width} holds another size")
        sizes.append(width)
    expect(sizes == ABOUT_SIZES, f"the sizes are {sizes}")


def check_tab_icons(data, size):
    width = TAB_ICONS * size
    channels = read_planes(data, (width, size), 4)
    # Only one icon may have all its edges on the grid.
    expect(any(0 < alpha < 255 for alpha in channels[3]), "all edges are hard")
    for icon in range(TAB_ICONS):
        places = [y * width + icon * size + x for y in range(size) for x in range(size)]
        pixels = [tuple(channel[place] for channel in channels) for place in places]
        shown = sum(1 for pixel in pixels if pixel[3] > 96) / len(pixels)
        expect(0.4 < shown < 0.9, f"icon {icon + 1} covers {shown:.0%} of its square")
        expect(len(set(pixels)) > 3, f"icon {icon + 1} is blotted")


def check_menu(data, scale):
    size = (300 * scale // 100, 180 * scale // 100)
    planes = dict(zip(MENU_PLANES, read_planes(data, size, len(MENU_PLANES))))
    width = 300 * scale // 100

    def covered(plane, left, top, right, bottom):
        """How many pixels of the area show more than a trace, and the strongest value."""
        rows = [planes[plane][y * width + left : y * width + right] for y in range(top, bottom)]
        return sum(1 for row in rows for value in row if value > 8), max(max(row) for row in rows)

    for item, (*area, shown) in MENU_ITEMS.items():
        pixels = [edge * scale // 100 for edge in area]
        clear = [a + MENU_MARGIN * sign * scale // 100 for a, sign in zip(pixels, (1, 1, -1, -1))]
        for plane in MENU_PLANES:
            if plane in ("shade", "line"):
                continue
            count, strongest = covered(plane, *pixels)
            expect(bool(count) == (plane in shown), f"{item}: the plane {plane} shows in {count} pixels")
            if not count:
                continue
            expect(strongest > (100 if plane in ("panel", "well") else 240), f"{item}: the plane {plane} is faint")
            if plane != "panel":
                expect(covered(plane, *clear)[0] == count, f"{item}: the plane {plane} comes too near to the edge")
        tile = planes["tile"]
        if "tile" not in shown:
            continue
        for plane in ("glyph", "ink"):
            stray = [i for i, value in enumerate(planes[plane]) if value > 8 and tile[i] < 255 and
                     clear[0] <= i % width < clear[2] and clear[1] <= i // width < clear[3]]
            expect(not stray, f"{item}: the plane {plane} leaves its tile")
    rim = planes["line"]
    expect(all(value == 255 for value in rim[:width] + rim[-width:] + rim[::width] + rim[width - 1 :: width]),
           "the border has a gap")


def main():
    if len(sys.argv) != 2:
        sys.exit(f"usage: {sys.argv[0]} FOLDER-OF-RENDERED-ARTWORK")
    folder = pathlib.Path(sys.argv[1])
    checks = [("quillo.ico", check_icon, ()),
              ("setup.ico", check_icon, ()),
              ("note_file.ico", check_icon, ()),
              ("small_program.ico", check_icon, (SMALL_PROGRAM_SIZES, LARGEST_SMALL_PROGRAM_BITMAP))]
    checks += [(f"note_buttons_{scale}.planes", check_strip, (scale,)) for scale in (100, 150, 200)]
    checks += [(f"glyphs_{size}.planes", check_glyphs, (size,)) for size in GLYPH_SIZES]
    checks += [(f"menu_{scale}.planes", check_menu, (scale,)) for scale in (100, 125, 150, 175, 200)]
    checks += [(f"tab_icons_{size}.planes", check_tab_icons, (size,)) for size in TAB_ICON_SIZES]
    checks.append(("about.ico", check_about, ()))
    failed = False
    for name, check, arguments in checks:
        try:
            check((folder / name).read_bytes(), *arguments)
            print(f"{name}: good")
        except (OSError, ValueError, struct.error, zlib.error, IndexError) as error:
            print(f"{name}: {error}")
            failed = True
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
