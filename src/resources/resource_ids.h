#pragma once

// Read by the resource compiler too: plain definitions only.

#define IDI_QUILLO 101

// The note button strips; the one for 200 percent serves every larger scale.
#define IDB_NOTE_BUTTONS_100 201
#define IDB_NOTE_BUTTONS_150 202
#define IDB_NOTE_BUTTONS_200 203
