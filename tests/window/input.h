// input.h - mouse and keyboard input as from a user. The calls return when the input
// is in the program's queue, not when it has been handled.

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

// Positions are screen coordinates.
void MoveMouse(POINT Position);
void PressMouse(eMouseButton nButton = mbLeft);
void ReleaseMouse(eMouseButton nButton = mbLeft);
void Click(POINT Position, eMouseButton nButton = mbLeft);
void ClickMiddleOf(HWND hWnd);

// A point in a part of the window's frame, HTCLOSE or HTRIGHT.
POINT FramePoint(HWND hWnd, LRESULT nPart);

// Modifier keys; the sum of several means all of them.
const unsigned kCtrl  = 1;
const unsigned kShift = 2;
const unsigned kAlt   = 4;

// Presses and releases a key, VK_RETURN or 'N', while the modifiers are held.
void HitKey(WORD nKey, unsigned nModifiers = 0);

// Types ANSI characters, also those that the keyboard does not have.
void Type(const std::string &Text);

#endif
