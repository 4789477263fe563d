// byte_source.h - where a reader's bytes come from: a file, or memory in a test.

#ifndef IMAGING_BYTE_SOURCE_H
#define IMAGING_BYTE_SOURCE_H

#include <cstddef>
#include <cstdint>
#include <cstdio>

class cByteSource
{
public:
    virtual ~cByteSource() {}

    // The total number of bytes. A reader allocates no more than that, so it must
    // not exceed what can be read.
    virtual uint64_t Length() const = 0;

    // Reads the next nBytes, or returns 0 when there are fewer.
    virtual int Read(void *pBytes, size_t nBytes) = 0;
};

// Reads a stream of nLength bytes that the caller opens and closes.
class cFileSource : public cByteSource
{
public:
    cFileSource(FILE *pFile, uint64_t nLength) : m_pFile(pFile), m_nLength(nLength) {}

    uint64_t Length() const override { return m_nLength; }

    int Read(void *pBytes, size_t nBytes) override
    {
        return fread(pBytes, 1, nBytes, m_pFile) == nBytes;
    }

private:
    FILE    *m_pFile;
    uint64_t m_nLength;
};

#endif
