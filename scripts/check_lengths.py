#!/usr/bin/env python3
"""Checks that files and functions stay short enough to be read in one go: check_lengths.py [ROOT]

A file has at most 450 lines: sources, tests, small programs and scripts. A function of the tests or the small programs has
at most 60, as clang-tidy checks it for the sources under src. Prints one line per breach and ends with 1 if there is any.
"""

import pathlib
import re
import sys

MOST_LINES_OF_FILE = 450
MOST_LINES_OF_FUNCTION = 60
FOLDERS = ("src", "tests", "tools", "scripts", "packaging", "cmake")
ENDINGS = (".h", ".cpp", ".py", ".sh", ".cmake")
# clang-tidy reads the others.
FUNCTIONS_OF = ("tests", "tools", "src/testing")

NOT_CODE = re.compile(r'R"(\w*)\(.*?\)\1"|//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])+\'', re.DOTALL)
NO_FUNCTION = re.compile(r"^\s*(namespace|class|struct|enum|union|extern)\b")


def blanked(text):
    """The code with comments and texts emptied; every line keeps its number."""
    return NOT_CODE.sub(lambda match: "\n" * match[0].count("\n"), text)


def is_function_head(head):
    """Whether a brace after this text opens the body of a function."""
    return "(" in head and "=" not in head.split("(", 1)[0] and not NO_FUNCTION.match(head)


def functions(text):
    """(name, first line of the body, lines up to the closing brace) of each function outside other functions."""
    text = blanked(text)
    head, depth, function, line = "", 0, None, 1
    for at, character in enumerate(text):
        line += character == "\n"
        if function is not None:
            depth += {"{": 1, "}": -1}.get(character, 0)
            if depth == 0:
                # After a brace of an initializer list, the head continues.
                if re.match(r"\s*[,){]", text[at + 1:at + 200]):
                    head = function[0] + "()"
                else:
                    yield " ".join(function[0].split()), function[1], line - function[1]
                    head = ""
                function = None
        elif character == "{":
            if is_function_head(head):
                function, depth = (head, line), 1
            head = ""
        elif character in ";}":
            head = ""
        else:
            head += character


def breaches(root):
    root = pathlib.Path(root)
    for path in sorted(path for folder in FOLDERS for path in (root / folder).rglob("*")):
        name = path.relative_to(root).as_posix()
        if path.suffix not in ENDINGS or not path.is_file():
            continue
        text = path.read_text(encoding="utf-8")
        lines = len(text.splitlines())
        if lines > MOST_LINES_OF_FILE:
            yield f"{name}: has {lines} lines, at most {MOST_LINES_OF_FILE} are allowed; split it by subject"
        if path.suffix in (".h", ".cpp") and name.startswith(FUNCTIONS_OF):
            for function, first, length in functions(text):
                if length > MOST_LINES_OF_FUNCTION:
                    yield f"{name}:{first}: '{function}' has {length} lines, at most {MOST_LINES_OF_FUNCTION} are allowed"


def main():
    found = list(breaches(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).resolve().parent.parent))
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
