#!/usr/bin/python3
"""Writes a dozen sample notes that show the features of notes: demo_notes.py FOLDER

The places suit a desktop of 1280 by 800 pixels at 96 dpi; because a note file contains twips, they also suit one of 1920 by
1200 at 144 dpi.
"""

import datetime
import pathlib
import sys

TWIPS_PER_PIXEL = 15  # at 96 dpi

# Note, border and text color as 0xRRGGBB; the palette that the program itself offers.
LEMON = (0xFFFDD0, 0xFECF38, 0x000000)
SKY = (0xE0EEF4, 0x7BA9D3, 0x000000)
MINT = (0xE9FDEC, 0x72AE7F, 0x000000)
LILAC = (0xF3E2FF, 0xBBA9DB, 0x000000)
PEACH = (0xFEE6DC, 0xFE8460, 0x000000)
PAPER = (0xFCFCFC, 0xB3C4D2, 0x000000)
SUN = (0xFFF850, 0xFF8D00, 0x000000)
WINE = (0xA71D23, 0xFFFFFF, 0xFFFFFF)
NIGHT_YELLOW = (0x000000, 0xFEFE00, 0xFEFE00)
NIGHT_GREEN = (0x000000, 0xB4FE2C, 0xB4FE2C)
NIGHT_BLUE = (0x000000, 0x10EFFE, 0x10EFFE)

SHOWN, HIDDEN = 0, 1


def color_word(rgb):
    """0xRRGGBB as the decimal 0x00BBGGRR of a note file."""
    return (rgb & 0xFF) << 16 | rgb & 0xFF00 | rgb >> 16


def day_serial(moment):
    """Days since 30 December 1899; the fraction is the time of day."""
    span = moment - datetime.datetime(1899, 12, 30)
    return f"{span.days + span.seconds / 86400:.15g}"


def note_bytes(text, box, scheme, large=False, reminder=None, state=SHOWN):
    """The bytes of one note file: the text, a line break, and one line of tags."""
    position = ",".join(str(edge * TWIPS_PER_PIXEL) for edge in box)
    colors = ",".join(str(color_word(rgb)) for rgb in scheme)
    alarm = "#" + day_serial(reminder) if reminder else ""
    tags = (
        f"<quillo><position>{position}</position>"
        f"<appearance>{large},True,{colors},{state}</appearance>"
        f"<reminder>{alarm}</reminder><nodelete></nodelete></quillo>"
    )
    return (text.strip().replace("\n", "\r\n") + "\r\n" + tags).encode("cp1252")


def samples():
    """(file name, content) of every sample note."""
    day = datetime.datetime.now().replace(hour=0, minute=0, second=0, microsecond=0)
    tomorrow = day + datetime.timedelta(days=1, hours=9, minutes=30)
    friday = day + datetime.timedelta(days=2 + (4 - day.weekday() - 2) % 7, hours=17)
    return [
        ("Groceries", note_bytes(
            "Groceries\n\n- oat milk\n- sourdough\n- lemons (4)\n- basil, flat parsley\n- good olive oil\n- coffee beans\n"
            "- something for dessert", (48, 40, 216, 226), LEMON)),
        ("Call Mum", note_bytes(
            "Call Mum about Sunday lunch", (288, 40, 244, 134), PEACH, large=True)),
        ("Dentist", note_bytes(
            "Dentist, Bridge Street 12\nBring the insurance card.\nAsk about the night guard.",
            (556, 40, 244, 134), SKY, reminder=tomorrow)),
        ("Trip", note_bytes(
            "Three days in the hills\n\nFriday: the 16:12 from platform 4, change at the junction. The key is with "
            "Mrs. Lind, second house after the bridge; ring twice, she is a little deaf.\n\nSaturday: up to the lake "
            "before breakfast if the fog is not too thick. The path leaves behind the chapel and is marked blue. Two "
            "hours up, one and a half down. Take the small stove, the blue cups and dry socks.\n\nSunday: sleep in. "
            "Café by the mill opens at ten; try the plum cake. Back home by eight, water the tomatoes.",
            (824, 40, 408, 270), PAPER)),
        ("Bike lock", note_bytes("Bike pump: lent to Jonas", (288, 198, 188, 100), MINT)),
        ("Books", note_bytes(
            "To read\n\n1. the one about lighthouses\n2. letters, volume two\n3. that cookbook (library, until the 30th)\n"
            "4. poems, slowly", (500, 198, 300, 150), LILAC)),
        ("Measures", note_bytes(
            "Shelf for the hall\n\n118 cm wide\n24 cm deep\n2 x 35 cm high\n8 screws, 5 x 60",
            (48, 290, 216, 176), SKY)),
        ("Rent", note_bytes("Rent is due on Friday", (288, 372, 212, 140), WINE, large=True, reminder=friday)),
        ("Idea", note_bytes(
            "Idea for the talk: begin with the mistake, not with the result. People remember the mistake.",
            (524, 372, 276, 140), SUN)),
        ("Deploy", note_bytes(
            "Before the release\n\n[x] changelog\n[x] back up the server\n[ ] tag it\n[ ] tell Amira\n[ ] cake",
            (824, 334, 240, 178), NIGHT_GREEN)),
        ("Night train", note_bytes("Coach 21\nBerth 64", (1088, 334, 144, 178), NIGHT_YELLOW, large=True)),
        ("Thanks", note_bytes(
            "Thank-you cards: Ines, Pál, the neighbors (they fed the cat), and the library desk.",
            (48, 490, 216, 130), LILAC)),
        ("Quote", note_bytes(
            "Short notes make long friendships.", (288, 536, 212, 84), LEMON)),
        ("Playlist", note_bytes("Quiet hours: 14 to 16\nDoor shut, telephone in the drawer.", (524, 536, 276, 84),
                                NIGHT_BLUE)),
        ("Secret", note_bytes("Birthday surprise for Ana: keep this one hidden!", (824, 536, 240, 120), PEACH,
                              state=HIDDEN)),
    ]


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: demo_notes.py FOLDER")
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for name, content in samples():
        (folder / f"{name}.qln").write_bytes(content)


if __name__ == "__main__":
    main()
