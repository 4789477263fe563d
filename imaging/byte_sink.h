// byte_sink.h - where an encoder's bytes go: a file, or memory in a test.

#ifndef IMAGING_BYTE_SINK_H
#define IMAGING_BYTE_SINK_H

#include <cstddef>
#include <cstdio>

class cByteSink
{
public:
    virtual ~cByteSink() {}

    // Writes all of the bytes, or returns 0.
    virtual int Write(const void *pBytes, size_t nBytes) = 0;
};

// Writes to a stream that the caller opens and closes.
class cFileSink : public cByteSink
{
public:
    explicit cFileSink(FILE *pFile) : m_pFile(pFile) {}

    int Write(const void *pBytes, size_t nBytes) override
    {
        return fwrite(pBytes, 1, nBytes, m_pFile) == nBytes;
    }

private:
    FILE *m_pFile;
};

#endif
