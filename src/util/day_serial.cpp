#include "util/day_serial.h"
