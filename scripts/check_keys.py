#!/usr/bin/env python3
"""Compares the help's page of keys with the table of a note's keys: the page lists each of them, and no other Ctrl key.

Usage: check_keys.py NOTE-COMMANDS.cpp KEYBOARD.html
"""

import pathlib
import re
import sys

# The system's own keys in a text box, which are not in the table.
OF_THE_SYSTEM = {"Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+Z", "Ctrl+Backspace", "Ctrl+Tab", "Ctrl+Shift+Tab"}


def keys_of_table(source):
    rows = re.findall(r"\{'(.)', ShiftRule::(\w+), NoteAction::\w+\}", source)
    return {("Ctrl+Shift+" if shift == "Down" else "Ctrl+") + letter for letter, shift in rows}


def keys_of_page(page):
    """The Ctrl keys of the section about notes."""
    section = re.search(r"<h2>In a note</h2>(.*?)<h2>", page, re.S)
    return set(re.findall(r"<kbd>(Ctrl\+[^<]+)</kbd>", section.group(1))) if section else set()


def problems(source, page):
    table, told = keys_of_table(source), keys_of_page(page)
    if not table:
        yield "no table of keys was found"
    yield from (f"{keys} is in the table and not in the help" for keys in sorted(table - told))
    yield from (f"{keys} is in the help and not in the table" for keys in sorted(told - table - OF_THE_SYSTEM))


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    found = list(problems(*(pathlib.Path(name).read_text(encoding="utf-8") for name in sys.argv[1:])))
    for problem in found:
        print(f"check_keys: {problem}")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
