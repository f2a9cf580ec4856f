#!/usr/bin/python3
"""Renders the SVG sources of src/resources/artwork into the icons, the note button strips, the menu and the tab icons.

The same sources give the same bytes. Needs rsvg-convert; everything else is Python's standard library.
"""

import argparse
import pathlib
import re
import struct
import subprocess
import sys
import xml.etree.ElementTree
import zlib

# The program's own colors, {name: (red, green, blue)}.
PALETTE_HEADER = pathlib.Path(__file__).resolve().parent.parent / "src" / "util" / "palette.h"
PALETTE = {
    name: tuple(int(channel, 16) for channel in channels.split(", "))
    for name, channels in re.findall(r"k(\w+) = ColorWord::FromRgb\(([^)]*)\)", PALETTE_HEADER.read_text(encoding="utf-8"))
}

# Size in pixels: source. The small ones are drawn for their grid, the others are the mark at any size.
ICON_SOURCES = {
    16: "quillo-16.svg",
    20: "quillo-20.svg",
    24: "quillo-24.svg",
    32: "quillo-32.svg",
    40: "quillo-40.svg",
    48: "quillo.svg",
    64: "quillo.svg",
    128: "quillo.svg",
    256: "quillo.svg",
}
# The icon of note files, likewise.
FILE_ICON_SOURCES = {size: name.replace("quillo", "file") for size, name in ICON_SOURCES.items()}
# The mark as a picture file, which the system shows above the program's balloons.
PICTURE = "quillo.svg"
PICTURE_SIZE = 128
# The icon of the small programs that ship with Quillo, which should be as small as possible.
SMALL_PROGRAM_SIZES = (16, 20, 24, 32, 48)
LARGEST_SMALL_PROGRAM_BITMAP = 24
LARGEST_ICON_BITMAP = 40  # pixels; above that an entry is a PNG

FRAME = 20  # pixels at 96 dpi
SCALES = (100, 150, 200)  # percent
BUTTON_ROWS = ("note-close.svg", "note-pushpin.svg", "note-pushpin-in.svg", "note-menu.svg", "note-warning.svg")
PLATE = "note-plate.svg"
PLATE_STRENGTHS = (0.0, 0.14, 0.26)  # the columns: normal, hot, pressed

# The glyphs of the alert and of the options dialog's small buttons: a plane of coverage each, which the program colors.
GLYPHS = ("alert-bell.svg", "note-close.svg", "option-browse.svg", "option-play.svg")
GLYPH_SIZES = (20, 25, 30, 35, 40)  # at 100 to 200 percent

# The main menu: planes of coverage, which the program colors.
MENU = "menu.svg"
MENU_SIZE = (300, 180)  # pixels at 96 dpi
MENU_SCALES = (100, 125, 150, 175, 200)
# Groups of the drawing in the order in which they are painted over each other, with their colors in the normal face.
MENU_PLANES = {
    "panel": PALETTE["Paper"],
    "tile": None,  # only in the highlighted face
    "shade": PALETTE["Ink"],
    "line": PALETTE["Line"],
    "well": PALETTE["Line"],
    "paper": PALETTE["Paper"],
    "edge": PALETTE["Edge"],
    "accent": PALETTE["Accent"],
    "glyph": PALETTE["Ink"],
    "ink": PALETTE["Ink"],
}
MENU_SURFACE = PALETTE["Surface"]
SVG_NAMESPACE = "http://www.w3.org/2000/svg"

# The icons of the options dialog's tabs, each size from the drawing itself, with alpha.
TAB_ICONS = ("tab-appearance.svg", "tab-shortcuts.svg", "tab-behavior.svg", "tab-help.svg")
TAB_ICON_SIZES = (16, 20, 24, 30, 32, 36, 40, 48)

ABOUT_PICTURE = "about.svg"
ABOUT_SIZES = (96, 120, 144, 168, 192)  # at 100 to 200 percent

# The contact sheet, in pixels.
GAP = 20
STRIP_CELL = (FRAME * 3 * 6, FRAME * len(BUTTON_ROWS) * 6)  # a strip, six times its size at 96 dpi
NOTE_GROUNDS = (  # bar, glyph
    (PALETTE["Paper"], PALETTE["Ink"]),
    (PALETTE["Edge"], PALETTE["Ink"]),
    ((0xFE, 0x84, 0x60), PALETTE["Ink"]),
    ((0xA7, 0x1D, 0x23), (0xFF, 0xFF, 0xFF)),
    ((0x00, 0x00, 0x00), (0x10, 0xEF, 0xFE)),
)
ICON_GROUNDS = ((0xF3, 0xF3, 0xF3), (0x20, 0x20, 0x20), (0x3A, 0x6E, 0xA5))  # light and dark task bars, a desktop


