#pragma once

// Read by the resource compiler too: plain definitions only.

// The program's icon: the first by number, which the shell shows for the file.
#define IDI_QUILLO 101
// The icon of note files; the installer's registration names it by this number.
#define IDI_NOTE_FILE 102

// The glyphs of the alert and of the options dialog's small buttons by their size in pixels, as planes of coverage.
#define IDR_GLYPHS_20 111
#define IDR_GLYPHS_25 112
#define IDR_GLYPHS_30 113
#define IDR_GLYPHS_35 114
#define IDR_GLYPHS_40 115

// The about box's picture.
#define IDI_ABOUT_PICTURE 121

// The manifest of the controls with a visual style. Numbers below 17 would be for the system.
#define IDR_CONTROLS_MANIFEST 131

// The note button strips; the one for 200 percent serves every larger scale.
#define IDR_NOTE_BUTTONS_100 201
#define IDR_NOTE_BUTTONS_150 202
#define IDR_NOTE_BUTTONS_200 203

// The options dialog's tab icons: four in a row with alpha, by their size in pixels.
#define IDR_TAB_ICONS_16 211
#define IDR_TAB_ICONS_20 212
#define IDR_TAB_ICONS_24 213
#define IDR_TAB_ICONS_30 214
#define IDR_TAB_ICONS_32 215
#define IDR_TAB_ICONS_36 216
#define IDR_TAB_ICONS_40 217
#define IDR_TAB_ICONS_48 218

// The main menu by percent, as planes of coverage; the last serves every larger scale.
#define IDR_MENU_100 301
#define IDR_MENU_125 302
#define IDR_MENU_150 303
#define IDR_MENU_175 304
#define IDR_MENU_200 305
