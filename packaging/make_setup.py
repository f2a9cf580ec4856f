#!/usr/bin/env python3
"""Builds the installer from a folder with the files that ship.

    make_setup.py --stage FOLDER --identity FILE.json --icon FILE.ico --output FILE.exe
                  [--version NUMBER] [--sign COMMAND] [--makensis PROGRAM]

COMMAND is a shell command that gets the path of the uninstaller as its last argument and signs the file in place. The
same files, times and version give the same bytes: the installer contains the times of the files in the stage, and its head
has that of SOURCE_DATE_EPOCH, if it is set.
"""

import argparse
import json
import os
import pathlib
import re
import struct
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent
PE_OFFSET_PLACE = 0x3C
PE_STAMP_PLACE = 8  # bytes after the beginning of the PE head


def shipped_files(path=HERE / "files.txt"):
    """(name, whether it is a program) of every shipped file, in order."""
    for line in path.read_text(encoding="utf-8").splitlines():
        words = line.partition("#")[0].split()
        if words:
            yield words[0], words[1:] == ["program"]


def setting_names(path=ROOT / "docs" / "settings.md"):
    """The values of the user's key, from the document that describes them: the uninstaller has no other list. The
    values of old notes have names "... N" there and are skipped: they are never removed."""
    names = []
    user_part = path.read_text(encoding="utf-8").partition("## For administrators")[0]
    for line in user_part.splitlines():
        if line.startswith("| `"):
            cell = line.split("|")[1]
            names += [name for name in re.findall(r"`([^`]+)`", cell) if not name.endswith(" N")]
    return names


def nsis_text(text):
    return text.replace("$", "$$").replace('"', '$\\"')


def macro(name, items):
    lines = [f"!macro {name} ACTION"]
    lines += [f'    !insertmacro ${{ACTION}} "{nsis_text(item)}"' for item in items]
    return "\n".join(lines + ["!macroend"]) + "\n"


def write_includes(folder, arguments, identity):
    files = [name for name, _ in shipped_files()]
    size = sum((arguments.stage / name).stat().st_size for name in files)
    values = {
        "NAME": identity["name"],
        "PUBLISHER": identity["publisher"],
        "VERSION": arguments.version or identity["version"],
        "COPYRIGHT": identity["copyright"],
        "LICENSE": identity["license"],
        "DESCRIPTION": identity["description"],
        "SITE": identity["site"],
        "APP_ID": identity["appId"],
        "STAGE": str(arguments.stage.resolve()),
        "ICON": str(arguments.icon.resolve()),
        "OUTPUT": str(arguments.output.resolve()),
        "OUTPUT_NAME": arguments.output.name,
        "SIZE_KB": str((size + 1023) // 1024),
    }
    lines = [f'!define {name} "{nsis_text(value)}"' for name, value in values.items()]
    if arguments.sign:
        # Run as a program of its own: the compiler's quoting differs from the shell's.
        signer = folder / "sign"
        signer.write_text(f'#!/bin/bash\n{arguments.sign} "$1"\n', encoding="utf-8")
        signer.chmod(0o700)
        lines.append(f'!define SIGN "{signer}"')
    # With a byte-order mark: the compiler assumes the user's code page for a file without one.
    (folder / "identity.nsh").write_text("\n".join(lines) + "\n", encoding="utf-8-sig")
    (folder / "files.nsh").write_text(macro("EachFile", files), encoding="utf-8-sig")
    (folder / "settings.nsh").write_text(macro("EachSetting", setting_names()), encoding="utf-8-sig")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--stage", type=pathlib.Path, required=True)
    parser.add_argument("--identity", type=pathlib.Path, required=True)
    parser.add_argument("--icon", type=pathlib.Path, required=True)
    parser.add_argument("--output", type=pathlib.Path, required=True)
    parser.add_argument("--version")
    parser.add_argument("--sign", default="")
    parser.add_argument("--makensis", default="makensis")
    arguments = parser.parse_args()
    identity = json.loads(arguments.identity.read_text(encoding="utf-8"))
    with tempfile.TemporaryDirectory() as folder:
        write_includes(pathlib.Path(folder), arguments, identity)
        run = subprocess.run([arguments.makensis, "-V2", "-WX", "-INPUTCHARSET", "UTF8", "-NOCD",
                              f"-X!addincludedir {folder}", str(HERE / "quillo.nsi")],
                             capture_output=True, text=True, check=False,
                             env={**os.environ, "TZ": "UTC"})
    if run.returncode != 0:
        sys.exit(f"the installer was not made:\n{run.stdout}{run.stderr}")


if __name__ == "__main__":
    main()