class Image:
    """Straight-alpha RGBA, 8 bits a channel, top row first."""

    def __init__(self, width, height, pixels=None):
        self.width = width
        self.height = height
        self.pixels = pixels if pixels is not None else bytearray(4 * width * height)

    def rows(self):
        stride = 4 * self.width
        return [self.pixels[y * stride : (y + 1) * stride] for y in range(self.height)]

    def alpha(self, x, y):
        return self.pixels[4 * (y * self.width + x) + 3]

    def put(self, x, y, rgba):
        at = 4 * (y * self.width + x)
        self.pixels[at : at + 4] = bytes(rgba)


def unfilter(kind, line, above):
    """Undoes one row's PNG filter in place; 4 bytes a pixel."""
    for i, value in enumerate(line):
        left = line[i - 4] if i >= 4 else 0
        up = above[i]
        corner = above[i - 4] if i >= 4 else 0
        if kind == 1:
            value += left
        elif kind == 2:
            value += up
        elif kind == 3:
            value += (left + up) // 2
        elif kind == 4:
            guess = left + up - corner
            value += min((left, up, corner), key=lambda near: abs(guess - near))
        line[i] = value & 0xFF


def decode_png(data):
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        raise ValueError("not a PNG")
    width = height = 0
    packed = b""
    at = 8
    while at < len(data):
        (length,) = struct.unpack_from(">I", data, at)
        kind = data[at + 4 : at + 8]
        body = data[at + 8 : at + 8 + length]
        at += 12 + length
        if kind == b"IHDR":
            width, height, depth, color, _, _, interlace = struct.unpack(">IIBBBBB", body)
            if (depth, color, interlace) != (8, 6, 0):
                raise ValueError("the PNG is not plain 8-bit RGBA")
        elif kind == b"IDAT":
            packed += body
    raw = zlib.decompress(packed)
    stride = 4 * width
    above = bytearray(stride)
    pixels = bytearray()
    for y in range(height):
        start = y * (stride + 1)
        line = bytearray(raw[start + 1 : start + 1 + stride])
        unfilter(raw[start], line, above)
        pixels += line
        above = line
    return Image(width, height, pixels)


def encode_png(image):
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    raw = b"".join(b"\0" + bytes(row) for row in image.rows())
    header = struct.pack(">IIBBBBB", image.width, image.height, 8, 6, 0, 0, 0)
    return (
        b"\x89PNG\r\n\x1a\n"
        + chunk(b"IHDR", header)
        + chunk(b"IDAT", zlib.compress(raw, 9))
        + chunk(b"IEND", b"")
    )


def bgra_bottom_up(image):
    out = bytearray()
    for row in reversed(image.rows()):
        for x in range(0, len(row), 4):
            red, green, blue, alpha = row[x : x + 4]
            out += bytes((blue, green, red, alpha))
    return bytes(out)


def bitmap_header(width, height, size):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, 32, 0, size, 0, 0, 0, 0)


def encode_planes(planes):
    """Width, height and number of planes, then the bytes of all planes, deflated."""
    width, height, _ = planes[0]
    if any((plane[0], plane[1], len(plane[2])) != (width, height, width * height) for plane in planes):
        raise ValueError("planes of one drawing differ in size")
    deflate = zlib.compressobj(9, zlib.DEFLATED, -15)
    packed = deflate.compress(b"".join(plane[2] for plane in planes)) + deflate.flush()
    return struct.pack("<HHH", width, height, len(planes)) + packed


def plane_of(image, channel=3):
    """(width, height, bytes) of one channel; that of alpha is the coverage of a drawing."""
    return image.width, image.height, bytes(image.pixels[channel::4])


