// key_focus.h - how the arrow keys of a PC keyboard move over the face. Portable.

#ifndef SHELL_KEY_FOCUS_H
#define SHELL_KEY_FOCUS_H

enum eDirection
{
    drLeft,
    drRight,
    drUp,
    drDown
};

// Code of the key or slide switch, 1 to 32, that is next to nCode in that direction;
// nCode itself at the edge of the face. To the left and right that is the next one of
// the row. Above and below it is the one of the next row that is nearest sideways: below
// ENTER, 11, which is as wide as two keys, that is "-", 15.
unsigned NeighbourOf(unsigned nCode, eDirection nDirection);

#endif
