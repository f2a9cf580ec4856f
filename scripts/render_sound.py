#!/usr/bin/env python3
"""Synthesizes the reminder's sound: two soft bell strokes, a fourth apart, that fade within two seconds.

Usage: render_sound.py OUTPUT.wma FFMPEG
"""

import array
import math
import os
import subprocess
import sys
import tempfile
import wave

RATE = 44100
SECONDS = 2.0
# Start in seconds, pitch in hertz, loudness: G5, then C6 ringing longer.
STROKES = [(0.00, 783.99, 0.55), (0.17, 1046.50, 0.60)]
# Partials of a small bell: ratio to the pitch, loudness, seconds until it has fallen to 1/e.
PARTIALS = [(1.0, 1.0, 0.45), (2.0, 0.28, 0.30), (2.76, 0.22, 0.16), (5.40, 0.10, 0.07)]
ATTACK = 0.006


def sample(time):
    """The sound's value at a time in seconds, roughly -1 to 1."""
    value = 0.0
    for start, pitch, loudness in STROKES:
        since = time - start
        if since < 0:
            continue
        attack = min(1.0, since / ATTACK)
        for ratio, level, decay in PARTIALS:
            value += attack * loudness * level * math.exp(-since / decay) * math.sin(2 * math.pi * pitch * ratio * since)
    fade = min(1.0, (SECONDS - time) / 0.15)
    return value * fade * 0.5


def main():
    output, ffmpeg = sys.argv[1], sys.argv[2]
    frames = array.array("h", (int(32000 * max(-1.0, min(1.0, sample(i / RATE)))) for i in range(int(RATE * SECONDS))))
    if sys.byteorder == "big":
        frames.byteswap()
    with tempfile.TemporaryDirectory() as folder:
        source = os.path.join(folder, "reminder.wav")
        with wave.open(source, "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(RATE)
            file.writeframes(frames.tobytes())
        # Bit-exact: the same sources give the same bytes.
        subprocess.run([ffmpeg, "-v", "error", "-y", "-fflags", "+bitexact", "-i", source, "-c:a", "wmav2", "-b:a", "64k",
                        "-flags", "+bitexact", "-map_metadata", "-1", output], check=True)


if __name__ == "__main__":
    main()
