// clipboard.h - what other programs find on the clipboard.

#ifndef TESTS_WINDOW_CLIPBOARD_H
#define TESTS_WINDOW_CLIPBOARD_H

#include "toolkit/win32/win32.h"

#include <string>

// Empty if there is no text.
std::string ClipboardText();

// Replaces whatever is there; "" leaves nothing.
void SetClipboardText(const std::string &Text);

#endif
