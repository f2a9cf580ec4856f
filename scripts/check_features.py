#!/usr/bin/env python3
"""Checks docs/features.md: every row of its tables names at least one test, and every test that it names exists.

Usage: check_features.py ROOT

Tests are named as ctest lists them: core. and windows. for the two rings of unit tests, e2e. for the real program, qln. for
the console program, check. for the checks of the sources and of the files that ship. They are looked up in the sources, so
that no Windows program has to run.
"""

import pathlib
import re
import sys

TABLE = pathlib.Path("docs") / "features.md"
RINGS = {"core": "unit", "windows": "windows", "e2e": "e2e", "install": "install", "qln": "qln"}
TEST = re.compile(r"^TEST(?:_F)?\((\w+),\s*(\w+)\)", re.MULTILINE)
CHECK = re.compile(r"\b(?:add_test\(NAME |quillo_check\()([\w.]+)")
NAME = re.compile(r"`((?:core|windows|e2e|install|qln|check)\.[\w.]+)`")
HEAD_LINES = 2


def existing_tests(root):
    names = set()
    for ring, folder in RINGS.items():
        for source in (root / "tests" / folder).rglob("*.cpp"):
            for suite, name in TEST.findall(source.read_text(encoding="utf-8")):
                names.add(f"{ring}.{suite}.{name}")
    for lists in ("scripts", "src/resources", "tests"):
        for source in (root / lists).rglob("CMakeLists.txt"):
            for name in CHECK.findall(source.read_text(encoding="utf-8")):
                names.add(name if "." in name else f"check.{name}")
    return names


def rows_of(text):
    """(line number, line) of the rows of every table, without its header."""
    head = 0
    for number, line in enumerate(text.splitlines(), 1):
        head = head + 1 if line.startswith("|") else 0
        if head > HEAD_LINES:
            yield number, line


def problems(root):
    text = (root / TABLE).read_text(encoding="utf-8")
    tests = existing_tests(root)
    rows = list(rows_of(text))
    if not rows:
        yield "there is no row"
    for number, line in rows:
        if not NAME.search(line):
            yield f"line {number}: no test shows this: {line}"
    for number, line in enumerate(text.splitlines(), 1):
        for name in NAME.findall(line):
            if name not in tests:
                yield f"line {number}: there is no test {name}"


def main():
    if len(sys.argv) != 2:
        sys.exit(f"usage: {sys.argv[0]} ROOT")
    found = [f"{TABLE}: {problem}" for problem in problems(pathlib.Path(sys.argv[1]))]
    print("\n".join(found) or "every feature names tests that exist")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
