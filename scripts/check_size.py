#!/usr/bin/env python3
"""Checks the size of quillo.exe, and prints its parts.

    check_size.py QUILLO.EXE QUILLO.MAP

Fails above the limits below: of the whole file, and of the file without its resources. Prints the ten largest
resources and the ten largest parts of the code by the object file that they come from, using the linker's map.
"""

import collections
import pathlib
import re
import struct
import sys

WHOLE_LIMIT = 762_000
CODE_LIMIT = 604_000  # the goal is 500,000: docs/performance.md explains the difference
SHOWN = 10
RESOURCE_SECTION = b".rsrc"
RESOURCE_TYPES = {3: "icon", 2: "bitmap", 10: "data", 14: "icon group", 16: "version", 24: "manifest"}
# A section of an object in the map: its name, possibly on a line of its own, its address, its size, its file.
PART = re.compile(r"^ (\.(?:text|rdata|data|xdata|pdata|tls|CRT)\S*)\s+0x[0-9a-f]+\s+0x([0-9a-f]+) (.+)$", re.MULTILINE)
BROKEN_LINE = re.compile(r"^( \.\S+)\n\s+", re.MULTILINE)


def sections(exe):
    """{name: (address, position in the file, bytes in the file)}"""
    (header,) = struct.unpack_from("<I", exe, 0x3C)
    count, optional = struct.unpack_from("<xxH", exe, header + 4)[0], struct.unpack_from("<H", exe, header + 20)[0]
    table = header + 24 + optional
    found = {}
    for number in range(count):
        name, _, address, size, position = struct.unpack_from("<8sIIII", exe, table + 40 * number)
        found[name.rstrip(b"\0")] = (address, position, size)
    return found


def resources(exe, address, position):
    """[(bytes, type, name)] of every resource."""
    found = []

    def walk(at, path):
        named, numbered = struct.unpack_from("<HH", exe, position + at + 12)
        for entry in range(named + numbered):
            name, to = struct.unpack_from("<II", exe, position + at + 16 + 8 * entry)
            if to & 0x80000000:
                walk(to & 0x7FFFFFFF, [*path, name])
            else:
                (_, size) = struct.unpack_from("<II", exe, position + to)
                found.append((size, RESOURCE_TYPES.get(path[0], path[0]), path[1]))

    walk(0, [])
    return found


def parts(linker_map):
    """[(bytes, object file)] of the linked code."""
    kept = BROKEN_LINE.sub(r"\1 ", linker_map[linker_map.index("Linker script and memory map") :])
    total = collections.Counter()
    for _, size, source in PART.findall(kept):
        total[re.sub(r"^.*/([^/]+)$", r"\1", source.strip())] += int(size, 16)
    return [(size, source) for source, size in total.most_common()]


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: check_size.py QUILLO.EXE QUILLO.MAP")
    exe = pathlib.Path(sys.argv[1]).read_bytes()
    found = sections(exe)
    address, position, size = found[RESOURCE_SECTION]
    code = len(exe) - size
    print(f"The whole program: {len(exe):,} bytes, at most {WHOLE_LIMIT:,}")
    print(f"Without resources: {code:,} bytes, at most {CODE_LIMIT:,}")
    print("The largest resources:")
    for length, kind, name in sorted(resources(exe, address, position), reverse=True)[:SHOWN]:
        print(f"  {length:9,}  {kind} {name}")
    print("The largest parts of the rest:")
    for length, source in parts(pathlib.Path(sys.argv[2]).read_text(errors="replace"))[:SHOWN]:
        print(f"  {length:9,}  {source}")
    return 1 if len(exe) > WHOLE_LIMIT or code > CODE_LIMIT else 0


if __name__ == "__main__":
    sys.exit(main())
