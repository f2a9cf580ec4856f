#!/usr/bin/env python3
"""Builds two installers for the tests of installing: make_test_setups.py TREE OUTPUT

OUTPUT gets old-setup.exe with the files of the build tree TREE, as they ship, and new-setup.exe: a later version whose
files each have a few additional bytes at the end, so that a test can see which of the two is installed.
"""

import json
import pathlib
import shutil
import subprocess
import sys

from make_setup import HERE, shipped_files

MARK = b"\r\nnew"
NEW_VERSION = "99.0.0"


def make(tree, stage, output, version):
    subprocess.run([sys.executable, str(HERE / "make_setup.py"), "--stage", str(stage),
                    "--identity", str(tree / "packaging" / "identity.json"),
                    "--icon", str(tree / "src" / "resources" / "artwork" / "setup.ico"),
                    "--output", str(output), "--version", version], check=True)


def main():
    if len(sys.argv) != 3:
        sys.exit(f"usage: {sys.argv[0]} TREE OUTPUT")
    tree, output = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    output.mkdir(parents=True, exist_ok=True)
    identity = json.loads((tree / "packaging" / "identity.json").read_text(encoding="utf-8"))
    for name, mark, version in (("old", b"", identity["version"]), ("new", MARK, NEW_VERSION)):
        stage = output / f"{name} stage"
        shutil.rmtree(stage, ignore_errors=True)
        stage.mkdir()
        for file, _ in shipped_files():
            (stage / file).write_bytes((tree / file).read_bytes() + mark)
        make(tree, stage, output / f"{name}-setup.exe", version)


if __name__ == "__main__":
    main()
