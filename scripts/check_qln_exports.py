#!/usr/bin/env python3
"""Reads the exports of qln with independent readers: check_qln_exports.py QLN SCHEMA

The notes contain everything that breaks careless writers: quotes, tags, control characters, long lines, every byte of the
code page.
"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile

import html5lib
import icalendar
import jsonschema

TAGS = (b"\r\n<quillo><position>1500,%d,3000,2400</position><appearance>False,True,13696511,3723262,0,0</appearance>"
        b"<reminder>%s</reminder><nodelete></nodelete></quillo>")
EVERY_BYTE = bytes(b for b in range(1, 256))
TEXTS = {
    "{00000001-0000-4000-8000-000000000001}.qln": b"Buy milk; 2, or <3> & \"more\"\r\n\\ -->\r\n]]></style></pre>",
    "{00000002-0000-4000-8000-000000000002}.qln": b"\r\nBEGIN:VEVENT\r\nEND:VCALENDAR\r\n" + b"long\xe9 " * 60,
    "{00000003-0000-4000-8000-000000000003}.qln": EVERY_BYTE,
    "{00000004-0000-4000-8000-000000000004}.qln": b"",
    "plain.qln": None,
}
REMINDED = 4  # of the notes above


def make_notes(folder):
    for number, (name, text) in enumerate(TEXTS.items()):
        path = folder / name
        if text is None:
            path.write_text("plain \U0001f58b\ufdd0\U0001ffff\u202e text", encoding="utf-8")
        else:
            path.write_bytes(text + TAGS % (number * 1000, b"#4634%d.3958333" % number))
        os.utime(path, (1790000000 + number, 1790000000 + number))


def export(qln, folder, kind):
    command = [qln, "--folder", str(folder), "export", "--format", kind]
    return subprocess.run(command, check=True, capture_output=True).stdout


def check_json(data, schema):
    notes = json.loads(data)
    jsonschema.Draft7Validator.check_schema(schema)
    jsonschema.validate(notes, schema, cls=jsonschema.Draft7Validator)
    assert len(notes["notes"]) == len(TEXTS)
    every = notes["notes"][2]["text"]
    assert [ord(c) for c in every[:127]] == list(range(1, 128)), "control characters come through"


def check_page(data, folder):
    document = html5lib.HTMLParser(strict=True, namespaceHTMLElements=False).parse(data)
    articles = document.findall(".//article")
    assert len(articles) == len(TEXTS)
    text = "".join(articles[0].find("div").itertext())
    assert text == "Buy milk; 2, or <3> & \"more\"\n\\ -->\n]]></style></pre>", text
    page = folder / "page.html"
    page.write_bytes(data)
    command = ["tidy", "-quiet", "-errors", "-utf8", "--drop-empty-elements", "no", str(page)]
    tidy = subprocess.run(command, capture_output=True, text=True, check=False)
    assert tidy.returncode == 0, tidy.stderr


def check_calendar(data):
    assert all(len(line) <= 75 for line in data.split(b"\r\n")), "a line is too long"
    entries = icalendar.Calendar.from_ical(data).walk("VEVENT")
    assert len(entries) == REMINDED, len(entries)
    assert len({str(entry["UID"]) for entry in entries}) == REMINDED
    for entry in entries:
        start = entry["DTSTART"].dt
        assert start.tzinfo is None and "TZID" not in entry["DTSTART"].params, "the time is the reader's own"
        assert (start.hour, start.minute) == (9, 30)
        assert entry["DTSTAMP"].dt.utcoffset().total_seconds() == 0
        assert len(entry.walk("VALARM")) == 1
    assert str(entries[0]["SUMMARY"]) == 'Buy milk; 2, or <3> & "more"'
    # This reader treats a backslash before an "n" as a line break even if the backslash itself is escaped.
    assert str(entries[0]["DESCRIPTION"]).split("\n")[1] == "\\ -->", entries[0]["DESCRIPTION"]


def main():
    qln, schema = sys.argv[1], json.loads(pathlib.Path(sys.argv[2]).read_text(encoding="utf-8"))
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        notes = folder / "notes"
        notes.mkdir()
        make_notes(notes)
        check_json(export(qln, notes, "json"), schema)
        check_page(export(qln, notes, "html"), folder)
        check_calendar(export(qln, notes, "ics"))
        for kind in ("text", "markdown"):
            export(qln, notes, kind).decode("utf-8", "strict")
    print("every export was read")


if __name__ == "__main__":
    main()
