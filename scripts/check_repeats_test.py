#!/usr/bin/env python3
"""Proves that check_repeats can fail: results of tests with few and with many repeated actions."""

import contextlib
import io
import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import check_repeats  # noqa: E402  (found by the line above)


def results_of(*tests):
    """A file of results with tests of that name and output."""
    cases = "".join(f'\t<testcase name="{name}" classname="{name}" time="1" status="run">\n'
                    f"\t\t<system-out>{output}\n</system-out>\n\t</testcase>\n" for name, output in tests)
    return f'<?xml version="1.0" encoding="UTF-8"?>\n<testsuite name="all">\n{cases}</testsuite>\n'


def repeating(name, times):
    return name, "[ RUN      ] x\n" + f"REPEATED ACTION: 2 attempts, in {name}\n" * times + "[       OK ] x"


class CheckRepeatsTest(unittest.TestCase):
    def check(self, *files):
        """The exit code and the output."""
        printed = io.StringIO()
        with tempfile.TemporaryDirectory() as folder, contextlib.redirect_stdout(printed):
            paths = [pathlib.Path(folder) / str(number) for number in range(len(files))]
            for path, content in zip(paths, files):
                path.write_text(content, encoding="utf-8")
            return check_repeats.main(paths), printed.getvalue()

    def test_a_run_without_repeated_actions_passes(self):
        self.assertEqual(self.check(results_of(("e2e.A.B", "[       OK ] A.B")))[0], 0)

    def test_as_many_as_allowed_pass(self):
        self.assertEqual(self.check(results_of(repeating("e2e.A.B", check_repeats.MOST_ACTIONS)))[0], 0)

    def test_one_more_fails(self):
        status, printed = self.check(results_of(repeating("e2e.A.B", 1), repeating("e2e.C.D", check_repeats.MOST_ACTIONS)))
        self.assertEqual(status, 1)
        self.assertIn("2 attempts: e2e.A.B\n", printed)
        self.assertIn("2 attempts: e2e.C.D\n", printed)

    def test_tests_that_were_run_again_count_too(self):
        self.assertEqual(self.check(results_of(repeating("e2e.A.B", check_repeats.MOST_ACTIONS)),
                                    results_of(repeating("e2e.A.B", 1)))[0], 1)

    def test_the_first_line_of_an_output_counts(self):
        first = results_of(("e2e.A.B", "REPEATED ACTION: 3 attempts, in A"))
        self.assertEqual(list(check_repeats.repeated_actions(first)), [("e2e.A.B", "3 attempts")])

    def test_a_text_about_repeated_actions_is_none(self):
        self.assertEqual(list(check_repeats.repeated_actions(results_of(("e2e.A.B", "no REPEATED ACTION: 1 attempts")))), [])


if __name__ == "__main__":
    unittest.main()
