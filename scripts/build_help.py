#!/usr/bin/env python3
"""Compiles the help: draws its pictures, then runs the compiler on a copy of the sources.

Usage: build_help.py --source FOLDER --mark FILE.svg --output FILE.chm --chmcmd PROGRAM --rsvg-convert PROGRAM
"""

import argparse
import pathlib
import shutil
import subprocess
import sys
import tempfile

MARK_PIXELS = 64


def draw(rsvg_convert, source, target, *options):
    subprocess.run([rsvg_convert, *options, "-o", str(target), str(source)], check=True)


def compile_help(arguments, folder):
    for source in arguments.source.iterdir():
        if source.suffix == ".svg":
            draw(arguments.rsvg_convert, source, folder / (source.stem + ".png"))
        else:
            shutil.copy(source, folder)
    draw(arguments.rsvg_convert, arguments.mark, folder / "quillo.png", "-w", str(MARK_PIXELS), "-h", str(MARK_PIXELS))
    run = subprocess.run([arguments.chmcmd, "quillo.hhp"], cwd=folder, capture_output=True, text=True, check=False)
    compiled = folder / "Quillo.chm"
    if run.returncode != 0 or not compiled.is_file():
        sys.exit(f"the help was not compiled:\n{run.stdout}{run.stderr}")
    return compiled.read_bytes()


def main():
    parser = argparse.ArgumentParser(description="Compiles the help.")
    parser.add_argument("--source", type=pathlib.Path, required=True)
    parser.add_argument("--mark", type=pathlib.Path, required=True)
    parser.add_argument("--output", type=pathlib.Path, required=True)
    parser.add_argument("--chmcmd", required=True)
    parser.add_argument("--rsvg-convert", required=True)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        arguments.output.write_bytes(compile_help(arguments, pathlib.Path(folder)))


if __name__ == "__main__":
    main()
