#!/usr/bin/env python3
"""Writes the tables for comparing texts without regard to case and accents: folding_tables.py OUTPUT

A character folds to its full case folding, decomposed, without the marks above, below or around letters. Vowel signs
and voicing marks stay: in their scripts another sign is another word. Hangul syllables are not decomposed.
"""

import pathlib
import sys
import unicodedata

LAST = 0x1FFFF  # beyond this there is no case and no accent
BLOCK = 256


def is_mark(char):
    kind = unicodedata.combining(char)
    return kind >= 200 or 10 <= kind <= 35


def decompose(text):
    return "".join(c if 0xAC00 <= ord(c) <= 0xD7A3 else unicodedata.normalize("NFD", c) for c in text)


def fold(char):
    folded = decompose(decompose(char).casefold())
    return "".join(c for c in folded if not is_mark(c))


def lower(char):
    small = char.lower()
    return small if len(small) == 1 and ord(small) <= 0xFFFF else char


def units(text):
    data = text.encode("utf-16-le", "surrogatepass")
    return [int.from_bytes(data[i:i + 2], "little") for i in range(0, len(data), 2)]


def numbers(values):
    lines = [", ".join(str(v) for v in values[i:i + 24]) for i in range(0, len(values), 24)]
    return ",\n    ".join(lines)


def fold_tables():
    pool, spans, index_of = [], [(0, 0)], {}
    blocks, block_of, pages = [], {}, []
    for start in range(0, LAST + 1, BLOCK):
        block = []
        for code in range(start, start + BLOCK):
            char = chr(code)
            folded = char if 0xD800 <= code <= 0xDFFF else fold(char)
            if folded == char:
                block.append(0)
                continue
            if folded not in index_of:
                index_of[folded] = len(spans)
                spans.append((len(pool), len(units(folded))))
                pool += units(folded)
            block.append(index_of[folded])
        key = tuple(block)
        if key not in block_of:
            block_of[key] = len(blocks)
            blocks.append(block)
        pages.append(block_of[key])
    return pool, spans, blocks, pages


def lower_pairs():
    codes = (c for c in range(0x80, 0x10000) if not 0xD800 <= c <= 0xDFFF)
    return [(c, ord(lower(chr(c)))) for c in codes if lower(chr(c)) != chr(c)]


def main():
    pool, spans, blocks, pages = fold_tables()
    pairs = lower_pairs()
    text = f"""// Generated from the Unicode tables {unicodedata.unidata_version} by generate/folding_tables.py.
constexpr char16_t kFoldedUnits[] = {{
    {numbers(pool)}}};
constexpr FoldedSpan kFoldedSpans[] = {{
    {numbers([f"{{{at}, {size}}}" for at, size in spans])}}};
constexpr std::uint16_t kFoldPages[] = {{
    {numbers(pages)}}};
constexpr std::uint16_t kFoldBlocks[][{BLOCK}] = {{
    {{{"}, {".join(numbers(block) for block in blocks)}}}}};
constexpr LowerPair kLowerPairs[] = {{
    {numbers([f"{{{upper}, {small}}}" for upper, small in pairs])}}};
"""
    pathlib.Path(sys.argv[1]).write_text(text, encoding="ascii")


if __name__ == "__main__":
    main()
