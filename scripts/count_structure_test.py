#!/usr/bin/env python3
"""Proves that count_structure counts: small source trees, each with the files to be found."""

import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import count_structure  # noqa: E402  (found by the line above)

OPTION = next(walk for walk in count_structure.WALKS if walk.title == "an option")
SCHEME = next(walk for walk in count_structure.WALKS if walk.title == "a color scheme")
SHARED = "".join(f"    result += Weigh(part{number});\n" for number in range(count_structure.SHARED_LINES))


class CountStructureTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def write(self, **files):
        """The files; `__` in a name is a slash, and the last `_` is the dot of the ending."""
        for name, content in files.items():
            path = self.root / ".".join(name.replace("__", "/").rsplit("_", 1))
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(content + "\n", encoding="utf-8")

    def test_a_header_and_its_source_are_one_file(self):
        self.write(src__app__settings_h="bool autoPinNewNotes;", src__app__settings_cpp="Row(&S::autoPinNewNotes);")
        self.assertEqual(count_structure.files_of_walk(self.root, OPTION)[0], ["src/app/settings"])

    def test_the_place_that_uses_the_value_does_not_count(self):
        self.write(src__app__settings_h="bool autoPinNewNotes;", src__app__opening_cpp="if (settings.autoPinNewNotes) Pin();")
        self.assertEqual(count_structure.files_of_walk(self.root, OPTION)[0], ["src/app/settings"])

    def test_tests_and_documents_are_counted_apart(self):
        self.write(src__app__settings_h="bool autoPinNewNotes;", tests__unit__pin_test_cpp="settings.autoPinNewNotes = true;",
                   src__testing__fake_h="bool autoPinNewNotes;", docs__settings_md="Auto-pin new notes: off")
        code, tests, documents = count_structure.files_of_walk(self.root, OPTION)
        self.assertEqual(code, ["src/app/settings"])
        self.assertEqual(tests, ["src/testing/fake", "tests/unit/pin_test"])
        self.assertEqual(documents, ["docs/settings"])

    def test_a_walk_that_needs_too_many_files_is_over_its_goal(self):
        example = 'constexpr Row kRow = {"Auto-pin new notes"};'
        self.write(**{f"src__app__part{number}_cpp": example for number in range(OPTION.goal)})
        self.assertFalse([line for line in count_structure.over_goal(self.root) if "files to touch" in line])
        self.write(src__app__one_more_cpp=example)
        self.assertEqual(len([line for line in count_structure.over_goal(self.root) if "files to touch" in line]), 1)

    def test_an_example_that_is_not_in_the_tree_is_reported(self):
        self.write(src__app__settings_h="")
        self.assertEqual(len(list(count_structure.over_goal(self.root))), len(count_structure.WALKS))

    def test_a_number_that_depends_on_the_schemes_is_a_place_to_touch(self):
        self.write(src__palette_h='{"Bright yellow"},', src__strip_h="inline constexpr int kStripWidth = 4020;")
        self.assertEqual(count_structure.files_of_walk(self.root, SCHEME)[0], ["src/palette", "src/strip"])

    def test_the_files_of_a_port_are_those_that_use_the_system(self):
        self.write(src__platform__clock_h="", src__notes__note_form_cpp="", src__notes__note_cpp="",
                   src__notes__windows_cmake="target_sources(x PRIVATE notes/note_form.cpp)  # notes/note.cpp")
        self.assertEqual(count_structure.files_of_port(self.root), ["src/notes/note_form", "src/platform/clock"])

    def test_public_functions_are_declared_functions(self):
        self.write(src__note_h="""
class Note final : public Window {
public:
    explicit Note(int x = (1));  ///< not Second(int);
    ~Note() override;
    [[nodiscard("why")]] int Size() const { if (size_) { return size_; } return 0; }
    std::function<void(int)> onChange;
    friend bool operator==(const Note&, const Note&) = default;
    enum class Kind { One, Two };
    std::string name = Name("a;b");

private:
    void Hidden();
    int size_;
};
struct Rect { int left; int Right() const; };
class Declared;
""")
        self.assertEqual(count_structure.class_sizes(self.root),
                         [(3, 4, "Note", "src/note.h"), (1, 1, "Rect", "src/note.h")])

    def test_arrows_that_run_up_are_pairs_of_folders(self):
        self.write(src__notes__note_h='#include "app/quit.h"\n#include "app/base/settings.h"\n#include "util/text.h"\n#include <app/x.h>',
                   src__notes__saver_h='#include "app/quit.h"', src__app__base__settings_h='#include "notes/note.h"')
        self.assertEqual({arrow: len(includes) for arrow, includes in count_structure.arrows_up(self.root).items()},
                         {("notes", "app"): 2, ("app/base", "notes"): 1})

    def test_repeats_are_pairs_of_places(self):
        self.write(src__a_cpp="int A() {\n" + SHARED + "}", src__b_cpp="int B() {  // another\n" + SHARED + "    return 0;\n}")
        self.assertEqual(count_structure.repeats(self.root), [("src/a.cpp:2", "src/b.cpp:2", count_structure.SHARED_LINES)])

    def test_fewer_lines_are_no_repeat(self):
        self.write(src__a_cpp=SHARED, src__b_cpp=SHARED.split("\n", 1)[1])
        self.assertEqual(count_structure.repeats(self.root), [])

    def test_includes_and_comments_are_no_repeat(self):
        common = "".join(f'#include "util/part{number}.h"\n// Part {number}.\n' for number in range(count_structure.SHARED_LINES))
        self.write(src__a_cpp=common, src__b_cpp=common)
        self.assertEqual(count_structure.repeats(self.root), [])

    def test_long_files_have_more_lines_than_the_limit(self):
        self.write(src__short_cpp="\n" * (count_structure.LONG_FILE - 1), src__long_cpp="\n" * count_structure.LONG_FILE)
        self.assertEqual(count_structure.long_files(self.root), [(count_structure.LONG_FILE + 1, "src/long.cpp")])

    def test_this_tree_has_every_example(self):
        for walk in count_structure.WALKS:
            self.assertTrue(count_structure.files_of_walk(count_structure.ROOT, walk)[0], walk.title)


if __name__ == "__main__":
    unittest.main()
