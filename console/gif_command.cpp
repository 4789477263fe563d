// gif_command.cpp - vorstek-cli gif: converts a BMP file to a GIF file, with the
// encoder of the graph's export.

#include <cstdint>
#include <cstdio>
#include <memory>

#include "console/commands.h"
#include "imaging/bmp_reader.h"
#include "imaging/byte_sink.h"
#include "imaging/byte_source.h"
#include "imaging/colour_reduction.h"
#include "imaging/gif_writer.h"
#include "toolkit/disk_file.h"
#include "toolkit/read_file.h"
#include "toolkit/replacement_file.h"

namespace
{

struct cGifArguments
{
    std::string m_Bmp;
    std::string m_Gif;
    std::string m_Options;
};

}  // namespace

// clang-format off
static const cOptionRow s_GifRows[] =
{
    { "--options", "\"WORD...\"", "a value", TakeText<cGifArguments, &cGifArguments::m_Options>,
      "ilace xscreen=N yscreen=N xpos=N ypos=N\n"
      "background=N transcol=N|edge" },
};
// clang-format on

std::span<const cOptionRow> GifOptionRows()
{
    return s_GifRows;
}

// 1, or 0 with a one-line error.
static int ParseGifArguments(const std::vector<std::string> &Arguments, cGifArguments *pParsed,
                             std::string *pError)
{
    std::vector<std::string> Names;
    if (!ReadOptions(s_GifRows, Arguments, pParsed, &Names, pError))
        return 0;
    if (Names.size() != 2)
    {
        *pError = "gif needs two file names, a BMP file and a GIF file";
        return 0;
    }
    pParsed->m_Bmp = Names[0];
    pParsed->m_Gif = Names[1];
    return 1;
}

// 1, or 0 with a one-line error.
static int ReadPicture(const std::string &Name, cBmpPicture *pPicture, std::string *pError)
{
    typedef std::unique_ptr<FILE, int (*)(FILE *)> cOpenFile;

    *pError = "cannot read '" + Name + "'";
    if (!IsRegularFile(Name.c_str()))
        return 0;
    uint64_t        nLength;
    const cOpenFile File(OpenDiskFile(Name.c_str(), "rb"), fclose);
    if (!File || !LengthOfFile(Name.c_str(), &nLength))
        return 0;
    cFileSource Source(File.get(), nLength);
    const char *szError;
    if (!ReadBmp(&Source, pPicture, &szError))
    {
        *pError = "'" + Name + "' " + szError;
        return 0;
    }
    return 1;
}

static int WritePicture(const cReducedImage &Reduced, const cGifArguments &Arguments)
{
    cReplacementFile File;
    if (!File.Open(Arguments.m_Gif.c_str(), "wb"))
        return 0;
    cFileSink Sink(File.Stream());
    return WriteGifFile(&Sink, Reduced.Dib(), Arguments.m_Options.c_str()) == grWritten &&
           File.Commit();
}

int GifCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    cGifArguments Parsed;
    cReducedImage Reduced;
    std::string   Error;
    if (!ParseGifArguments(Arguments, &Parsed, &Error))
        return ReportUsage(Streams, Error);
    {
        // The picture is released before the encoder allocates memory.
        cBmpPicture Picture;
        if (!ReadPicture(Parsed.m_Bmp, &Picture, &Error))
            return ReportUsage(Streams, Error);
        if (!ReduceColours(Picture.Dib(), &Reduced))
            return ReportUsage(Streams, "'" + Parsed.m_Bmp + "' does not fit into memory");
    }
    if (!WritePicture(Reduced, Parsed))
        return ReportUsage(Streams, "cannot write '" + Parsed.m_Gif + "'");
    return kExitDone;
}
