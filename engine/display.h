// display.h - what the calculator's display shows: lines of text, each with
// its font and its place, and the lamps below it. Composed by the engine, drawn by
// the host.

#ifndef ENGINE_DISPLAY_H
#define ENGINE_DISPLAY_H

enum eDisplayFont
{
    dfLarge,  // 12 points
    dfSmall   // 8 points
};

const int kDisplayText  = 24;  // the longest line, 23 characters, and its end
const int kDisplayLines = 7;   // the stack view needs the most

struct cDisplayLine
{
    char         m_szText[kDisplayText];
    eDisplayFont m_nFont;
    int          m_nLeft;  // pixels from the origin of the face, to the
    int          m_nTop;   // upper left corner of the first character
};

// In the order of the lamps on the face, from the left.
enum eLamp
{
    laF,        // f is pending
    laG,        // g is pending
    laProgram,  // program mode
    laRunning   // a program is running
};

// The first line is always the main one: X, an error text or a program line.
struct cDisplay
{
    cDisplayLine m_Lines[kDisplayLines];
    int          m_nLines;
    unsigned     m_nLamps;  // those that are lit: bit n for lamp n
};

#endif
