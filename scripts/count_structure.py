#!/usr/bin/env python3
"""Counts what a change costs in this tree: count_structure.py [--rev REV]... [--details] [--check]

Prints one column for each REV, and one for the working tree:
  - the files to touch in each of the five walks of CONTRIBUTING.md. A header and its source count as one file, and the place
    that uses the new value does not count. Tests and documents are counted apart.
  - the public functions of the five largest classes
  - the arrows between the folders of src that run up
  - the repeats: pairs of places that share six or more lines
  - the files of more than 400 lines
--details names what was counted, for the working tree. --check prints only what exceeds a goal, and ends with 1 if there is any.
"""

import argparse
import collections
import dataclasses
import io
import pathlib
import re
import subprocess
import sys
import tarfile
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import check_layers  # noqa: E402  (found by the line above)

ROOT = pathlib.Path(__file__).resolve().parent.parent
CODE = (".h", ".cpp")
LONG_FILE = 400
SHARED_LINES = 6
LARGEST = 5


@dataclasses.dataclass(frozen=True)
class Walk:
    """A change of a common kind. An example in the tree shows its files: those that name the example."""
    title: str
    example: str
    named: str
    used: str  # a line that only uses the value
    described: str  # the example in documents
    goal: int


NOTHING = "(?!)"
# Each pattern has the names of today and those of older commits, so that the two can be compared.
WALKS = [
    Walk("a note command with a shortcut", "adding the time and date", r"\bAddTimestamp\b|\"Ctrl\+T\"",
         r"(\.|->)(AddTimestamp\(|Perform\(NoteAction::AddTimestamp\))", r"\bCtrl\+T\b", 3),
    Walk("an option", "pinning new notes", r"\bautoPinNewNotes\b|\bAutoPinCheck\b|\"Auto-pin new notes\"",
         r"(\.|->)autoPinNewNotes\b", "Auto-pin new notes|Automatically pin new", 3),
    Walk("a tag of the note file", "the reminder",
         r"u\"reminder\"|</?reminder>|\b(?!settings|tips|texts)\w{3,}\.reminder\b|\bDaySerial ReminderTime\b"
         r"|\b(Read|Write|Parse|Format)Reminder\b", NOTHING, "reminder>|reminder&gt;", 3),
    # A number that depends on how many schemes there are must be changed as well.
    Walk("a color scheme", "bright yellow", r"\"Bright yellow\"|\b0xFF, 0xF8, 0x50\b|\bkStripWidth = \d+;"
         r"|\barray<\w+, \d+> kSwatches\b", NOTHING, "(?i)bright yellow", 1),
]
PORT = "a port to another system"

# From the bottom up. The older trees have one folder `app`.
FOLDERS = ["util", "ports", "registry", "platform", "app/base", "controls", "reminders", "notes", "app", "mainmenu"]

COMMENT_OR_TEXT = re.compile(r'//[^\n]*|/\*.*?\*/|("(?:\\.|[^"\\\n])*")|(\'(?:\\.|[^\'\\\n])+\')', re.DOTALL)
CLASS = re.compile(r"^(?:class|struct)\s+(\w+)(?:\s+final)?[^;{()=]*\{", re.MULTILINE)
NO_FUNCTION = re.compile(r"^(friend|using|typedef|enum|class|struct|static_assert|union)\b|^$")


def files_under(root, folder, endings=CODE):
    base = pathlib.Path(root) / folder
    return sorted(path for path in base.rglob("*") if path.suffix in endings)


def unit_of(root, path):
    """A header and its source are one file."""
    return path.relative_to(root).with_suffix("").as_posix()


def units(root, paths):
    return sorted({unit_of(root, path) for path in paths})


def text_of(path):
    return path.read_text(encoding="utf-8", errors="replace")


def product_files(root):
    return [path for path in files_under(root, "src") if not path.relative_to(root).as_posix().startswith("src/testing/")]


def names(path, pattern, used=NOTHING):
    """Whether a line has the pattern, other than one that only uses the value."""
    return any(re.search(pattern, line) and not re.search(used, line) for line in text_of(path).splitlines())


def files_of_walk(root, walk):
    """The product's files, the tests and the documents that name the walk's example."""
    root = pathlib.Path(root)
    tests = [path for folder in ("tests", "src/testing") for path in files_under(root, folder)]
    documents = files_under(root, "docs", (".md",)) + files_under(root, "src/resources/help", (".html",))
    return (units(root, [path for path in product_files(root) if names(path, walk.named, walk.used)]),
            units(root, [path for path in tests if names(path, walk.named)]),
            units(root, [path for path in documents if names(path, walk.described)]))


