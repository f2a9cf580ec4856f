#!/usr/bin/env python3
"""Checks that the workflow for a public Windows machine refers only to existing names: check_workflow.py ROOT

Every command of its steps is a known one or a script of this repository; its presets, labels, options and paths exist.
The workflow itself cannot run here.
"""

import json
import pathlib
import re
import shlex
import sys

import yaml

WORKFLOW = pathlib.Path(".github") / "workflows" / "windows.yml"
# Installed on the machine, or by an earlier step.
MACHINES_OWN = {"call", "choco", "cmake", "ctest", "export", "git", "set"}
PINNED = re.compile(r"^[\w.-]+/[\w.-]+@v\d+$")


def lists_of(root):
    """The text of every list of targets, tests and options."""
    lists = [path for path in root.rglob("CMakeLists.txt") if "build" not in path.relative_to(root).parts]
    lists += [path for path in root.rglob("*.cmake") if "build" not in path.relative_to(root).parts]
    return "\n".join(path.read_text(encoding="utf-8") for path in lists)


class Facts:
    def __init__(self, root):
        self.root = root
        presets = json.loads((root / "CMakePresets.json").read_text(encoding="utf-8"))
        self.configure = {preset["name"] for preset in presets["configurePresets"] if not preset.get("hidden")}
        self.build = {preset["name"] for preset in presets["buildPresets"]}
        self.trees = {preset.get("binaryDir", "").removeprefix("${sourceDir}/") for preset in presets["configurePresets"]}
        self.trees |= {f"build/{name}" for name in self.configure}
        lists = lists_of(root)
        self.targets = set(re.findall(r"add_(?:executable|library|custom_target)\((\w+)", lists)) | {"all"}
        self.labels = set(re.findall(r"\bLABELS (\w+)", lists))
        self.options = set(re.findall(r"(?:option|find_program)\((QUILLO_\w+)", lists))
        self.options |= set(re.findall(r"set\((QUILLO_\w+) [^)]* CACHE", lists))


def option_value(words, name):
    for word, following in zip(words, words[1:] + [""]):
        if word == name:
            return following
        if word.startswith(name + "="):
            return word.partition("=")[2]
    return None


def cmake_problems(words, facts):
    builds = "--build" in words
    preset = option_value(words, "--preset")
    if preset is None:
        yield "cmake without a preset"
    elif preset not in (facts.build if builds else facts.configure):
        yield f"there is no {'build' if builds else 'configure'} preset '{preset}'"
    target = option_value(words, "--target")
    if target is not None and target not in facts.targets:
        yield f"there is no target '{target}'"
    for word in words:
        if word.startswith("-DQUILLO_") and word[2:].partition("=")[0] not in facts.options:
            yield f"there is no option '{word[2:].partition('=')[0]}'"


def ctest_problems(words, facts):
    tree = option_value(words, "--test-dir")
    if tree not in facts.trees:
        yield f"no preset builds in '{tree}'"
    for label in (option_value(words, "--label-regex") or "").split("|"):
        if label not in facts.labels:
            yield f"no test has the label '{label}'"


def script_problems(words, facts):
    script = facts.root / words[0]
    if not script.is_file():
        yield f"there is no script '{words[0]}'"
        return
    text = script.read_text(encoding="utf-8")
    parameters = set(re.findall(r"\[string\] \$(\w+)", text.partition("\n$")[0]))
    for word in words[1:]:
        if word.startswith("-") and word[1:] not in parameters:
            yield f"'{words[0]}' has no parameter '{word}'"
    tree = option_value(words, "-Tree")
    if tree is not None and tree not in facts.trees:
        yield f"no preset builds in '{tree}'"
    for name in re.findall(r"\$PSScriptRoot '([^']+)'", text):
        if not (script.parent / name).is_file():
            yield f"'{words[0]}' calls '{name}', which does not exist"
    for name in re.findall(r"\$Tree '(?:tests\\)?(\w+)\.exe'", text):
        if name not in facts.targets:
            yield f"'{words[0]}' starts '{name}', which no target makes"


def command_problems(line, facts):
    words = shlex.split(line, posix=True) if "\\" not in line else line.split()
    command = words[0]
    if command == "cmake":
        yield from cmake_problems(words, facts)
    elif command == "ctest":
        yield from ctest_problems(words, facts)
    elif "/" in command:
        yield from script_problems(words, facts)
    elif command not in MACHINES_OWN:
        yield f"'{command}' is neither a tool of the machine nor a script of the repository"


def problems(root):
    facts = Facts(root)
    workflow = yaml.safe_load((root / WORKFLOW).read_text(encoding="utf-8"))
    commands = 0
    for job in workflow["jobs"].values():
        for step in job["steps"]:
            if "uses" in step and not PINNED.match(step["uses"]):
                yield f"'{step['uses']}' does not name a version"
            for line in step.get("run", "").splitlines():
                if line.strip():
                    commands += 1
                    yield from (f"{step.get('name', '?')}: {problem}" for problem in command_problems(line.strip(), facts))
    if commands == 0:
        yield "the workflow runs nothing"


def main():
    if len(sys.argv) != 2:
        sys.exit(f"usage: {sys.argv[0]} ROOT")
    found = list(problems(pathlib.Path(sys.argv[1])))
    print("\n".join(f"{WORKFLOW}: {problem}" for problem in found) or "the workflow names only what exists")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
