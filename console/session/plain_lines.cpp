#include <istream>
#include <ostream>

#include "console/session/line_source.h"

namespace
{

class cPlainLines : public cLineSource
{
public:
    explicit cPlainLines(const cStreams &Streams) : m_Streams(Streams) {}

    eTyped Read(const std::string &Prompt, std::string *pLine) override
    {
        *m_Streams.m_pOut << Prompt << std::flush;
        if (!std::getline(*m_Streams.m_pIn, *pLine))
            return tyEnd;
        if (pLine->ends_with('\r'))  // of a file from Windows
            pLine->pop_back();
        return tyLine;
    }

private:
    const cStreams m_Streams;
};

}  // namespace

std::unique_ptr<cLineSource> PlainLines(const cStreams &Streams)
{
    return std::make_unique<cPlainLines>(Streams);
}