def files_of_port(root):
    """Everything that uses the system: the folder platform, and the files that a windows.cmake or shell.cmake lists."""
    root = pathlib.Path(root)
    found = {unit_of(root, path) for path in files_under(root, "src/platform")}
    for list_name in ("windows.cmake", "shell.cmake"):
        for path in (root / "src").rglob(list_name):
            listed = check_layers.LISTED.findall(re.sub(r"#.*", "", text_of(path)))
            found |= {"src/" + name.removesuffix(".cpp") for name in listed}
    return sorted(found)


def without_comments(text):
    """The code, with every text in quotes emptied."""
    return COMMENT_OR_TEXT.sub(lambda match: '""' if match[1] else "' '" if match[2] else "", text)


def class_body(text, start):
    """The text from `start` to the brace that closes the class."""
    depth = 1
    for at in range(start, len(text)):
        depth += {"{": 1, "}": -1}.get(text[at], 0)
        if depth == 0:
            return text[start:at]
    return text[start:]


def members(body):
    """Each member of a class, without the bodies of its functions."""
    member, depth = "", 0
    for character in body:
        if character == "{":
            depth += 1
        elif character == "}":
            depth -= 1
            if depth == 0 and "(" in member:
                yield member.strip()
                member = ""
        elif depth == 0 and character == ";":
            yield member.strip()
            member = ""
        elif depth == 0:
            member += character
    yield member.strip()


def is_function(member):
    """Template arguments such as std::function<void(int)> and attributes contain parentheses of their own."""
    plain = re.sub(r"\[\[.*?\]\]", "", member)
    while re.search(r"<[^<>]*>", plain):
        plain = re.sub(r"<[^<>]*>", "", plain)
    return "(" in plain.split("=", 1)[0] or "operator" in plain


def functions_by_access(kind, body):
    """(public functions, all functions) that the class declares."""
    access, public, declared = ("public" if kind == "struct" else "private"), 0, 0
    for member in members(body):
        for label in re.findall(r"\b(public|private|protected)\s*:(?!:)", member):
            access = label
        member = re.sub(r"\b(public|private|protected)\s*:(?!:)", "", member).strip()
        if NO_FUNCTION.match(member) or not is_function(member):
            continue
        declared += 1
        public += access == "public"
    return public, declared


def class_sizes(root):
    """(public functions, declared functions, class, header), the largest first."""
    found = []
    for path in product_files(root):
        if path.suffix != ".h":
            continue
        text = re.sub(r"^\s*#.*$", "", without_comments(text_of(path)), flags=re.MULTILINE)
        for match in CLASS.finditer(text):
            public, declared = functions_by_access(match[0].split()[0], class_body(text, match.end()))
            found.append((public, declared, match[1], path.relative_to(root).as_posix()))
    return sorted(found, key=lambda size: (-size[0], size[2]))


def folder_of(name):
    folder = name.rsplit("/", 1)[0]
    return folder if folder in FOLDERS else folder.split("/")[0]


def includes_of(root):
    src = pathlib.Path(root) / "src"
    return {path.relative_to(src).as_posix(): check_layers.INCLUDE.findall(text_of(path)) for path in product_files(root)}


def arrows_up(root):
    """{(folder, folder above it): the includes}."""
    found = collections.defaultdict(list)
    for name, included in includes_of(root).items():
        own = folder_of(name)
        for kind, target in included:
            other = folder_of(target)
            if kind == '"' and own in FOLDERS and other in FOLDERS and FOLDERS.index(other) > FOLDERS.index(own):
                found[own, other].append(f"{name} includes {target}")
    return dict(found)


def counted_lines(path):
    """(number, text) of the lines that can repeat something: no comment, include, namespace or lone brace."""
    kept = []
    for number, line in enumerate(without_comments_keeping_lines(text_of(path)).splitlines(), 1):
        line = " ".join(line.split())
        if len(line) > 3 and not line.startswith(("#", "namespace", "using", "}  //")):
            kept.append((number, line))
    return kept


def without_comments_keeping_lines(text):
    return COMMENT_OR_TEXT.sub(lambda match: match[0] if match[1] or match[2] else "\n" * match[0].count("\n"), text)


