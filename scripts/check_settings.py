#!/usr/bin/env python3
"""Checks that the description of the settings names exactly the values of the program: check_settings.py ROOT

The uninstaller removes the values that docs/settings.md lists; the program reads those of its table.
"""

import pathlib
import re
import sys

TABLE = pathlib.Path("src")
ROW = re.compile(r'\{(?:u"([^"]+)"|(k\w+)),\s*(?:\w*Setting\{|\w+<)')
CONSTANT = r'\b{name} = u"([^"]+)";'


def names_of_the_program(root):
    sources = sorted((root / TABLE).rglob("settings_table.cpp"))
    if len(sources) != 1:
        sys.exit(f"the table of settings was looked for under {root / TABLE}, and found {len(sources)} times")
    return [text or value_of(root, constant) for text, constant in ROW.findall(sources[0].read_text(encoding="utf-8"))]


def value_of(root, constant):
    """The name that a row takes from a constant."""
    for header in sorted((root / TABLE).rglob("*.h")):
        found = re.search(CONSTANT.format(name=constant), header.read_text(encoding="utf-8"))
        if found:
            return found[1]
    sys.exit(f"the constant {constant} of the table of settings was not found under {root / TABLE}")


def problems(described, known):
    folded = {name.lower() for name in described}
    for name in known:
        if name.lower() not in folded:
            yield f"docs/settings.md does not list '{name}': an uninstaller would leave it behind"
    folded = {name.lower() for name in known}
    for name in described:
        if name.lower() not in folded:
            yield f"docs/settings.md lists '{name}', which the program does not know"


def main():
    if len(sys.argv) != 2:
        sys.exit(f"usage: {sys.argv[0]} ROOT")
    root = pathlib.Path(sys.argv[1])
    sys.dont_write_bytecode = True
    sys.path.insert(0, str(root / "packaging"))
    from make_setup import setting_names  # the list in the uninstaller

    known = names_of_the_program(root)
    described = setting_names(root / "docs" / "settings.md")
    if not known or not described:
        sys.exit("there are no settings to compare")
    found = list(problems(described, known))
    print("\n".join(found) or f"{len(known)} settings: good")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
