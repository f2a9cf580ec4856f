#!/usr/bin/env python3
"""Proves that check_features can fail: small trees, each with one fault."""

import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import check_features  # noqa: E402  (found by the line above)

HEAD = "# What it does\n\n| what | shown by |\n|---|---|\n"
TREE = {
    "tests/unit/util/text_test.cpp": "TEST(TextTest, Trims) {}\n",
    "tests/windows/note_test.cpp": "TEST_F(NoteTest,\n       HasALongName) {}\n",
    "tests/e2e/startup_test.cpp": "TEST_F(Startup, ShowsNotes) {}\n",
    "tests/e2e/CMakeLists.txt": "add_test(NAME e2e.sound COMMAND x)\n",
    "scripts/CMakeLists.txt": "quillo_check(layers x)\n",
}


def problems_of(table):
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        for name, content in {**TREE, "docs/features.md": table}.items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(content, encoding="utf-8")
        return list(check_features.problems(root))


class CheckFeatures(unittest.TestCase):
    def test_names_that_exist_are_good(self):
        for name in ("core.TextTest.Trims", "windows.NoteTest.HasALongName", "e2e.Startup.ShowsNotes", "e2e.sound",
                     "check.layers"):
            self.assertEqual(problems_of(f"{HEAD}| a thing | `{name}` |\n"), [], name)

    def test_a_name_that_does_not_exist(self):
        for name in ("core.TextTest.Trim", "e2e.TextTest.Trims", "check.nothing"):
            self.assertEqual(len(problems_of(f"{HEAD}| a thing | `{name}` |\n")), 1, name)

    def test_one_of_two_names_that_does_not_exist(self):
        self.assertEqual(len(problems_of(f"{HEAD}| a thing | `core.TextTest.Trims`, `core.TextTest.Gone` |\n")), 1)

    def test_a_row_without_a_test(self):
        self.assertEqual(len(problems_of(f"{HEAD}| a thing | trust me |\n")), 1)

    def test_no_row_at_all(self):
        self.assertEqual(len(problems_of(HEAD)), 1)


if __name__ == "__main__":
    unittest.main()
