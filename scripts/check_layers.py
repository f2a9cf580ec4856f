#!/usr/bin/env python3
"""Checks the includes under src/, and that every source is in exactly one list: check_layers.py [ROOT]

The rules are those of ARCHITECTURE.md. Prints one line per breach and ends with 1 if there is any.
"""

import pathlib
import re
import sys

# The core, from the bottom up. Folders on one level do not include each other.
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
# The part of app that reminders and notes use; all other files there are its top.
APP_BASE = {"app_identity", "command_line", "note_names", "notes_folder", "os_facts", "program_shortcut", "registry_keys", "settings",
            "settings_table", "shared_texts", "sound_choice"}
WINDOW_FOLDERS = ["platform", "controls", "reminders", "notes", "mainmenu", "app"]
# The composition root: includes every concrete class.
COMPOSITION_ROOT = {"app/quillo_procs", "app/main"}
WINDOWS_H_HOME = "platform/win32.h"
# Linked only to quillo.exe, so that no library lists it.
PROGRAM_ALONE = {"app/main.cpp", "app/library_exceptions.cpp", "app/library_threads.cpp"}
# The headers of the resources, for window files.
RESOURCE_HEADERS = {"resources/resource_ids.h", "version.h"}
# Headers that the build generates for one file of the core, and that file.
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
        """A file is a window file if it is listed as one, is the header of one, is in platform, or is a header without a
        source of its own and includes a window file."""
        listed = {name.removesuffix(".cpp") for name, _ in self.window_list} | COMPOSITION_ROOT
        core = {name.removesuffix(".cpp") for name, _ in self.core_list}
        windows = {name for name in self.includes
                   if folder_of(name) == "platform" or stem_of(name) in listed}
        while True:
            more = {name for name, included in self.includes.items()
                    if name not in windows and name.endswith(".h") and stem_of(name) not in core
                    and any(target in windows for _, target in included)}
            if not more:
                return windows
            windows |= more


def folder_of(name):
    return name.split("/")[0]


def stem_of(name):
    return name.rsplit(".", 1)[0]


def core_level(name):
    folder = folder_of(name)
    if folder == "app":
        folder = "app base" if stem_of(name).split("/")[1] in APP_BASE else "app top"
    for level, folders in enumerate(CORE_LEVELS):
        if folder in folders:
            return level, folder
    return None, folder


def check_core_include(name, target):
    if folder_of(target) == "testing":
        return "only tests include the fakes"
    own, own_folder = core_level(name)
    level, folder = core_level(target)
    if level is None:
        return f"the core has no folder '{folder}'"
    if own is None:
        return f"the folder '{own_folder}' has no level"
    if level > own or (level == own and folder != own_folder):
        return f"{own_folder} must not include {folder}"
    return None


def check_window_include(name, target):
    own, other = folder_of(name), folder_of(target)
    if own not in WINDOW_FOLDERS:
        return f"the folder '{own}' has no window files"
    if WINDOW_FOLDERS.index(other) > WINDOW_FOLDERS.index(own):
        return f"a window file of {own} must not include one of {other}"
    return None


def check_include(tree, name, kind, target):
    """The breach in one include, or None."""
    if target.lower() == "windows.h":
        return None if name == WINDOWS_H_HOME else f"only {WINDOWS_H_HOME} includes windows.h"
    if kind == "<":
        return None
    is_window = name in tree.windows or name in PROGRAM_ALONE
    if target in GENERATED_HEADERS:
        return None if name == GENERATED_HEADERS[target] else f"only {GENERATED_HEADERS[target]} includes {target}"
    if target in RESOURCE_HEADERS:
        return None if is_window else "the core must not include resources"
    if target not in tree.includes:
        return "there is no such file under src/ (paths start there)"
    if folder_of(name) == "testing":
        return "the fakes must not include a window file" if target in tree.windows else None
    if stem_of(name) in COMPOSITION_ROOT:
        return None
    if stem_of(target) in COMPOSITION_ROOT:
        return "only main.cpp includes the composition root"
    if target in tree.windows:
        return check_window_include(name, target) if is_window else "the core must not include a window file"
    if is_window:
        return "only tests include the fakes" if folder_of(target) == "testing" else None
    return check_core_include(name, target)


def check_lists(tree):
    """Every source in exactly one list, every listed source on the disk."""
    places = {}
    for name, place in tree.core_list + tree.window_list:
        places.setdefault(name, []).append(place)
        if name not in tree.includes:
            yield f"{place}: names {name}, which does not exist"
        if folder_of(name) != folder_of(place):
            yield f"{place}: names {name}, which is in another folder"
    for name, where in places.items():
        if len(where) > 1:
            yield f"{name}: is in more than one list: {', '.join(where)}"
    for name in tree.includes:
        if name.endswith(".cpp") and name not in PROGRAM_ALONE and name not in places:
            yield f"{name}: is in no core.cmake or windows.cmake"


def breaches(root):
    tree = Tree(root)
    if not tree.includes:
        return [f"{tree.src}: has no sources"]
    found = list(check_lists(tree))
    for name, included in tree.includes.items():
        if folder_of(name) == "resources":
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
