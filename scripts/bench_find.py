#!/usr/bin/env python3
"""How long `qln find` takes over closed notes, against `grep -ri` over the same files: bench_find.py QLN [NOTES] [ROUNDS]"""

import pathlib
import random
import statistics
import subprocess
import sys
import tempfile
import time

WORDS = [line.strip() for line in "milk bread call train garden window letter music paper green seven river".split()]
TAGS = ("\r\n<quillo><position>1500,3000,3000,2400</position><appearance>False,False,14155262,3723262,0,0</appearance>"
        "<reminder></reminder><filename>C:\\users\\me\\closed\\note.qln</filename></quillo>")
WANTED = "needle"


def make_prefix(folder, count):
    """A Wine prefix with closed notes of a few lines; one in a thousand has the word."""
    closed = folder / "drive_c/closed"
    (folder / "drive_c/users/me/AppData/Local/Marrowind/Notes").mkdir(parents=True)
    closed.mkdir()
    (folder / "dosdevices").mkdir()
    (folder / "dosdevices/c:").symlink_to("../drive_c")
    (folder / "user.reg").write_text(
        'WINE REGISTRY Version 2\n[Software\\\\Marrowind\\\\Quillo]\n"Note folder"="C:\\\\closed"\n'
        "[Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\Explorer\\\\Shell Folders]\n"
        '"Local AppData"="C:\\\\users\\\\me\\\\AppData\\\\Local"\n')
    (folder / "system.reg").write_text("WINE REGISTRY Version 2\n")
    dice = random.Random(1)
    for number in range(count):
        lines = [" ".join(dice.choices(WORDS, k=8)) for _ in range(dice.randint(1, 12))]
        if number % 1000 == 0:
            lines.append(WANTED.upper())
        if number % 10 == 0:
            lines.append("caf\u00e9")
        (closed / f"note {number}.qln").write_bytes(("\r\n".join(lines) + TAGS).encode("cp1252"))
    return closed


def seconds(command, environment):
    start = time.perf_counter()
    run = subprocess.run(command, env=environment, stdout=subprocess.PIPE, check=False)
    return time.perf_counter() - start, run.stdout.count(b"\n")


def main():
    qln = str(pathlib.Path(sys.argv[1]).resolve())
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 10_000
    rounds = int(sys.argv[3]) if len(sys.argv) > 3 else 15
    with tempfile.TemporaryDirectory() as name:
        closed = make_prefix(pathlib.Path(name), count)
        environment = {"WINEPREFIX": name, "PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8"}
        commands = {"qln find": [qln, "find", "--closed", WANTED], "grep -ri": ["grep", "-ri", WANTED, str(closed)]}
        times = {label: [] for label in commands}
        for turn in range(rounds + 1):
            for label, command in commands.items():
                spent, hits = seconds(command, environment)
                assert hits == -(-count // 1000), (label, hits)
                if turn:  # the first round warms the cache
                    times[label].append(spent)
        medians = {label: statistics.median(values) for label, values in times.items()}
        for label, values in times.items():
            print(f"{label}: median {medians[label] * 1000:.1f} ms, least {min(values) * 1000:.1f} ms")
        print(f"ratio of medians: {medians['qln find'] / medians['grep -ri']:.2f}, of the least: "
              f"{min(times['qln find']) / min(times['grep -ri']):.2f}")


if __name__ == "__main__":
    main()
