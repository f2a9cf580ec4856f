#!/usr/bin/python3
"""Prints words as the path data of an SVG file, so that a drawing looks the same on machines with other fonts.

Only for changes to the lettering of a drawing; the build does not need it. Debian: python3-fonttools, fonts-inter.
"""

import argparse

from fontTools.pens.svgPathPen import SVGPathPen
from fontTools.pens.transformPen import TransformPen
from fontTools.ttLib import TTFont

FONTS = "/usr/share/fonts/opentype/inter"


def words_path(font, text, size, x, baseline, anchor, spacing):
    """Pixels at 96 dpi; `x` is the left end, the middle or the right end of the words."""
    glyphs = font.getGlyphSet()
    letters = [glyphs[font.getBestCmap()[ord(letter)]] for letter in text]
    scale = size / font["head"].unitsPerEm
    width = sum(letter.width * scale + spacing for letter in letters) - spacing
    left = x - {"start": 0, "middle": width / 2, "end": width}[anchor]
    pen = SVGPathPen(glyphs, ntos=lambda number: f"{number:.2f}".rstrip("0").rstrip("."))
    for letter in letters:
        letter.draw(TransformPen(pen, (scale, 0, 0, -scale, left, baseline)))
        left += letter.width * scale + spacing
    return pen.getCommands()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("text")
    parser.add_argument("--font", default="Inter-Medium", help="a face of the family, or the path of a font file")
    parser.add_argument("--size", type=float, required=True, help="of the font, in pixels")
    parser.add_argument("--x", type=float, required=True)
    parser.add_argument("--baseline", type=float, required=True)
    parser.add_argument("--anchor", choices=("start", "middle", "end"), default="start")
    parser.add_argument("--spacing", type=float, default=0.0, help="between letters, in pixels")
    options = parser.parse_args()
    path = options.font if "/" in options.font else f"{FONTS}/{options.font}.otf"
    print(words_path(TTFont(path), options.text, options.size, options.x, options.baseline, options.anchor,
                     options.spacing))


if __name__ == "__main__":
    main()
