#!/usr/bin/env python3
"""Runs clang-tidy over the sources under src/ and remembers the clean files.

    check_lint.py --core TREE --windows TREE [FILE...]

The core is read with the compile commands of the native tree TREE, the window files with those of the Windows tree.
A file is read again only when it, a header that it includes, the configuration or the command has changed. What is clean
is remembered for all clones, in $QUILLO_CACHE_DIR, or in ~/.cache/quillo, until nothing has asked for it for two months.

Nearly all of the time is spent in the system's headers, so files with the same command are first read together, as one
source that keeps their line numbers. If there is any finding, the halves are read separately, in the end each file alone,
and only the findings of that last run count.
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
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(rb'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
INCLUDED = re.compile(rb"^\s*#\s*include\s*(\S+)", re.MULTILINE)
UNNAMED = re.compile(rb"^namespace \{$.*?^\}", re.MULTILINE | re.DOTALL)
NAME_IN_UNNAMED = re.compile(rb"^(?![\s}]|namespace)(?:[\w:<>,&*\[\] ]*?[ &*])?(\w+)(?:\[\w*\])?\s*(?:\(|\{| = |;| :)", re.MULTILINE)
GROUP = 24
REMEMBERED = 60 * 24 * 3600  # seconds
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
    """The options with which clang reads sources for MinGW: the compiler's own headers in its order."""
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
    digest.update("\0".join(flags).replace(str(ROOT), "").encode())
    for path in closure(source):
        digest.update(str(path.relative_to(ROOT)).encode() + b"\0" + path.read_bytes() + b"\0")
    return digest.hexdigest()


def lint(source, flags, *options):
    command = ["clang-tidy", f"--config-file={ROOT / '.clang-tidy'}", "--quiet", *options, str(source), "--", *flags]
    run = subprocess.run(command, capture_output=True, text=True, cwd=ROOT, check=False)
    return run.returncode, run.stdout if run.stdout.strip() else run.stderr


def names_of_its_own(source):
    """The names that a file defines for itself: two files with a name in common cannot be read together."""
    text = source.read_bytes()
    names = {name for part in UNNAMED.findall(text) for name in NAME_IN_UNNAMED.findall(part)}
    return names | set(re.findall(rb"^static [\w:<>&* ]*?(\w+)\(", text, re.MULTILINE))


def groups(jobs):
    """Groups the jobs into lists of files that can be read together."""
    found, alone = [], []
    for job in jobs:
        includes = INCLUDED.findall(job[0].read_bytes())
        if len(includes) != len(set(includes)):
            # Files that are read together include the same headers; a file that includes one twice is a finding.
            alone.append([job])
            continue
        own = names_of_its_own(job[0])
        for names, members in found:
            if members[0][1] == job[1] and len(members) < GROUP and names.isdisjoint(own):
                names |= own
                members.append(job)
                break
        else:
            found.append((own, [job]))
    return [members for _, members in found] + alone


def lint_group(members):
    """[(job, status, output)] of files that are read together if possible, else in halves."""
    if len(members) > 1:
        half = len(members) // 2
        with tempfile.NamedTemporaryFile("wb", suffix=".cpp") as together:
            for source, _, _ in members:
                together.write(b'#line 1 "%s"\n%s\n' % (str(source).encode(), source.read_bytes()))
            together.flush()
            if lint(together.name, members[0][1], "--checks=-readability-duplicate-include")[0] == 0:
                return [(job, 0, "") for job in members]
        return lint_group(members[:half]) + lint_group(members[half:])
    return [(job, *lint(job[0], job[1])) for job in members]


def plan(arguments):
    """[(source, flags)] of every file to read."""
    src = ROOT / "src"
    core, windows = commands(arguments.core), commands(arguments.windows)
    extra = mingw_flags()
    jobs = []
    for source in sorted(set(core) | set(windows)):
        if src not in source.parents or not source.is_file() or source.suffix != ".cpp":
            continue
        jobs.append((source, core[source] if source in core else windows[source] + extra))
    if arguments.files:
        wanted = {pathlib.Path(name).resolve() for name in arguments.files}
        jobs = [job for job in jobs if job[0] in wanted]
    return jobs


def cache_folder():
    cache = os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache"
    return pathlib.Path(os.environ.get("QUILLO_CACHE_DIR") or pathlib.Path(cache) / "quillo") / "lint"


def remembered(clean):
    """Whether the file is known to be clean, which is then remembered for longer."""
    if clean.exists():
        clean.touch()
    return clean.exists()


def main():
    parser = argparse.ArgumentParser()
    for name in ("core", "windows"):
        parser.add_argument(f"--{name}", required=True)
    parser.add_argument("--nice", type=int, default=0)
    parser.add_argument("files", nargs="*")
    arguments = parser.parse_args()

    cache = cache_folder()
    cache.mkdir(parents=True, exist_ok=True)
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
    base = version + (ROOT / ".clang-tidy").read_bytes()
    jobs = [(source, flags, fingerprint(source, flags, base)) for source, flags in plan(arguments)]
    if not jobs:
        print("no sources were found")
        return 1
    due = [job for job in jobs if not remembered(cache / job[2])]
    failed = 0
    os.nice(arguments.nice)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for job, status, output in (result for results in pool.map(lint_group, groups(due)) for result in results):
            if status == 0:
                (cache / job[2]).touch()
            else:
                failed += 1
                print(output.strip())
    for old in cache.iterdir():
        if old.stat().st_mtime < time.time() - REMEMBERED:
            old.unlink(missing_ok=True)
    print(f"{len(jobs)} files, {len(due)} read, {failed} with findings")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
