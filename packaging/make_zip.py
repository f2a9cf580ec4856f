#!/usr/bin/env python3
"""Builds the zip file of the files that ship: make_zip.py STAGE FOLDER-IN-THE-ZIP OUTPUT.zip

The same files give the same bytes: they are sorted, have the time of SOURCE_DATE_EPOCH in UTC, and no other metadata.
"""

import os
import pathlib
import sys
import time
import zipfile

from make_setup import shipped_files

REGULAR_FILE = 0o100644


def main():
    if len(sys.argv) != 4:
        sys.exit(f"usage: {sys.argv[0]} STAGE FOLDER-IN-THE-ZIP OUTPUT.zip")
    stage, folder, output = pathlib.Path(sys.argv[1]), sys.argv[2], pathlib.Path(sys.argv[3])
    moment = time.gmtime(int(os.environ["SOURCE_DATE_EPOCH"]))[:6]
    with zipfile.ZipFile(output, "w") as archive:
        for name in sorted(name for name, _ in shipped_files()):
            entry = zipfile.ZipInfo(f"{folder}/{name}", moment)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = REGULAR_FILE << 16
            archive.writestr(entry, (stage / name).read_bytes(), compresslevel=9)


if __name__ == "__main__":
    main()
