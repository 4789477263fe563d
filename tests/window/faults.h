// faults.h - what goes wrong on a computer and cannot be had on every one: the
// program in which this is loaded meets it from now on.

#ifndef TESTS_WINDOW_FAULTS_H
#define TESTS_WINDOW_FAULTS_H

#include "toolkit/win32/win32.h"

// The disk has room for so many bytes more; a write beyond them fails as a whole,
// as on a full disk.
void LeaveRoomOnDisk(DWORD nBytes);

// No folder takes a new file; those that are there can be written, as in a
// read-only folder.
void MakeFoldersReadOnly();

// The screen cannot hold device-independent bitmaps.
void HideDibSupport();

// Memory has no room for bitmaps with more columns than that.
void LeaveRoomForBitmaps(int nColumns);

// No font can be made.
void RefuseFonts();

#endif
