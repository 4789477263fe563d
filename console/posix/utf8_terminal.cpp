#include "console/utf8_terminal.h"

// The locale is the user's choice.
void UseUtf8Terminal() {}
