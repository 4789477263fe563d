// table_watch.h - what hears how far the reading of tables has come.

#ifndef TABLES_TABLE_WATCH_H
#define TABLES_TABLE_WATCH_H

#include <cstdint>

class cTableWatch
{
public:
    virtual ~cTableWatch() {}

    // All tables are read from their start, once more, until End.
    virtual void Begin() = 0;

    // nBytes more have been read from a table. Called some thousand times a second.
    virtual void Advance(uint64_t nBytes) = 0;

    virtual void End() = 0;
};

#endif
