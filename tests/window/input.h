// input.h - mouse and keyboard, as a person moves and hits them. What is done
// here waits in the program's queue, like all input, until it gets to it.

#ifndef TESTS_WINDOW_INPUT_H
#define TESTS_WINDOW_INPUT_H

#include "toolkit/win32/win32.h"

#include <string>

enum eMouseButton
{
    mbLeft,
    mbRight
};

POINT MiddleOf(const RECT &Rect);

// Positions are on the screen.
void MoveMouse(POINT Position);
void PressMouse(eMouseButton nButton = mbLeft);
void ReleaseMouse(eMouseButton nButton = mbLeft);
void Click(POINT Position, eMouseButton nButton = mbLeft);
void ClickMiddleOf(HWND hWnd);

// A point of the window's frame with this part, HTCLOSE or HTRIGHT.
POINT FramePoint(HWND hWnd, LRESULT nPart);

// Modifiers of a key, added up.
const unsigned kCtrl  = 1;
const unsigned kShift = 2;
const unsigned kAlt   = 4;

// Hits a key, VK_RETURN or 'N', while the modifiers are held.
void HitKey(WORD nKey, unsigned nModifiers = 0);

// Types characters, ANSI, as a keyboard that has them would.
void Type(const std::string &Text);

#endif
