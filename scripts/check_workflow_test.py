#!/usr/bin/env python3
"""Proves that check_workflow can fail: the workflow itself, with one error each time."""

import pathlib
import shutil
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import check_workflow  # noqa: E402  (found by the line above)

ROOT = pathlib.Path(__file__).resolve().parent.parent


def problems_with(old, new):
    """The problems found when `old` is replaced in the workflow."""
    text = (ROOT / check_workflow.WORKFLOW).read_text(encoding="utf-8")
    if old not in text:
        raise AssertionError(f"the workflow has no '{old}'")
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        for part in ("src", "tests", "tools", "scripts", "packaging", "cmake"):
            for source in (ROOT / part).rglob("*"):
                if source.name == "CMakeLists.txt" or source.suffix in (".cmake", ".ps1", ".py"):
                    target = root / source.relative_to(ROOT)
                    target.parent.mkdir(parents=True, exist_ok=True)
                    shutil.copy(source, target)
        for name in ("CMakeLists.txt", "CMakePresets.json"):
            shutil.copy(ROOT / name, root)
        workflow = root / check_workflow.WORKFLOW
        workflow.parent.mkdir(parents=True)
        workflow.write_text(text.replace(old, new), encoding="utf-8")
        return list(check_workflow.problems(root))


class CheckWorkflowTest(unittest.TestCase):
    def expect(self, old, new, words):
        found = problems_with(old, new)
        self.assertTrue(found, "nothing was found")
        self.assertIn(words, found[0])

    def test_the_workflow_as_it_is_passes(self):
        self.assertEqual(problems_with("name: Windows", "name: Windows"), [])

    def test_a_configure_preset_that_does_not_exist(self):
        self.expect("cmake --preset windows-native", "cmake --preset windows-arm", "no configure preset")

    def test_a_build_preset_that_does_not_exist(self):
        self.expect("--build --preset windows-native", "--build --preset windows-arm", "no build preset")

    def test_a_target_that_does_not_exist(self):
        self.expect("--build --preset windows-native", "--build --preset windows-native --target quilo", "no target 'quilo'")

    def test_a_label_that_does_not_exist(self):
        self.expect("--label-regex e2e", "--label-regex e3e", "no test has the label 'e3e'")

    def test_an_option_that_does_not_exist(self):
        self.expect("-DQUILLO_GTEST_DIR", "-DQUILLO_GTEST", "no option 'QUILLO_GTEST'")

    def test_a_script_that_does_not_exist(self):
        self.expect("scripts/windows_screenshots.ps1", "scripts/screens.ps1", "no script 'scripts/screens.ps1'")

    def test_a_parameter_that_does_not_exist(self):
        self.expect("-Output pictures", "-Folder pictures", "no parameter '-Folder'")

    def test_a_tree_that_no_preset_builds(self):
        self.expect("--test-dir build/windows-x64", "--test-dir build/windows", "no preset builds in")

    def test_a_tool_that_nobody_has_installed(self):
        self.expect("git clone", "hg clone", "'hg' is neither")

    def test_an_action_without_a_version(self):
        self.expect("actions/checkout@v4", "actions/checkout", "does not name a version")


if __name__ == "__main__":
    unittest.main()
