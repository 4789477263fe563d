#include "engine/elementary/tables.h"

#include "engine/elementary/tables.inc"
