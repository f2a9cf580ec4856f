#!/usr/bin/env python3
"""Proves that check_language can fail: small files, each with one word to avoid or one wrong spelling."""

import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import check_language  # noqa: E402  (found by the line above)

PAGE = "# Style\n\n| `kept` | not the table |\n\n## Words to avoid\n\n| avoid | write |\n|---|---|\n| `yonder`, `of yore` | again |\n"
WORDS = ["yonder", "of yore"]


def found(name, content):
    return list(check_language.breaches({name: content}, WORDS))


class CheckLanguageTest(unittest.TestCase):
    def test_the_words_are_those_of_the_pages_table(self):
        self.assertEqual(check_language.avoided_words(PAGE), WORDS)

    def test_an_empty_list_is_a_breach(self):
        self.assertEqual(len(list(check_language.breaches({}, []))), 1)

    def test_comments_are_searched(self):
        for name, content in (("a.cpp", "int a;  // made Yonder\n"), ("a.h", "/// As of yore.\n"), ("a.sh", "# yonder\n"),
                              ("a.cmake", "set(a b) # yonder\n"), ("a.py", '"""Made\nyonder."""\n'), ("a.nsi", "; yonder\n")):
            self.assertEqual(len(found(name, content)), 1, name)

    def test_documents_and_help_pages_are_searched(self):
        self.assertEqual(len(found("a.md", "It is made yonder.\n")), 1)
        self.assertEqual(len(found("a.html", "<p>It is made <b>yonder</b>.</p>\n")), 1)

    def test_test_names_are_searched(self):
        self.assertEqual(len(found("a_test.cpp", "TEST_F(Menu, IsMadeYonder) {}\n")), 1)

    def test_messages_for_developers_and_users_of_qln_are_searched(self):
        for name, content in (("a_test.cpp", 'EXPECT_TRUE(a) << "made yonder";\n'), ("a_test.cpp", 'EXPECT_TRUE(a)\n    << "made "\n       "yonder";\n'),
                              ("a.cpp", 'Ignore(Delete(u"a"), "made yonder");\n'), ("a.cpp", 'Ignore(Delete(a, b),\n       "made yonder");\n'),
                              ("a.cpp", 'static_assert(a == 1, "yonder");\n'), ("tools/qln/a.cpp", 'Out("made yonder");\n')):
            self.assertEqual(len(found(name, content)), 1, content)
        for name, content in (("a_test.cpp", 'EXPECT_TRUE(a) << "\\"yonder\\" is fixed";\n'), ("a.cpp", 'Ignore(Delete("yonder"), "why");\n'),
                              ("a.cpp", 'Show("made yonder");\n')):
            self.assertEqual(found(name, content), [], content)

    def test_code_quotes_and_longer_words_are_not_searched(self):
        for name, content in (("a.cpp", 'auto yonder = "yonder // yonder";\n'), ("a.cpp", '// says "yonder"\n'), ("a.md", "`yonder`\n"),
                              ("a.cpp", "// yonderness\n"), ("a.html", '<a href="yonder.html">again</a>\n'), ("a.py", "yonder = 1\n")):
            self.assertEqual(found(name, content), [], name)

    def test_british_spelling(self):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            (root / "scripts").mkdir()
            (root / check_language.IGNORED_SPELLINGS).write_text("kown\n", encoding="utf-8")
            (root / "a.md").write_text("The color.\n", encoding="utf-8")
            self.assertEqual(check_language.misspellings(root, ["a.md"]), [])
            (root / "a.md").write_text("The " + "col" + "our.\n", encoding="utf-8")
            self.assertEqual(len(check_language.misspellings(root, ["a.md"])), 1)


if __name__ == "__main__":
    unittest.main()
