#!/usr/bin/env python3
"""Compares the libraries of quillo.exe with scripts/libraries.txt, so that a start loads no more of them unnoticed.

    check_libraries.py QUILLO.EXE SOURCES

The imports of the program are those listed with "start"; the libraries that its sources load by name, or that the linker
loads at their first use as a file ".def" says, are those listed with "late".
"""

import pathlib
import re
import struct
import sys

LIST = pathlib.Path(__file__).with_name("libraries.txt")
BY_NAME = re.compile(r'L"([\w.]+\.(?:dll|drv))"')
AT_FIRST_USE = re.compile(r"^LIBRARY (\S+)", re.MULTILINE)
IMPORTS = 1  # the number of the directory of imports


def offset_of(exe, sections, address):
    for start, size, position in sections:
        if start <= address < start + size:
            return position + address - start
    raise ValueError(f"no section has the address {address:#x}")


def imports(exe):
    """The names of the libraries in the program's table of imports."""
    (header,) = struct.unpack_from("<I", exe, 0x3C)
    (count,) = struct.unpack_from("<H", exe, header + 6)
    (optional,) = struct.unpack_from("<H", exe, header + 20)
    (magic,) = struct.unpack_from("<H", exe, header + 24)
    directories = header + 24 + (112 if magic == 0x20B else 96)
    sections = []
    for number in range(count):
        size, address, in_file, position = struct.unpack_from("<IIII", exe, header + 24 + optional + 40 * number + 8)
        sections.append((address, max(size, in_file), position))
    (table,) = struct.unpack_from("<I", exe, directories + 8 * IMPORTS)
    at = offset_of(exe, sections, table)
    found = set()
    while True:
        (name,) = struct.unpack_from("<I", exe, at + 12)
        if name == 0:
            return found
        start = offset_of(exe, sections, name)
        found.add(exe[start : exe.index(b"\0", start)].decode())
        at += 20


def loaded_by_name(sources):
    """The libraries that are named in the sources, except in the fakes of the tests."""
    found = set()
    for path in sources.rglob("*"):
        if path.suffix in (".cpp", ".h") and "testing" not in path.parts:
            found.update(BY_NAME.findall(path.read_text()))
        if path.suffix == ".def":
            found.update(AT_FIRST_USE.findall(path.read_text()))
    return found


def listed(kind):
    lines = [line.split() for line in LIST.read_text().splitlines()]
    return {words[1] for words in lines if words and words[0] == kind}


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: check_libraries.py QUILLO.EXE SOURCES")
    found = {
        "start": imports(pathlib.Path(sys.argv[1]).read_bytes()),
        "late": loaded_by_name(pathlib.Path(sys.argv[2])),
    }
    faults = []
    for kind, names in found.items():
        faults += [f"{name}: {kind}, but {LIST.name} does not list it" for name in sorted(names - listed(kind))]
        faults += [f"{name}: {LIST.name} lists it as {kind}, but it is not" for name in sorted(listed(kind) - names)]
    for fault in faults:
        print(fault)
    if faults:
        sys.exit(1)
    print(f"{len(found['start'])} libraries at the start, {len(found['late'])} later, as listed: good")


if __name__ == "__main__":
    main()
