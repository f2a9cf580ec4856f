#!/usr/bin/env python3
"""Checks the reminder's sound: the right format and length, audible but not clipped, and silent at its end.

Usage: check_sound_file.py FILE.wma FFMPEG FFPROBE
"""

import array
import json
import math
import subprocess
import sys

RATE = 44100
SHORTEST, LONGEST = 1.0, 3.0  # seconds
LOUDEST_PEAK = -3.0  # decibels, as all that follow
SOFTEST_MEAN = -35.0
MOST_OFFSET = -50.0
END_SECONDS = 0.05
LOUDEST_END = -50.0


def expect(condition, message):
    if not condition:
        raise ValueError(message)


def decibels(value):
    return 20 * math.log10(value) if value > 0 else -math.inf


def check_container(file, ffprobe):
    answer = subprocess.run([ffprobe, "-v", "error", "-of", "json", "-show_format", "-show_streams", file],
                            check=True, capture_output=True)
    facts = json.loads(answer.stdout)
    codecs = [stream.get("codec_name") for stream in facts["streams"]]
    expect(facts["format"]["format_name"] == "asf", f"the container is {facts['format']['format_name']}")
    expect(codecs == ["wmav2"], f"the streams are {codecs}")


def decode(file, ffmpeg):
    """The samples as floats, which can show a peak beyond full scale."""
    answer = subprocess.run([ffmpeg, "-v", "error", "-i", file, "-ac", "1", "-ar", str(RATE), "-f", "f32le", "-"],
                            check=True, capture_output=True)
    samples = array.array("f", answer.stdout)
    if sys.byteorder == "big":
        samples.byteswap()
    return samples


def check_samples(samples):
    expect(samples, "there is no sound in it")
    seconds = len(samples) / RATE
    peak = decibels(max(abs(sample) for sample in samples))
    mean = decibels(math.sqrt(sum(sample * sample for sample in samples) / len(samples)))
    offset = decibels(abs(sum(samples) / len(samples)))
    end = decibels(max(abs(sample) for sample in samples[-int(END_SECONDS * RATE):]))
    print(f"{seconds:.2f} s, peak {peak:.1f} dB, mean {mean:.1f} dB, offset {offset:.1f} dB, end {end:.1f} dB")
    expect(SHORTEST <= seconds <= LONGEST, f"it lasts {seconds:.2f} seconds")
    expect(peak < LOUDEST_PEAK, f"its peak is {peak:.1f} dB")
    expect(mean > SOFTEST_MEAN, f"it is almost silent: {mean:.1f} dB")
    expect(offset < MOST_OFFSET, f"it has an offset of {offset:.1f} dB")
    expect(end < LOUDEST_END, f"it is cut off at {end:.1f} dB")


def main():
    if len(sys.argv) != 4:
        sys.exit(f"usage: {sys.argv[0]} FILE.wma FFMPEG FFPROBE")
    file, ffmpeg, ffprobe = sys.argv[1:]
    try:
        check_container(file, ffprobe)
        check_samples(decode(file, ffmpeg))
    except (ValueError, KeyError, subprocess.CalledProcessError) as error:
        sys.exit(f"{file}: {error}")


if __name__ == "__main__":
    main()
