// picture_format.h - the files that figures are drawn into.

#ifndef FIGURE_PICTURE_FORMAT_H
#define FIGURE_PICTURE_FORMAT_H

#include <cstdio>
#include <memory>
#include <optional>
#include <string_view>

#include "figure/figure_canvas.h"

enum ePictureFormat
{
    pfSvg,
    pfPng,
    pfPdf
};

// "svg", "png" or "pdf", in any case.
std::optional<ePictureFormat> FormatOfWord(std::string_view Word);

// By the ending of a file's name: "fall.PNG".
std::optional<ePictureFormat> FormatOfName(std::string_view FileName);

// 0 for a format that this build does not draw.
int CanDraw(ePictureFormat nFormat);

// A canvas of nWidth by nHeight pixels, which is drawn dScale times as large into
// pFile, open in binary mode. CanDraw(nFormat) is 1.
std::unique_ptr<cFigureCanvas> MakeCanvas(ePictureFormat nFormat, FILE *pFile, int nWidth,
                                          int nHeight, double dScale);

#endif
