#!/usr/bin/env python3
"""Checks how many actions of the mouse the end-to-end tests have repeated: check_repeats.py RESULTS.xml...

A press can get lost between the desktop and the system, so a test repeats an action until it has had its effect, and prints
a line about each one that it had to repeat (tests/e2e/harness/input.h). The results are those that ctest writes. A few such
lines in a run are the desktop's; more of them mean that the program loses clicks, and fail the run. Prints each of them with
its test, and their number; ends with 1 if there are too many.
"""

import pathlib
import re
import sys

# Runs of all tests on two busy processors had 0, 0, 1, 4 and 6. Three times the worst is left to slower machines; a kind of
# click that the program really loses is repeated by more tests than that.
MOST_ACTIONS = 18

TEST = re.compile(r'<testcase name="([^"]*)"')
ACTION = re.compile(r"(?:^|<system-out>)REPEATED ACTION: (\d+ attempts)")


def repeated_actions(results):
    """(test, attempts) for each repeated action in one file of results."""
    test = "?"
    for line in results.splitlines():
        if named := TEST.search(line):
            test = named[1]
        if repeated := ACTION.search(line):
            yield test, repeated[1]


def main(files):
    actions = [action for file in files
               for action in repeated_actions(pathlib.Path(file).read_text(encoding="utf-8", errors="replace"))]
    for test, attempts in actions:
        print(f"  {attempts}: {test}")
    print(f"Mouse actions that were repeated within tests: {len(actions)} (at most {MOST_ACTIONS})")
    return 1 if len(actions) > MOST_ACTIONS else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
