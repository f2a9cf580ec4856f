#!/usr/bin/env python3
"""Proves that check_lengths can fail: small source trees, each with one breach."""

import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import check_lengths  # noqa: E402  (found by the line above)


def function_of(lines, head="TEST_F(Suite, Name)"):
    """A function with that many lines up to its closing brace."""
    return head + " {\n" + "    Act();\n" * (lines - 1) + "}\n"


class CheckLengthsTest(unittest.TestCase):
    def breaches_of(self, files):
        with tempfile.TemporaryDirectory() as root:
            for name, content in files.items():
                path = pathlib.Path(root) / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(content, encoding="utf-8")
            return list(check_lengths.breaches(root))

    def test_a_file_at_the_limit_passes(self):
        self.assertEqual(self.breaches_of({"src/a.cpp": "\n" * check_lengths.MOST_LINES_OF_FILE}), [])

    def test_a_file_over_the_limit_fails(self):
        for name in ("src/notes/a.cpp", "tests/unit/a.h", "tools/qln/a.cpp", "scripts/a.py", "packaging/a.sh"):
            found = self.breaches_of({name: "\n" * (check_lengths.MOST_LINES_OF_FILE + 1)})
            self.assertEqual(len(found), 1, name)
            self.assertIn(name, found[0])

    def test_a_function_at_the_limit_passes(self):
        self.assertEqual(self.breaches_of({"tests/a.cpp": function_of(check_lengths.MOST_LINES_OF_FUNCTION)}), [])

    def test_a_function_over_the_limit_fails(self):
        for head in ("TEST_F(Suite, Name)", "int Count(int first,\n          int second) const noexcept",
                     "Note::Note(int x) : one_(x), two_{x}, three_(F({x}))"):
            text = "namespace quillo {\nnamespace {\n" + function_of(check_lengths.MOST_LINES_OF_FUNCTION + 1, head) + "}\n}\n"
            self.assertEqual(len(self.breaches_of({"tests/a.cpp": text})), 1, head)

    def test_a_function_of_a_class_counts(self):
        text = "class Note {\n" + function_of(check_lengths.MOST_LINES_OF_FUNCTION + 1, "    void Act()") + "};\n"
        self.assertEqual(len(self.breaches_of({"tests/a.cpp": text})), 1)

    def test_lists_and_braces_in_texts_do_not_count(self):
        rows = "    {1, \"{\"},  // {\n" * 100
        text = f"constexpr std::array<Row, 100> kRows = {{{{\n{rows}}}}};\nchar kBrace = L'{{';\n" + function_of(3) * 40
        self.assertEqual(self.breaches_of({"tests/a.cpp": text}), [])


if __name__ == "__main__":
    unittest.main()
