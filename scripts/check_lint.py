#!/usr/bin/env python3
"""Runs clang-tidy over the sources under src/ and remembers what was clean.

    check_lint.py --core TREE --shell TREE --cache FOLDER [FILE...]

The core is read with the compile commands of the native tree TREE, the window files with those of the Windows tree.
A file is read again only when it, a header that it includes, the configuration or the command has changed.
"""

import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(rb'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
KEPT_FLAGS = ("-I", "-D", "-isystem", "-std=")


def commands(tree):
    """{source: flags that matter} from a tree's compile_commands.json."""
    database = pathlib.Path(tree) / "compile_commands.json"
    if not database.is_file():
        sys.exit(f"{database} is missing: configure that tree first")
    found = {}
    for entry in json.loads(database.read_text()):
        words = iter(shlex.split(entry["command"]))
        flags = []
        for word in words:
            if word == "-isystem":
                flags += [word, next(words)]
            elif word.startswith(KEPT_FLAGS):
                flags.append(word.replace("gnu++", "c++"))
        found[pathlib.Path(entry["file"])] = flags
    return found


def mingw_flags():
    """What clang needs to read sources for MinGW: the compiler's own headers in its order."""
    compiler = "x86_64-w64-mingw32-g++-posix"
    library = subprocess.run([compiler, "-print-libgcc-file-name"], capture_output=True, text=True, check=True)
    cxx = pathlib.Path(library.stdout.strip()).parent / "include" / "c++"
    flags = ["--target=x86_64-w64-mingw32", "-nostdinc++"]
    for folder in (cxx, cxx / "x86_64-w64-mingw32", cxx / "backward", "/usr/x86_64-w64-mingw32/include"):
        flags += ["-isystem", str(folder)]
    return flags


def closure(source):
    """The source and every header of ours that it includes, directly or not."""
    seen, waiting = set(), [source]
    while waiting:
        path = waiting.pop()
        if path in seen or not path.is_file():
            continue
        seen.add(path)
        for name in INCLUDE.findall(path.read_bytes()):
            waiting += [ROOT / "src" / name.decode(), path.parent / name.decode()]
    return sorted(seen)


def fingerprint(source, flags, base):
    digest = hashlib.sha256(base)
    digest.update("\0".join(flags).encode())
    for path in closure(source):
        digest.update(str(path.relative_to(ROOT)).encode() + b"\0" + path.read_bytes() + b"\0")
    return digest.hexdigest()


def lint(source, flags):
    run = subprocess.run(["clang-tidy", "--quiet", str(source), "--", *flags], capture_output=True, text=True,
                         cwd=ROOT, check=False)
    return run.returncode, run.stdout if run.stdout.strip() else run.stderr


def plan(arguments):
    """[(source, flags)] of every file to read."""
    src = ROOT / "src"
    core, shell = commands(arguments.core), commands(arguments.shell)
    extra = mingw_flags()
    jobs = []
    for source in sorted(set(core) | set(shell)):
        if src not in source.parents or not source.is_file() or source.suffix != ".cpp":
            continue
        jobs.append((source, core[source] if source in core else shell[source] + extra))
    if arguments.files:
        wanted = {pathlib.Path(name).resolve() for name in arguments.files}
        jobs = [job for job in jobs if job[0] in wanted]
    return jobs


def main():
    parser = argparse.ArgumentParser()
    for name in ("core", "shell", "cache"):
        parser.add_argument(f"--{name}", required=True)
    parser.add_argument("files", nargs="*")
    arguments = parser.parse_args()

    cache = pathlib.Path(arguments.cache)
    cache.mkdir(parents=True, exist_ok=True)
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
    base = version + (ROOT / ".clang-tidy").read_bytes()
    jobs = [(source, flags, fingerprint(source, flags, base)) for source, flags in plan(arguments)]
    if not jobs:
        print("no sources were found")
        return 1
    due = [job for job in jobs if not (cache / job[2]).exists()]
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for job, (status, output) in zip(due, pool.map(lambda job: lint(job[0], job[1]), due)):
            if status == 0:
                (cache / job[2]).touch()
            else:
                failed += 1
                print(output.strip())
    # Fingerprints of what no longer exists only pile up.
    current = {job[2] for job in jobs}
    if not arguments.files:
        for old in cache.iterdir():
            if old.name not in current:
                old.unlink()
    print(f"{len(jobs)} files, {len(due)} read, {failed} with findings")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
