#!/usr/bin/env python3
"""Compiles the help: draws its pictures, then runs the compiler on a copy of the sources.

The same sources give the same bytes. Two things would prevent that: the compiler stamps the file with the time, in two
places, which this script replaces by a checksum of the rest; and a binary index contains bytes of the compiler's own memory,
so the project file has none: the viewer reads the index from its text file.

Usage: build_help.py --source FOLDER --mark FILE.svg (--output | --compare) FILE.chm --chmcmd PROGRAM --rsvg-convert PROGRAM
"""

import argparse
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import zlib

MARK_PIXELS = 64

# The head of a compiled file: the place of its stamp, and the offset of the first section of content.
HEAD_STAMP = 16
CONTENT_OFFSET = 88
# The file "/#SYSTEM" begins with its version, followed by records of a number, a length and data. This one is a stamp.
STAMP_RECORD = struct.pack("<HH", 10, 4)
SYSTEM_VERSION_BYTES = 4


def place_of_system(compiled):
    """Where "/#SYSTEM" begins, from its entry in the directory: a name with its length, section, offset and size."""
    name = b"/#SYSTEM"
    entry = compiled.index(bytes((len(name),)) + name) + 1 + len(name)
    numbers = []
    while len(numbers) < 2:  # 7 bits a byte, the highest bit says that more follow
        number = 0
        while True:
            byte = compiled[entry]
            entry += 1
            number = number << 7 | byte & 0x7F
            if byte < 0x80:
                break
        numbers.append(number)
    section, offset = numbers
    if section != 0:
        raise ValueError("the stamp of the help lies in the compressed section")
    return struct.unpack_from("<Q", compiled, CONTENT_OFFSET)[0] + offset


def with_canonical_stamps(compiled):
    places = [HEAD_STAMP]
    record = place_of_system(compiled) + SYSTEM_VERSION_BYTES
    if compiled[record : record + len(STAMP_RECORD)] != STAMP_RECORD:
        raise ValueError("the help has no stamp where one is expected")
    places.append(record + len(STAMP_RECORD))
    data = bytearray(compiled)
    for place in places:
        data[place : place + 4] = bytes(4)
    stamp = struct.pack("<I", zlib.crc32(data))
    for place in places:
        data[place : place + 4] = stamp
    return bytes(data)


def draw(rsvg_convert, source, target, *options):
    subprocess.run([rsvg_convert, *options, "-o", str(target), str(source)], check=True)


def compile_help(arguments, folder):
    for source in arguments.source.iterdir():
        if source.suffix == ".svg":
            draw(arguments.rsvg_convert, source, folder / (source.stem + ".png"))
        else:
            shutil.copy(source, folder)
    draw(arguments.rsvg_convert, arguments.mark, folder / "quillo.png", "-w", str(MARK_PIXELS), "-h", str(MARK_PIXELS))
    run = subprocess.run([arguments.chmcmd, "quillo.hhp"], cwd=folder, capture_output=True, text=True, check=False)
    compiled = folder / "Quillo.chm"
    if run.returncode != 0 or not compiled.is_file():
        sys.exit(f"the help was not compiled:\n{run.stdout}{run.stderr}")
    return with_canonical_stamps(compiled.read_bytes())


def main():
    parser = argparse.ArgumentParser(description="Compiles the help.")
    parser.add_argument("--source", type=pathlib.Path, required=True)
    parser.add_argument("--mark", type=pathlib.Path, required=True)
    result = parser.add_mutually_exclusive_group(required=True)
    result.add_argument("--output", type=pathlib.Path)
    result.add_argument("--compare", type=pathlib.Path, help="fails unless this file has the same bytes")
    parser.add_argument("--chmcmd", required=True)
    parser.add_argument("--rsvg-convert", required=True)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        compiled = compile_help(arguments, pathlib.Path(folder))
    if arguments.compare:
        if arguments.compare.read_bytes() != compiled:
            sys.exit(f"{arguments.compare} was built from the same sources, but has other bytes")
        print("the same sources give the same bytes")
        return
    arguments.output.write_bytes(compiled)


if __name__ == "__main__":
    main()