def icon_bitmap(image):
    """An icon entry: the colors, then the mask that is 1 where nothing is drawn; the header counts both."""
    bits = bgra_bottom_up(image)
    mask = bytearray()
    stride = (image.width + 31) // 32 * 4
    for y in reversed(range(image.height)):
        row = bytearray(stride)
        for x in range(image.width):
            if image.alpha(x, y) == 0:
                row[x // 8] |= 0x80 >> x % 8
        mask += row
    return bitmap_header(image.width, 2 * image.height, len(bits) + len(mask)) + bits + bytes(mask)


def encode_ico(images, largest_bitmap=LARGEST_ICON_BITMAP):
    entries = [encode_png(i) if i.width > largest_bitmap else icon_bitmap(i) for i in images]
    at = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for image, entry in zip(images, entries):
        # A size of 256 is written as 0.
        directory += struct.pack("<BBBBHHII", image.width % 256, image.height % 256, 0, 0, 1, 32, len(entry), at)
        at += len(entry)
    return directory + b"".join(entries)


class Artwork:
    def __init__(self, converter, source):
        self.converter = converter
        self.source = pathlib.Path(source)

    def render(self, name, size):
        return self.convert(name, (self.source / name).read_bytes(), size, size)

    def convert(self, name, drawing, width, height):
        command = [self.converter, "--format=png", f"--width={width}", f"--height={height}"]
        image = decode_png(subprocess.run(command, check=True, input=drawing, stdout=subprocess.PIPE).stdout)
        if (image.width, image.height) != (width, height):
            raise ValueError(f"{name} came out at {image.width} x {image.height}, not {width} x {height}")
        return image

    def menu_planes(self, scale):
        width, height = (edge * scale // 100 for edge in MENU_SIZE)
        return [self.convert(plane, self.plane_drawing(plane), width, height) for plane in MENU_PLANES]

    def plane_drawing(self, plane):
        """The menu's drawing with only one of its groups visible."""
        root = xml.etree.ElementTree.parse(self.source / MENU).getroot()
        groups = {group.get("id"): group for group in root if group.get("id")}
        if set(groups) != set(MENU_PLANES):
            raise ValueError(f"the groups of {MENU} are {', '.join(groups)}")
        for child in list(root):
            if child is not groups[plane]:
                root.remove(child)
        groups[plane].attrib.pop("visibility", None)
        xml.etree.ElementTree.register_namespace("", SVG_NAMESPACE)
        return xml.etree.ElementTree.tostring(root)

    def tab_strip(self, size):
        strip = Image(size * len(TAB_ICONS), size)
        for index, name in enumerate(TAB_ICONS):
            icon = self.render(name, size)
            for y in range(size):
                for x in range(size):
                    at = 4 * (y * size + x)
                    strip.put(index * size + x, y, icon.pixels[at : at + 4])
        return strip

    def icons(self, sources=None):
        return [self.render(name, size) for size, name in (sources or ICON_SOURCES).items()]

    def strip(self, scale):
        """Coverages, not colors: A is the glyph's, R the plate's; the program tints both for each note."""
        frame = FRAME * scale // 100
        plate = self.render(PLATE, frame)
        strip = Image(frame * len(PLATE_STRENGTHS), frame * len(BUTTON_ROWS))
        for row, name in enumerate(BUTTON_ROWS):
            glyph = self.render(name, frame)
            for column, strength in enumerate(PLATE_STRENGTHS):
                for y in range(frame):
                    for x in range(frame):
                        behind = round(plate.alpha(x, y) * strength)
                        strip.put(column * frame + x, row * frame + y, (behind, 0, 0, glyph.alpha(x, y)))
        return strip


def mix(under, over, coverage):
    return tuple(round(u + (o - u) * coverage / 255) for u, o in zip(under, over))


def enlarge(sheet, left, top, image, zoom, shade):
    """Draws `image` at `zoom` times its size; `shade` turns a pixel into a color."""
    for y in range(image.height):
        for x in range(image.width):
            at = 4 * (y * image.width + x)
            color = (*shade(image.pixels[at : at + 4]), 255)
            for dy in range(zoom):
                for dx in range(zoom):
                    sheet.put(left + x * zoom + dx, top + y * zoom + dy, color)


def fill(sheet, left, top, width, height, color):
    for y in range(top, top + height):
        for x in range(left, left + width):
            sheet.put(x, y, (*color, 255))


def show_strips(sheet, strips, left, bar, glyph):
    """One column of the sheet: the strips magnified to one size, below them at their true sizes."""

    def tint(pixel):
        return mix(mix(bar, glyph, pixel[0]), glyph, pixel[3])

    true_left = left + GAP
    for row, (scale, strip) in enumerate(strips.items()):
        enlarge(sheet, left, row * STRIP_CELL[1], strip, 600 // scale, tint)
        enlarge(sheet, true_left, len(strips) * STRIP_CELL[1] + GAP, strip, 1, tint)
        true_left += strip.width + GAP


def show_icons(sheet, icons, top, ground):
    """One band of the sheet: the small icons magnified, below them all at their true sizes."""

    def over(pixel):
        return mix(ground, pixel[:3], pixel[3])

    left = true_left = GAP
    for image in icons:
        if image.width <= 64:
            zoom = 8 if image.width <= 24 else 4
            enlarge(sheet, left, top + GAP, image, zoom, over)
            left += image.width * zoom + GAP
        enlarge(sheet, true_left, top + 64 * 4 + 2 * GAP, image, 1, over)
        true_left += image.width + GAP


def contact_sheet(icons, strips):
    """Everything on the backgrounds on which it must be legible: magnified, and at its true size."""
    strips_height = STRIP_CELL[1] * len(strips) + strips[SCALES[-1]].height + 2 * GAP
    band_height = 64 * 4 + 256 + 3 * GAP
    sheet = Image(STRIP_CELL[0] * len(NOTE_GROUNDS), strips_height + band_height * len(ICON_GROUNDS))
    for column, (bar, glyph) in enumerate(NOTE_GROUNDS):
        left = column * STRIP_CELL[0]
        fill(sheet, left, 0, STRIP_CELL[0], strips_height, bar)
        show_strips(sheet, strips, left, bar, glyph)
    for row, ground in enumerate(ICON_GROUNDS):
        top = strips_height + row * band_height
        fill(sheet, 0, top, sheet.width, band_height, ground)
        show_icons(sheet, icons, top, ground)
    return sheet


def menu_face(planes):
    """The normal face, as the program composes it."""
    face = Image(planes[0].width, planes[0].height)
    fill(face, 0, 0, face.width, face.height, MENU_SURFACE)
    for plane, color in zip(planes, MENU_PLANES.values()):
        for at in range(0, len(face.pixels), 4):
            if color and plane.pixels[at + 3]:
                face.pixels[at : at + 3] = bytes(mix(face.pixels[at : at + 3], color, plane.pixels[at + 3]))
    return face


def menu_sheet(menus):
    """The menu at every scale, stacked on a desktop's color; the smallest also magnified."""
    faces = [menu_face(planes) for planes in menus.values()]
    zoom = 3
    height = sum(face.height + GAP for face in faces) + faces[0].height * zoom + 2 * GAP
    sheet = Image(faces[0].width * zoom + 2 * GAP, height)
    fill(sheet, 0, 0, sheet.width, sheet.height, ICON_GROUNDS[-1])
    top = GAP
    enlarge(sheet, GAP, top, faces[0], zoom, lambda pixel: pixel[:3])
    top += faces[0].height * zoom + GAP
    for face in faces:
        enlarge(sheet, GAP, top, face, 1, lambda pixel: pixel[:3])
        top += face.height + GAP
    return sheet


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--rsvg-convert", default="rsvg-convert", metavar="PROGRAM")
    parser.add_argument("--source", required=True, metavar="FOLDER", help="where the SVG files are")
    parser.add_argument("--output", required=True, metavar="FOLDER", help="gets the files that quillo.rc names")
    parser.add_argument("--contact-sheet", metavar="PNG", help="also writes everything magnified, to look at")
    parser.add_argument("--menu-sheet", metavar="PNG", help="also writes the menu at every scale")
    options = parser.parse_args()

    artwork = Artwork(options.rsvg_convert, options.source)
    output = pathlib.Path(options.output)
    output.mkdir(parents=True, exist_ok=True)
    icons = artwork.icons()
    strips = {scale: artwork.strip(scale) for scale in SCALES}
    (output / "quillo.ico").write_bytes(encode_ico(icons))
    (output / "Quillo.png").write_bytes(encode_png(artwork.render(PICTURE, PICTURE_SIZE)))
    # The same for the installer, which contains it twice and uncompressed.
    (output / "setup.ico").write_bytes(encode_ico(icons))
    files = artwork.icons(FILE_ICON_SOURCES)
    (output / "note_file.ico").write_bytes(encode_ico(files))
    small = [image for image in icons if image.width in SMALL_PROGRAM_SIZES]
    (output / "small_program.ico").write_bytes(encode_ico(small, LARGEST_SMALL_PROGRAM_BITMAP))
    for scale, strip in strips.items():
        coverages = [plane_of(strip), plane_of(strip, 0)]  # of the glyphs, of the plates
        (output / f"note_buttons_{scale}.planes").write_bytes(encode_planes(coverages))
    for size in GLYPH_SIZES:
        glyphs = [plane_of(artwork.render(name, size)) for name in GLYPHS]
        (output / f"glyphs_{size}.planes").write_bytes(encode_planes(glyphs))
    menus = {scale: artwork.menu_planes(scale) for scale in MENU_SCALES}
    for scale, planes in menus.items():
        (output / f"menu_{scale}.planes").write_bytes(encode_planes([plane_of(plane) for plane in planes]))
    for size in TAB_ICON_SIZES:
        strip = artwork.tab_strip(size)
        channels = [plane_of(strip, channel) for channel in range(4)]
        (output / f"tab_icons_{size}.planes").write_bytes(encode_planes(channels))
    about = [artwork.render(ABOUT_PICTURE, size) for size in ABOUT_SIZES]
    (output / "about.ico").write_bytes(encode_ico(about, largest_bitmap=0))
    if options.menu_sheet:
        pathlib.Path(options.menu_sheet).write_bytes(encode_png(menu_sheet(menus)))
    if options.contact_sheet:
        pathlib.Path(options.contact_sheet).write_bytes(encode_png(contact_sheet(icons + files, strips)))


if __name__ == "__main__":
    try:
        main()
    except (OSError, ValueError, subprocess.CalledProcessError) as error:
        sys.exit(f"render_artwork: {error}")
