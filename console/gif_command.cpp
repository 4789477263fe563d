// gif_command.cpp - vorstek-cli gif: converts a BMP file to a GIF file, with the
// encoder of the graph's export.

#include <cerrno>
#include <cstdio>

#include "console/commands.h"
#include "console/file_reason.h"
#include "console/input_file.h"
#include "imaging/bmp_reader.h"
#include "imaging/byte_sink.h"
#include "imaging/byte_source.h"
#include "imaging/colour_reduction.h"
#include "imaging/gif_writer.h"
#include "toolkit/disk_file.h"
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
    pParsed->m_Bmp = Names.front();
    pParsed->m_Gif = Names.back();
    return 1;
}

// 1, or 0 with a line on standard error.
static int ReadPicture(const std::string &Name, const cStreams &Streams, cBmpPicture *pPicture)
{
    cSeekableInput File;
    if (!OpenSeekableInput(Name, Streams, nullptr, &File))
        return 0;
    cFileSource Source(File.m_File.get(), File.m_nLength);
    const char *szError;
    if (ReadBmp(&Source, pPicture, &szError))
        return 1;
    ReportUsage(Streams, ShownInput(Name) + " " + szError);
    return 0;
}

static int PutPicture(const cReducedImage &Reduced, const cGifArguments &Arguments, FILE *pFile)
{
    cFileSink Sink(pFile);
    return WriteGifFile(&Sink, Reduced.Dib(), Arguments.m_Options.c_str()) == grWritten;
}

static int WritePicture(const cReducedImage &Reduced, const cGifArguments &Arguments)
{
    if (Arguments.m_Gif == kStandardOutput)
    {
        FILE *const pOutput = BinaryStandardOutput();
        return PutPicture(Reduced, Arguments, pOutput) && fflush(pOutput) == 0;
    }
    cReplacementFile File;
    return File.Open(Arguments.m_Gif.c_str(), "wb") &&
           PutPicture(Reduced, Arguments, File.Stream()) && File.Commit();
}

int GifCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    cGifArguments Parsed;
    cReducedImage Reduced;
    std::string   Error;
    if (!ParseGifArguments(Arguments, &Parsed, &Error))
        return ReportUsage(Streams, Error);
    if (!IsNoInput(Parsed.m_Gif, {Parsed.m_Bmp}, Streams))
        return kExitUsage;
    {
        // The picture is released before the encoder allocates memory.
        cBmpPicture Picture;
        if (!ReadPicture(Parsed.m_Bmp, Streams, &Picture))
            return kExitUsage;
        if (!ReduceColours(Picture.Dib(), &Reduced))
            return ReportUsage(Streams, ShownInput(Parsed.m_Bmp) + " does not fit into memory");
    }
    if (!WritePicture(Reduced, Parsed))
        return ReportUnwritable(Streams, Parsed.m_Gif, errno);
    return kExitDone;
}
