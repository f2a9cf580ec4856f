#!/usr/bin/env python3
"""Checks who includes whom under src/, and that every source stands in exactly one list: check_layers.py [ROOT]

The rules are those of ARCHITECTURE.md. Prints one line per breach and ends with 1 when there is any.
"""

import pathlib
import re
import sys

# The core, from the bottom up. Rooms on one level do not know each other.
CORE_LEVELS = [
    {"util"},
    {"ports"},
    {"registry", "controls"},
    {"app base"},
    {"reminders"},
    {"notes"},
    {"app top"},
    {"mainmenu"},
]
# The part of app that reminders and notes build on; everything else there is its top.
APP_BASE = {"app_identity", "command_line", "note_names", "notes_folder", "os_facts", "program_shortcut", "registry_keys", "settings",
            "settings_table", "shared_texts", "sound_choice"}
WINDOW_ROOMS = ["platform", "controls", "reminders", "notes", "mainmenu", "app"]
# The composition root: knows every concrete class.
COMPOSITION_ROOT = {"app/quillo_procs", "app/main"}
WINDOWS_H_HOME = "platform/win32.h"
# What is linked to quillo.exe and to nothing else, so that no library lists it.
PROGRAM_ALONE = {"app/main.cpp", "app/library_exceptions.cpp"}
# What the resources offer to window files.
RESOURCE_HEADERS = {"resources/resource_ids.h", "version.h"}
# What the build writes for one file of the core, and that file.
GENERATED_HEADERS = {"identity.h": "app/app_identity.h"}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
LISTED = re.compile(r"\b([a-z0-9_]+/[a-z0-9_]+\.cpp)\b")


class Tree:
    """The sources under src/, their includes and the lists that name them."""

    def __init__(self, root):
        self.src = pathlib.Path(root) / "src"
        self.includes = {}
        for path in sorted(self.src.rglob("*")):
            if path.suffix in (".h", ".cpp"):
                name = path.relative_to(self.src).as_posix()
                self.includes[name] = INCLUDE.findall(path.read_text(encoding="utf-8"))
        self.core_list = self._listed("core.cmake")
        self.window_list = self._listed("windows.cmake")
        self.windows = self._window_files()

    def _listed(self, list_name):
        found = []
        for path in sorted(self.src.glob(f"*/{list_name}")):
            text = re.sub(r"#.*", "", path.read_text(encoding="utf-8"))
            found += [(name, path.relative_to(self.src).as_posix()) for name in LISTED.findall(text)]
        return found

    def _window_files(self):
        """A window file is listed as one, or is the header of one, or lives in platform, or is a header that has no
        source of its own and includes a window file."""
        listed = {name.removesuffix(".cpp") for name, _ in self.window_list} | COMPOSITION_ROOT
        core = {name.removesuffix(".cpp") for name, _ in self.core_list}
        windows = {name for name in self.includes
                   if room_of(name) == "platform" or stem_of(name) in listed}
        while True:
            more = {name for name, included in self.includes.items()
                    if name not in windows and name.endswith(".h") and stem_of(name) not in core
                    and any(target in windows for _, target in included)}
            if not more:
                return windows
            windows |= more


def room_of(name):
    return name.split("/")[0]


def stem_of(name):
    return name.rsplit(".", 1)[0]


def core_level(name):
    room = room_of(name)
    if room == "app":
        room = "app base" if stem_of(name).split("/")[1] in APP_BASE else "app top"
    for level, rooms in enumerate(CORE_LEVELS):
        if room in rooms:
            return level, room
    return None, room


def check_core_include(name, target):
    if room_of(target) == "testing":
        return "only tests include the fakes"
    own, own_room = core_level(name)
    level, room = core_level(target)
    if level is None:
        return f"the core knows no room '{room}'"
    if own is None:
        return f"the room '{own_room}' has no place in the order of rooms"
    if level > own or (level == own and room != own_room):
        return f"{own_room} must not include {room}"
    return None


def check_window_include(name, target):
    own, other = room_of(name), room_of(target)
    if own not in WINDOW_ROOMS:
        return f"the room '{own}' holds no window files"
    if WINDOW_ROOMS.index(other) > WINDOW_ROOMS.index(own):
        return f"a window file of {own} must not include one of {other}"
    return None


def check_include(tree, name, kind, target):
    """The breach in one include, or None."""
    if target.lower() == "windows.h":
        return None if name == WINDOWS_H_HOME else f"only {WINDOWS_H_HOME} includes windows.h"
    if kind == "<":
        return None
    is_window = name in tree.windows
    if target in GENERATED_HEADERS:
        return None if name == GENERATED_HEADERS[target] else f"only {GENERATED_HEADERS[target]} includes {target}"
    if target in RESOURCE_HEADERS:
        return None if is_window else "the core knows no resources"
    if target not in tree.includes:
        return "there is no such file under src/ (paths start there)"
    if room_of(name) == "testing":
        return "the fakes know no window" if target in tree.windows else None
    if stem_of(name) in COMPOSITION_ROOT:
        return None
    if stem_of(target) in COMPOSITION_ROOT:
        return "only main.cpp includes the composition root"
    if target in tree.windows:
        return check_window_include(name, target) if is_window else "the core must not include a window file"
    if is_window:
        return "only tests include the fakes" if room_of(target) == "testing" else None
    return check_core_include(name, target)


def check_lists(tree):
    """Every source in exactly one list, every listed source on the disk."""
    places = {}
    for name, place in tree.core_list + tree.window_list:
        places.setdefault(name, []).append(place)
        if name not in tree.includes:
            yield f"{place}: names {name}, which does not exist"
        if room_of(name) != room_of(place):
            yield f"{place}: names {name}, which belongs to another room"
    for name, where in places.items():
        if len(where) > 1:
            yield f"{name}: stands in more than one list: {', '.join(where)}"
    for name in tree.includes:
        if name.endswith(".cpp") and name not in PROGRAM_ALONE and name not in places:
            yield f"{name}: stands in no core.cmake or windows.cmake"


def breaches(root):
    tree = Tree(root)
    if not tree.includes:
        return [f"{tree.src}: holds no sources"]
    found = list(check_lists(tree))
    for name, included in tree.includes.items():
        if room_of(name) == "resources":
            continue
        for kind, target in included:
            breach = check_include(tree, name, kind, target)
            if breach:
                found.append(f"{name}: includes {target}: {breach}")
    return found


def main():
    found = breaches(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).resolve().parent.parent)
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
