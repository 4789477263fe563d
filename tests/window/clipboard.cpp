#include "tests/window/clipboard.h"

#include <cstring>

#include <doctest/doctest.h>

#include "tests/window/waiting.h"

// Waits while another program has the clipboard open.
static void Open()
{
    REQUIRE(WaitFor([] { return OpenClipboard(nullptr); }));
}

std::string ClipboardText()
{
    std::string Text;
    Open();
    const HANDLE hText = GetClipboardData(CF_TEXT);
    if (hText)
    {
        Text = static_cast<const char *>(GlobalLock(hText));
        GlobalUnlock(hText);
    }
    CloseClipboard();
    return Text;
}

void SetClipboardText(const std::string &Text)
{
    Open();
    EmptyClipboard();
    if (!Text.empty())
    {
        const HGLOBAL hText = GlobalAlloc(GMEM_MOVEABLE, Text.size() + 1);
        memcpy(GlobalLock(hText), Text.c_str(), Text.size() + 1);
        GlobalUnlock(hText);
        SetClipboardData(CF_TEXT, hText);
    }
    CloseClipboard();
}
