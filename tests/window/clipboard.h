// clipboard.h - the clipboard as other programs see it.

#ifndef TESTS_WINDOW_CLIPBOARD_H
#define TESTS_WINDOW_CLIPBOARD_H

#include "toolkit/win32/win32.h"

#include <string>

// Empty if there is no text.
std::string ClipboardText();

// Replaces the content of the clipboard; "" empties it.
void SetClipboardText(const std::string &Text);

#endif
