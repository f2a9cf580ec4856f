#!/usr/bin/env python3
"""Checks the includes under src/, and that every source is in exactly one list: check_layers.py [ROOT]

The rules are those of ARCHITECTURE.md. Prints one line per breach and ends with 1 if there is any.
"""

import pathlib
import re
import sys

# The folders, from the bottom up. A file, of the core or of a window, includes only files of its own folder and of lower ones.
LEVELS = ["util", "ports", "registry", "platform", "app/base", "controls", "reminders", "notes", "app", "mainmenu"]
# The composition root: includes every concrete class, and so files of a higher folder.
COMPOSITION_ROOT = {"app/quillo_procs", "app/main"}
WINDOWS_H_HOME = "platform/win32.h"
# Linked only to quillo.exe, so that no library lists it.
PROGRAM_ALONE = {"app/main.cpp", "app/library_exceptions.cpp", "app/library_stack_guard.cpp", "app/library_threads.cpp"}
# The headers of the resources, for window files.
RESOURCE_HEADERS = {"resources/resource_ids.h", "version.h"}
# Headers that the build generates for one file of the core, and that file.
GENERATED_HEADERS = {"identity.h": "app/base/app_identity.h"}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
LISTED = re.compile(r"\b((?:[a-z0-9_]+/)+[a-z0-9_]+\.cpp)\b")


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
        for path in sorted(self.src.rglob(list_name)):
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
    return name.rsplit("/", 1)[0]


def stem_of(name):
    return name.rsplit(".", 1)[0]


def check_level(name, target):
    """The breach if a file includes one of a higher folder, or None."""
    own, other = folder_of(name), folder_of(target)
    for folder in (own, other):
        if folder not in LEVELS:
            return f"the folder '{folder}' has no level"
    if LEVELS.index(other) > LEVELS.index(own):
        return f"{own} must not include {other}"
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
    if folder_of(target) == "testing":
        return "only tests include the fakes"
    if target in tree.windows and not is_window:
        return "the core must not include a window file"
    return check_level(name, target)


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
