// picture_writer.cpp - writes the pictures of a list with our encoders, so that
// tests can show the files to other programs:
//
//     picture-writer LIST
//
// A line of the list holds, with tabs between: "gif" or "bmp", width, height,
// bits per pixel, the file with the pixels, the file to write, and for "gif" the
// options. The file with the pixels holds the colour table, if the depth has
// one, in entries of three (gif: red, green, blue) or four bytes (bmp: blue,
// green, red, 0), and then the rows from the bottom up, padded.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "imaging/bmp_layout.h"
#include "imaging/gif_writer.h"

static std::vector<uint8_t> ReadBytes(const std::string &Name)
{
    std::ifstream File(Name, std::ios::binary);
    return std::vector<uint8_t>(std::istreambuf_iterator<char>(File), {});
}

static int WriteGif(const std::vector<std::string> &Fields, cByteSink *pSink)
{
    const unsigned             nBits   = static_cast<unsigned>(std::stoi(Fields[3]));
    const std::vector<uint8_t> Content = ReadBytes(Fields[4]);
    const cDibImage            Image   = {std::stoi(Fields[1]),
                                          std::stoi(Fields[2]),
                                          nBits,
                                          0,
                                          Content.data(),
                                          Content.data() + (size_t(3) << nBits)};
    return WriteGifFile(pSink, Image, Fields.size() > 6 ? Fields[6].c_str() : "") == grWritten;
}

static int WriteBmpOf(const std::vector<std::string> &Fields, cByteSink *pSink)
{
    const std::vector<uint8_t> Content = ReadBytes(Fields[4]);
    cBmpImage                  Bmp     = {};
    Bmp.m_nWidth                       = std::stoi(Fields[1]);
    Bmp.m_nHeight                      = std::stoi(Fields[2]);
    if (!ChooseBmpDepth(static_cast<unsigned>(std::stoi(Fields[3])), &Bmp.m_Depth))
        return 0;
    Bmp.m_nImageBytes = BmpImageBytes(Bmp.m_Depth.m_nBits, Bmp.m_nWidth, Bmp.m_nHeight);
    Bmp.m_pColours    = Content.data();
    Bmp.m_pPixels     = Content.data() + 4 * size_t(Bmp.m_Depth.m_nColours);
    return WriteBmp(pSink, Bmp);
}

static int WritePicture(const std::string &Line)
{
    std::vector<std::string> Fields;
    std::istringstream       Stream(Line);
    for (std::string Field; std::getline(Stream, Field, '\t');)
        Fields.push_back(Field);
    FILE *const pFile = fopen(Fields.at(5).c_str(), "wb");
    if (!pFile)
        return 0;
    cFileSink Sink(pFile);
    const int bWritten = Fields[0] == "gif" ? WriteGif(Fields, &Sink) : WriteBmpOf(Fields, &Sink);
    return fclose(pFile) == 0 && bWritten;
}

int main(int nArguments, char **ppArguments)
{
    if (nArguments != 2)
        return EXIT_FAILURE;
    std::ifstream List(ppArguments[1]);
    if (!List)
        return EXIT_FAILURE;
    for (std::string Line; std::getline(List, Line);)
        if (!WritePicture(Line))
        {
            std::cerr << "cannot write: " << Line << "\n";
            return EXIT_FAILURE;
        }
    return EXIT_SUCCESS;
}
