// faults.h - faults of a computer that a test cannot cause otherwise. Each applies to
// the program in which this is loaded from the call on.

#ifndef TESTS_WINDOW_FAULTS_H
#define TESTS_WINDOW_FAULTS_H

#include "toolkit/win32/win32.h"

// The disk has room for nBytes more bytes; a write that exceeds them fails and writes
// nothing.
void LeaveRoomOnDisk(DWORD nBytes);

// Folders are read-only: no file can be created, but existing ones can be written.
void MakeFoldersReadOnly();

// The screen has no device-independent bitmaps.
void HideDibSupport();

// Bitmaps of more than nColumns columns exceed the memory.
void LeaveRoomForBitmaps(int nColumns);

// No font can be made.
void RefuseFonts();

#endif
