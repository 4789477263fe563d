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

// --- memory

enum eGivenAnswer
{
    gaRetry,
    gaCancel
};

struct cMemoryCounts
{
    int m_nAllocations;
    int m_nBoxes;  // that offered to try again
    int m_nQuits;  // posted
};

// From here on, allocation nFailing (from 1; 0: none) fails that this thread of the
// program makes. Boxes are not shown: that about memory gets the answer, others OK or No.
// Quitting is only counted.
void FailAllocation(int nFailing, eGivenAnswer nAnswer);

// Since the last call of that.
cMemoryCounts CountAllocations();

// File dialogs are not shown; they answer with this name.
void AnswerFileDialogs(const char *szName);

#endif
