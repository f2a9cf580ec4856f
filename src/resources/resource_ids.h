#pragma once

// Read by the resource compiler too: plain definitions only.

#define IDI_QUILLO 101

// The alert's glyphs, for light and for dark strips.
#define IDI_ALERT_BELL_INK 111
#define IDI_ALERT_BELL_LIGHT 112
#define IDI_ALERT_CLOSE_INK 113
#define IDI_ALERT_CLOSE_LIGHT 114

// The note button strips; the one for 200 percent serves every larger scale.
#define IDB_NOTE_BUTTONS_100 201
#define IDB_NOTE_BUTTONS_150 202
#define IDB_NOTE_BUTTONS_200 203
