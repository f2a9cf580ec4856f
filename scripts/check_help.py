#!/usr/bin/env python3
"""Checks the help: every page is compiled, listed in the contents and free of scripts, every link works, and
every name of the contents and the index leads to a page.

Usage: check_help.py SOURCE-FOLDER FILE.chm CHMLS
"""

import html.parser
import pathlib
import subprocess
import sys

PROJECT, CONTENTS, INDEX = "quillo.hhp", "quillo.hhc", "quillo.hhk"
START = "welcome.html"


class Page(html.parser.HTMLParser):
    """What a page refers to, its anchors and its title."""

    def __init__(self, path):
        super().__init__()
        self.links, self.anchors, self.tags, self.locals = [], set(), [], []
        self.title, self.heading, self.inside, self.name = "", "", "", None
        self.feed(path.read_text(encoding="ascii"))  # every other character is written as an entity
        self.close()

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        self.tags.append(tag)
        self.inside = tag
        self.links += [values[name] for name in ("href", "src") if name in values]
        self.anchors |= {values[name] for name in ("id", "name") if name in values}
        if tag == "param" and values.get("name") == "Local":
            self.locals.append(values["value"])
        if any(name.startswith("on") for name in values):
            self.tags.append("script")

    def handle_endtag(self, tag):
        self.inside = ""

    def handle_data(self, data):
        if self.inside == "title":
            self.title += data
        if self.inside == "h1":
            self.heading += data


def problems_of_page(name, pages, others):
    page = pages[name]
    if not page.title or page.title != page.heading:
        yield f"{name}: the title '{page.title}' is not the heading '{page.heading}'"
    if "script" in page.tags:
        yield f"{name}: script"
    if "style.css" not in page.links:
        yield f"{name}: no style sheet"
    for link in page.links:
        target, _, anchor = link.partition("#")
        target = target or name
        if target not in pages and target not in others:
            yield f"{name}: '{link}' leads nowhere"
        elif anchor and (target not in pages or anchor not in pages[target].anchors):
            yield f"{name}: '{link}' names no place in the page"


def problems_of_lists(folder, pages):
    contents = Page(folder / CONTENTS).locals
    for name in pages:
        if contents.count(name) != 1:
            yield f"{CONTENTS}: {name} is listed in it {contents.count(name)} times"
    index = Page(folder / INDEX).locals
    for file, names in ((CONTENTS, contents), (INDEX, index)):
        yield from (f"{file}: '{name}' is no page" for name in names if name not in pages)
    yield from (f"{INDEX}: nothing leads to {name}" for name in pages if name not in index)
    reached, waiting = set(), [START]
    while waiting:
        name = waiting.pop()
        if name in reached:
            continue
        reached.add(name)
        waiting += [link.partition("#")[0] for link in pages[name].links if link.partition("#")[0] in pages]
    yield from (f"{name}: no way leads there from {START}" for name in pages if name not in reached)


def listed_files(project):
    lines = project.read_text(encoding="ascii").split("[FILES]")[1].splitlines()
    return [line.strip() for line in lines if line.strip()]


def main():
    if len(sys.argv) != 4:
        sys.exit(f"usage: {sys.argv[0]} SOURCE-FOLDER FILE.chm CHMLS")
    folder = pathlib.Path(sys.argv[1])
    pages = {path.name: Page(path) for path in sorted(folder.glob("*.html"))}
    listed = listed_files(folder / PROJECT)
    problems = [f"{PROJECT}: {name} is not in it" for name in pages if name not in listed]
    for name in pages:
        problems += problems_of_page(name, pages, [file for file in listed if file not in pages])
    problems += problems_of_lists(folder, pages)
    answer = subprocess.run([sys.argv[3], "--no-page", "--name-only", "list", sys.argv[2]], check=True,
                            capture_output=True, text=True).stdout
    compiled = {word.lstrip("/") for word in answer.split()}
    problems += [f"{name} is not in the compiled help" for name in (*listed, CONTENTS, INDEX) if name not in compiled]
    print("\n".join(problems) or f"{len(pages)} pages: good")
    sys.exit(1 if problems or not pages else 0)


if __name__ == "__main__":
    main()
