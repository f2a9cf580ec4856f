#!/usr/bin/env python3
"""Checks the language of comments, documents, help pages, test names and messages for developers: check_language.py ROOT

It runs codespell with American spelling, and searches for the words that the table in docs/style.md lists. Other text in
quotes or backticks is not searched, because it may be fixed: captions, messages, names. The texts of qln are searched.
"""

import html
import pathlib
import re
import subprocess
import sys

STYLE = pathlib.Path("docs") / "style.md"
SECTION = "## Words to avoid"
IGNORED_SPELLINGS = pathlib.Path("scripts") / "spelling_ignored.txt"
CODESPELL = ["codespell", "--builtin", "clear,rare,en-GB_to_en-US"]
FOLDERS = (".ci", ".github", "cmake", "docs", "packaging", "scripts", "src", "tests", "tools")
# Data of the tests, schemas of winget, the style page's own examples, and steps for testers at a Windows machine.
SKIPPED = ("tests/corpus/", "packaging/winget/", STYLE.as_posix())

QUOTED = re.compile(r'"[^"]*"|`[^`]*`|<code>.*?</code>|<kbd>.*?</kbd>|\bhttps?://\S+')
WORDS_OF_NAME = re.compile(r"[A-Z]?[a-z]+|[A-Z]+(?![a-z])")
TEST = re.compile(r"^TEST(?:_F|_P)?\(\w+,\s*(\w+)\)", re.MULTILINE)
SLASH_COMMENT = re.compile(r'^(?:[^"/]|"(?:[^"\\]|\\.)*"|/(?!/))*?//[/!<]*\s?(.*)$')
HASH_COMMENT = re.compile(r"^\s*#(?!!|\s*shellcheck|\s*noqa)(.*)$|\s#\s(.*)$")
SEMICOLON_COMMENT = re.compile(r"^\s*;(.*)$|\s;\s(.*)$")
STRING = r'"(?:[^"\\\n]|\\.)*"'
# Messages of tests, and the reasons of static_assert and Ignore; a literal can continue in the next one.
MESSAGE = re.compile(rf"(?:<<\s*|\b(?:Ignore|static_assert)\([^;]*?,\s*)({STRING}(?:\s*{STRING})*)")
LITERAL = re.compile(rf"({STRING}(?:\s*{STRING})*)")
LITERALS_SEARCHED = "tools/qln/"
DOCSTRING = re.compile(r'"""(.*?)"""', re.DOTALL)
TAG = re.compile(r"<[^>]*>")

COMMENT_OF = {".cpp": SLASH_COMMENT, ".h": SLASH_COMMENT, ".inc": SLASH_COMMENT, ".in": SLASH_COMMENT, ".py": HASH_COMMENT,
              ".sh": HASH_COMMENT, ".cmake": HASH_COMMENT, ".txt": HASH_COMMENT, ".yml": HASH_COMMENT, "": HASH_COMMENT,
              ".nsi": SEMICOLON_COMMENT}


def avoided_words(style):
    """The words and phrases in the first column of the style page's table."""
    table = style.partition(SECTION)[2]
    rows = [line.split("|")[1] for line in table.splitlines() if line.startswith("|")]
    return [word for row in rows for word in re.findall(r"`([^`]+)`", row)]


def message_lines(name, content):
    """(line number, text) of the string literals that a developer or a user of qln reads."""
    pattern = LITERAL if name.startswith(LITERALS_SEARCHED) else MESSAGE
    for match in pattern.finditer(content):
        text = "".join(re.findall(STRING, match.group(1)))
        yield content[:match.start(1)].count("\n") + 1, text.replace('\\"', "\0").replace('"', "").replace("\0", '"')


def text_lines(name, content):
    """(line number, text for readers) of one file."""
    suffix = pathlib.PurePosixPath(name).suffix
    lines = content.splitlines()
    if suffix == ".md":
        yield from enumerate(lines, 1)
    elif suffix == ".html":
        for number, line in enumerate(lines, 1):
            yield number, html.unescape(TAG.sub(" ", QUOTED.sub(" ", line)))
    elif suffix in COMMENT_OF:
        for number, line in enumerate(lines, 1):
            match = COMMENT_OF[suffix].match(line) if suffix in (".cpp", ".h") else COMMENT_OF[suffix].search(line)
            if match:
                yield number, next(group for group in match.groups() if group is not None)
        if suffix == ".py":
            for match in DOCSTRING.finditer(content):
                yield content[:match.start()].count("\n") + 1, match.group(1).replace("\n", " ")
        if suffix == ".cpp":
            yield from message_lines(name, content)
        for match in TEST.finditer(content):
            yield content[:match.start()].count("\n") + 1, " ".join(WORDS_OF_NAME.findall(match.group(1)))


def breaches(files, words):
    """Lines with a word to avoid; `files` maps names to contents."""
    if not words:
        yield f"{STYLE}: the table of words to avoid is empty"
        return
    pattern = re.compile(r"\b(?:" + "|".join(map(re.escape, words)) + r")\b", re.IGNORECASE)
    for name, content in files.items():
        for number, text in text_lines(name, content):
            for match in pattern.finditer(QUOTED.sub(" ", text)):
                yield f"{name}:{number}: avoid '{match.group(0)}' (see {STYLE}): {text.strip()[:90]}"


def own_files(root):
    """(name, content) of every text file of the project."""
    files = [path for folder in FOLDERS for path in (root / folder).rglob("*")] + list(root.iterdir())
    for path in sorted(path for path in files if path.is_file()):
        name = path.relative_to(root).as_posix()
        content = path.read_bytes()
        if not name.startswith(SKIPPED) and "__pycache__" not in name and b"\0" not in content:
            yield name, content.decode("utf-8")


def misspellings(root, names):
    run = subprocess.run([*CODESPELL, "--ignore-words", str(root / IGNORED_SPELLINGS), *names], cwd=root,
                         capture_output=True, check=False, text=True)
    return [line for line in (run.stdout + run.stderr).splitlines() if line]


def main():
    if len(sys.argv) != 2:
        sys.exit(f"usage: {sys.argv[0]} ROOT")
    root = pathlib.Path(sys.argv[1]).resolve()
    files = dict(own_files(root))
    found = list(breaches(files, avoided_words((root / STYLE).read_text(encoding="utf-8"))))
    found += misspellings(root, files)
    print("\n".join(found) or f"{len(files)} files: good")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
