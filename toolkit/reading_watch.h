// reading_watch.h - what may end the reading of a large file early.

#ifndef TOOLKIT_READING_WATCH_H
#define TOOLKIT_READING_WATCH_H

class cReadingWatch
{
public:
    virtual ~cReadingWatch() {}

    // Called before each block of the file, some thousand times a second. 0 ends
    // the reading.
    virtual int GoesOn() = 0;
};

#endif
