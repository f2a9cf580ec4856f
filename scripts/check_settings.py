#!/usr/bin/env python3
"""Checks that the descriptions of the settings agree with the program's table: check_settings.py ROOT

docs/settings.md lists exactly the values of the program, because the uninstaller removes the values that it lists. It and the
help's page for administrators have the kind, the default and the range of each flag and each number.
"""

import dataclasses
import html
import pathlib
import re
import sys

SOURCES = pathlib.Path("src/app/base")
DOCUMENT = pathlib.Path("docs/settings.md")
HELP = pathlib.Path("src/resources/help/settings.html")
# The program records these for itself, or they follow from another value; administrators do not set them.
NOT_IN_HELP = {"Note font charset", "Shown Help", "Has hidden notes", "Notes"}

NAME = re.compile(r'string_view (k\w+) = u"([^"]+)";')
SHORTCUTS = re.compile(r"kShortcuts = \{(.*?)\};", re.DOTALL)
ROW = re.compile(r"\{setting::(k\w+(?:\[\d\])?), (?:(Flag|InvertedFlag)<&S::(\w+)>|NumberSetting\{&Member<&S::(\w+)>, (.*?), (.*?)\}|\w+)")
DEFAULT = re.compile(r"^    (?:bool|int) (\w+) = (\w+);", re.MULTILINE)


@dataclasses.dataclass
class Setting:
    name: str
    kind: str = "other"  # "flag", "number" or another one
    default: str = ""  # as the registry has it
    limits: str = ""  # "1 to 255" or "1 or more", if the number has limits


def limits_of(least, most):
    if not least.isdigit():
        return ""
    return f"{least} to {most}" if most.isdigit() else f"{least} or more"


def settings_of_the_program(root):
    """{name: Setting}"""
    header = (root / SOURCES / "settings.h").read_text(encoding="utf-8")
    table = " ".join((root / SOURCES / "settings_table.cpp").read_text(encoding="utf-8").split())
    names = dict(NAME.findall(header))
    for index, name in enumerate(re.findall(r'u"([^"]+)"', SHORTCUTS.search(header)[1])):
        names[f"kShortcuts[{index}]"] = name
    defaults = dict(DEFAULT.findall(header))
    spellings = {}  # names are compared without case, and one is also written in another spelling
    for name in names.values():
        spellings.setdefault(name.lower(), name)
    found = {name: Setting(name) for name in spellings.values()}
    for constant, flag, flag_member, number_member, least, most in ROW.findall(table):
        setting = found[names[constant]]
        if flag:
            on = (defaults[flag_member] == "true") != (flag == "InvertedFlag")
            setting.kind, setting.default = "flag", "on" if on else "off"
        elif number_member:
            setting.kind, setting.default, setting.limits = "number", defaults[number_member], limits_of(least, most)
    return found


def rows_of_document(root):
    """(names, kind, default and range) of each row of the user's options."""
    text = (root / DOCUMENT).read_text(encoding="utf-8").partition("## What Quillo records")[0]
    for line in text.splitlines():
        if line.startswith("| `"):
            cells = [cell.strip() for cell in line.strip("|").split("|")]
            yield re.findall(r"`([^`]+)`", cells[0]), cells[1], cells[2]


def rows_of_help(root):
    text = (root / HELP).read_text(encoding="cp1252")
    for names, kind, default in re.findall(r"<tr><td>([^<]*)</td><td>(\w+), ([^<]*)</td>", text):
        names = html.unescape(names)
        between = re.fullmatch(r"Shortcut (\d) to Shortcut (\d)", names)
        listed = [f"Shortcut {n}" for n in range(int(between[1]), int(between[2]) + 1)] if between else names.split(", ")
        yield listed, "flag" if kind == "switch" else kind, default


def row_problems(page, rows, settings):
    for names, kind, default in rows:
        for name in names:
            setting = settings.get(name)
            if setting is None:
                yield f"{page} has '{name}', which the program does not know"
                continue
            if setting.kind != "other" and not kind.startswith(setting.kind):
                yield f"{page}: '{name}' is a {setting.kind} and not a {kind}"
            elif setting.default and not re.search(rf"\b{setting.default}\b", default):
                yield f"{page}: the default of '{name}' is {setting.default}, and the page has '{default}'"


def problems(root, described):
    settings = settings_of_the_program(root)
    folded = {name.lower() for name in described}
    yield from (f"{DOCUMENT} does not list '{name}': an uninstaller would leave it behind"
                for name in settings if name.lower() not in folded)
    folded = {name.lower() for name in settings}
    yield from (f"{DOCUMENT} lists '{name}', which the program does not know"
                for name in described if name.lower() not in folded)
    document = list(rows_of_document(root))
    yield from row_problems(DOCUMENT, document, settings)
    for names, _, text in document:
        limits = settings[names[0]].limits if names[0] in settings else ""
        if limits and limits not in text:
            yield f"{DOCUMENT}: the range of '{names[0]}' is {limits}, and the page has '{text}'"
    on_help = list(rows_of_help(root))
    yield from row_problems(HELP, on_help, settings)
    listed = {name for names, _, _ in on_help for name in names}
    yield from (f"{HELP} does not list '{name}'" for name in settings if name not in listed | NOT_IN_HELP)


def main():
    if len(sys.argv) != 2:
        sys.exit(f"usage: {sys.argv[0]} ROOT")
    root = pathlib.Path(sys.argv[1])
    sys.dont_write_bytecode = True
    sys.path.insert(0, str(root / "packaging"))
    from make_setup import setting_names  # the list in the uninstaller

    settings = settings_of_the_program(root)
    described = setting_names(root / DOCUMENT)
    if len([setting for setting in settings.values() if setting.default]) < 10 or not described:
        sys.exit("there are no settings to compare")
    found = list(problems(root, described))
    print("\n".join(found) or f"{len(settings)} settings: good")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
