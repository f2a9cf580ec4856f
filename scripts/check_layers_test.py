#!/usr/bin/env python3
"""Proves that check_layers can fail: small source trees, each with one breach."""

import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import check_layers  # noqa: E402  (found by the line above)

SOUND = {
    "util/text.h": "#include <string>",
    "ports/clock.h": '#include "util/text.h"',
    "registry/tessel_registry.h": '#include "ports/clock.h"',
    "controls/button_state.h": '#include "util/text.h"',
    "app/base/settings.h": '#include "registry/tessel_registry.h"',
    "reminders/phrase.h": '#include "app/base/settings.h"',
    "notes/note.h": '#include "reminders/phrase.h"',
    "notes/note.cpp": '#include "notes/note.h"',
    "notes/core.cmake": "target_sources(quillo_core PRIVATE notes/note.cpp)",
    "app/open_notes.h": '#include "notes/note.h"',
    "mainmenu/menu_map.h": '#include "app/open_notes.h"',
    "platform/win32.h": "#include <windows.h>",
    "platform/window.h": '#include "platform/win32.h"\n#include "util/text.h"',
    "notes/note_form.h": '#include "platform/window.h"\n#include "app/base/settings.h"\n#include "version.h"',
    "notes/note_form.cpp": '#include "notes/note_form.h"',
    "notes/windows.cmake": "target_sources(quillo_windows PRIVATE notes/note_form.cpp)",
    "controls/note_button.h": '#include "platform/window.h"',
    "app/quillo_procs.h": '#include "notes/note_form.h"\n#include "mainmenu/menu_map.h"',
    "app/main.cpp": '#include "app/quillo_procs.h"',
    "testing/fakes.h": '#include "ports/clock.h"',
}


def breaches_of(changes):
    with tempfile.TemporaryDirectory() as root:
        for name, content in {**SOUND, **changes}.items():
            path = pathlib.Path(root) / "src" / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(content + "\n", encoding="utf-8")
        return check_layers.breaches(root)


class CheckLayersTest(unittest.TestCase):
    def expect(self, changes, words):
        found = breaches_of(changes)
        self.assertEqual(len(found), 1, found)
        self.assertIn(words, found[0])

    def test_a_sound_tree_passes(self):
        self.assertEqual(breaches_of({}), [])

    def test_an_empty_tree_fails(self):
        with tempfile.TemporaryDirectory() as root:
            self.assertEqual(len(check_layers.breaches(root)), 1)

    def test_upward_includes_of_the_core(self):
        self.expect({"util/text.h": '#include "ports/clock.h"'}, "util must not include ports")
        self.expect({"registry/other.h": '#include "controls/button_state.h"'}, "registry must not include controls")
        self.expect({"app/base/settings.h": '#include "notes/note.h"'}, "app/base must not include notes")
        self.expect({"notes/note.h": '#include "app/open_notes.h"'}, "notes must not include app")
        self.expect({"app/open_notes.h": '#include "mainmenu/menu_map.h"'}, "app must not include mainmenu")

    def test_the_core_includes_no_windows(self):
        self.expect({"notes/note.cpp": '#include "notes/note_form.h"'}, "must not include a window file")
        self.expect({"notes/note.cpp": '#include "version.h"'}, "must not include resources")
        self.expect({"notes/note.cpp": "#include <windows.h>"}, "only platform/win32.h")
        self.expect({"notes/note_form.cpp": "#include <Windows.h>"}, "only platform/win32.h")

    def test_windows_include_each_other_only_downward(self):
        self.expect({"controls/note_button.h": '#include "notes/note_form.h"'},
                    "controls must not include notes")
        self.expect({"platform/window.h": '#include "controls/note_button.h"\n#include "platform/win32.h"'},
                    "platform must not include controls")
        self.expect({"notes/note_form.cpp": '#include "app/open_notes.h"'}, "notes must not include app")
        self.expect({"platform/window.cpp": '#include "app/base/settings.h"',
                     "platform/windows.cmake": "platform/window.cpp"}, "platform must not include app/base")

    def test_only_the_composition_root_sees_everything(self):
        self.expect({"notes/note_form.cpp": '#include "app/quillo_procs.h"'}, "composition root")

    def test_fakes_stay_in_the_tests(self):
        self.expect({"notes/note.cpp": '#include "testing/fakes.h"'}, "only tests include the fakes")
        self.expect({"notes/note_form.cpp": '#include "testing/fakes.h"'}, "only tests include the fakes")
        self.expect({"testing/fakes.h": '#include "platform/window.h"'}, "the fakes must not include a window file")

    def test_every_folder_has_a_level(self):
        self.expect({"notes/parts/piece.h": '#include "util/text.h"'}, "the folder 'notes/parts' has no level")

    def test_every_source_is_in_one_list(self):
        self.expect({"notes/core.cmake": "# notes/note.cpp"}, "is in no core.cmake")
        self.expect({"notes/twice.cpp": "", "notes/core.cmake": "notes/note.cpp notes/twice.cpp",
                     "notes/windows.cmake": "notes/note_form.cpp notes/twice.cpp"}, "more than one list")
        self.expect({"notes/core.cmake": "notes/note.cpp notes/gone.cpp"}, "does not exist")
        self.expect({"app/core.cmake": "notes/note.cpp", "notes/core.cmake": ""}, "another folder")

    def test_paths_start_at_src(self):
        self.expect({"notes/note.cpp": '#include "note.h"'}, "no such file")


if __name__ == "__main__":
    unittest.main()
