// every_file.cpp - all of engine/elementary/ in one file, so that a test compiles
// it as it likes.

// NOLINTBEGIN(bugprone-suspicious-include)
#include "engine/elementary/arcs.cpp"
#include "engine/elementary/exponentials.cpp"
#include "engine/elementary/general_power.cpp"
#include "engine/elementary/logarithms.cpp"
#include "engine/elementary/power_middle.cpp"
#include "engine/elementary/tables.cpp"
#include "engine/elementary/trigonometry.cpp"
#include "engine/elementary/wide_functions.cpp"
#include "engine/elementary/wide_number.cpp"
// NOLINTEND(bugprone-suspicious-include)
