#!/usr/bin/env python3
"""Writes the list of components that are linked into the programs and the installer, with their licenses:
make_licenses.py FILE

The texts come from the copyright files that Debian installs with each component; a missing one ends the script.
"""

import pathlib
import re
import subprocess
import sys

DOC = pathlib.Path("/usr/share/doc")
HEAD = """Quillo is freeware. The programs of this version, and the installer, contain parts of other works:
"""
RULE = "=" * 78


def fail(message):
    sys.exit(f"make_licenses: {message}")


def copyright_of(package):
    path = DOC / package / "copyright"
    if not path.is_file():
        fail(f"{path} is missing: install the package {package}")
    return path.read_text(encoding="utf-8")


def version_of(package):
    query = ["dpkg-query", "-W", "-f", "${Version}", package]
    run = subprocess.run(query, capture_output=True, text=True, check=False)
    if run.returncode != 0:
        fail(f"the package {package} is not installed")
    return run.stdout.strip()


def stanza(package, first_line):
    """The paragraph of a machine-readable copyright file that begins with this line, without its formatting marks."""
    for paragraph in copyright_of(package).split("\n\n"):
        lines = paragraph.strip("\n").splitlines()
        if lines and lines[0].strip() == first_line:
            kept = [line for line in lines if not line.startswith("Files:") and not re.match(r"\s+\S*/\S*$", line)]
            return "\n".join("" if line.strip() == "." else line.removeprefix(" ") for line in kept)
    return fail(f"the copyright file of {package} has no paragraph '{first_line}'")


def runtime_exception():
    text = copyright_of("gcc-mingw-w64-base")
    found = re.search(r"GCC RUNTIME LIBRARY EXCEPTION\n.*?license of GCC\.\n(?=\n\n)", text, re.DOTALL)
    if not found:
        fail("the copyright file of the compiler has no runtime library exception")
    return found.group(0).strip()


def parts():
    """(name, version, used parts, license, its text)"""
    yield ("GCC", version_of("gcc-mingw-w64-base"), "libgcc and libstdc++, linked into the programs",
           "GNU General Public License, version 3 or later, with the GCC Runtime Library Exception 3.1",
           runtime_exception())
    yield ("mingw-w64", version_of("mingw-w64-x86-64-dev"), "the C run-time start, linked into the programs",
           "Zope Public License 2.1; its conversion of numbers: a permissive license",
           "\n\n".join([stanza("mingw-w64-x86-64-dev", "Files: *"),
                        stanza("mingw-w64-x86-64-dev", "Files: mingw-w64-crt/gdtoa/qnan.c")]))
    yield ("winpthreads", version_of("mingw-w64-x86-64-dev"), "the thread library, linked into the programs",
           "Expat, and a license of three clauses",
           "\n\n".join([stanza("mingw-w64-x86-64-dev", "Files: mingw-w64-libraries/winpthreads/*"),
                        stanza("mingw-w64-x86-64-dev", "License: expat"),
                        stanza("mingw-w64-x86-64-dev", "Files: mingw-w64-libraries/winpthreads/include/pthread.h")]))
    yield ("CLI11", version_of("libcli11-dev"), "the command line of qln.exe", "a license of three clauses",
           "\n\n".join([stanza("libcli11-dev", "Files: *"), stanza("libcli11-dev", "License: BSD-3-clause")]))
    yield ("JSON for Modern C++", version_of("nlohmann-json3-dev"), "the JSON of qln.exe", "Expat (MIT)",
           "\n\n".join([stanza("nlohmann-json3-dev", "Files: *"),
                        stanza("nlohmann-json3-dev", "Files: include/nlohmann/detail/conversions/to_chars.hpp"),
                        stanza("nlohmann-json3-dev", "Files: include/nlohmann/detail/output/serializer.hpp"),
                        stanza("nlohmann-json3-dev", "License: Expat")]))
    yield ("NSIS", version_of("nsis"), "the installer and the uninstaller",
           "zlib license; its decompression: Common Public License 1.0 with an exception",
           "\n\n".join([stanza("nsis", "Files: *"), stanza("nsis", "License: Zlib"),
                        stanza("nsis", "Files: Source/7zip/*"), stanza("nsis", "License: lzma-cpl-exception")]))


def main():
    if len(sys.argv) != 2:
        sys.exit(f"usage: {sys.argv[0]} FILE")
    found = list(parts())
    blocks = [HEAD]
    blocks += [f"  {name} {version}: {use}\n      {license_name}\n" for name, version, use, license_name, _ in found]
    blocks += [f"{RULE}\n{name}\n{RULE}\n\n{words}\n" for name, _, _, _, words in found]
    pathlib.Path(sys.argv[1]).write_bytes("\n".join(blocks).replace("\n", "\r\n").encode("utf-8-sig"))


if __name__ == "__main__":
    main()