def repeats(root):
    """(place, place, lines): the pairs of places under src with the same SHARED_LINES lines or more."""
    lines = {path.relative_to(root).as_posix(): counted_lines(path) for path in product_files(root)}
    places = collections.defaultdict(list)
    for name, kept in lines.items():
        for at in range(len(kept) - SHARED_LINES + 1):
            places[tuple(text for _, text in kept[at:at + SHARED_LINES])].append((name, at))
    starts = {pair for same in places.values() for i, one in enumerate(same) for pair in ((one, other) for other in same[i + 1:])}
    found = []
    for one, other in sorted(starts):
        if ((one[0], one[1] - 1), (other[0], other[1] - 1)) in starts:
            continue  # within the pair that begins a line before
        length = SHARED_LINES
        while ((one[0], one[1] + length - SHARED_LINES + 1), (other[0], other[1] + length - SHARED_LINES + 1)) in starts:
            length += 1
        if one[0] == other[0] and other[1] - one[1] < length:
            continue  # a list that repeats its own lines
        found.append(tuple(f"{name}:{lines[name][at][0]}" for name, at in (one, other)) + (length,))
    return found


def long_files(root):
    found = []
    for folder in ("src", "tests", "tools", "scripts"):
        for path in files_under(root, folder, CODE + (".py", ".sh")):
            length = len(text_of(path).splitlines())
            if length > LONG_FILE:
                found.append((length, path.relative_to(root).as_posix()))
    return sorted(found, reverse=True)


def rows_of(root):
    """(title, what the table shows, details)."""
    for walk in WALKS:
        code, tests, documents = files_of_walk(root, walk)
        yield (f"{walk.title} ({walk.example}): files", str(len(code)), code)
        yield ("    tests that name it; documents", f"{len(tests)}; {len(documents)}", tests + documents)
    port = files_of_port(root)
    lines = sum(len(text_of(path).splitlines()) for path in product_files(root) if unit_of(pathlib.Path(root), path) in port)
    yield (f"{PORT}: files; lines", f"{len(port)}; {lines}", [])
    for place, (public, declared, name, header) in enumerate(class_sizes(root)[:LARGEST], 1):
        yield (f"public functions, class {place}", f"{public} {name}", [f"{header} declares {declared} functions in all"])
    arrows = arrows_up(root)
    yield ("arrows between folders that run up", str(len(arrows)),
           [f"{own} -> {other}: {len(includes)} includes, as {includes[0]}" for (own, other), includes in sorted(arrows.items())])
    pairs = repeats(root)
    yield ("repeats under src", str(len(pairs)), [f"{one} ~ {other}: {length} lines" for one, other, length in pairs])
    files = long_files(root)
    yield (f"files of more than {LONG_FILE} lines: product; tests",
           f"{sum(name.startswith(('src', 'tools')) for _, name in files)}; {sum(name.startswith('tests') for _, name in files)}",
           [f"{name}: {length}" for length, name in files])


def over_goal(root):
    """One line for each walk that needs more files than its goal, or whose example is not in the tree any more."""
    for walk in WALKS:
        code = files_of_walk(root, walk)[0]
        if not code:
            yield f"{walk.title}: no file names {walk.example}; choose another example in count_structure.py"
        elif len(code) > walk.goal:
            yield f"{walk.title}: {len(code)} files to touch, at most {walk.goal} are allowed: {', '.join(code)}"


def unpack(revision, folder):
    """The sources of a commit, without touching the working tree."""
    archive = subprocess.run(["git", "-C", str(ROOT), "archive", revision], capture_output=True, check=True).stdout
    with tarfile.open(fileobj=io.BytesIO(archive)) as tar:
        tar.extractall(folder)


def print_table(columns):
    print("| | " + " | ".join(columns) + " |")
    print("|---|" + "---|" * len(columns))
    tables = [list(rows) for rows in columns.values()]
    for row in zip(*tables):
        print(f"| {row[0][0].strip()} | " + " | ".join(value for _, value, _ in row) + " |")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--rev", action="append", default=[], help="an older commit, as a column of its own")
    parser.add_argument("--details", action="store_true", help="name what was counted in the working tree")
    parser.add_argument("--check", action="store_true", help="print only what exceeds a goal")
    parser.add_argument("--root", default=ROOT, help="the working tree")
    wanted = parser.parse_args()
    if wanted.check:
        found = list(over_goal(wanted.root))
        print("\n".join(found))
        return 1 if found else 0
    columns = {}
    for revision in wanted.rev:
        with tempfile.TemporaryDirectory() as folder:
            unpack(revision, folder)
            columns[revision] = list(rows_of(folder))
    columns["working tree"] = list(rows_of(wanted.root))
    print_table(columns)
    if wanted.details:
        for title, value, details in columns["working tree"]:
            print(f"\n{title.strip()}: {value}" + "".join(f"\n  {line}" for line in details))
    return 0


if __name__ == "__main__":
    sys.exit(main())
