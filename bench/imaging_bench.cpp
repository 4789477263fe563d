// imaging_bench.cpp - how fast pictures become GIF files. Draws one flat area, a
// plot, a gradient, something like a photograph, and noise, all 1600 x 1600 and 24
// bits, leaves them in the current directory as plot.bmp and so on for other
// programs, and encodes them in turn with giflib, so that a machine that grows slow
// slows both.
//
// Prints one line per picture: its name, milliseconds of reduction, of the
// encoder and of giflib's encoder, and the median of the encoders' ratios.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>
#include <random>
#include <vector>

#include <gif_lib.h>

#include "imaging/bmp_layout.h"
#include "imaging/colour_reduction.h"
#include "imaging/gif_writer.h"

static const int32_t kSide   = 1600;
static const int     kRounds = 9;

struct cCanvas
{
    cCanvas() : m_Pixels(DibRowBytes(kSide, 24) * kSide, 0xFF) {}

    void Set(int32_t nX, int32_t nY, uint32_t nRgb)
    {
        if (nX < 0 || nY < 0 || nX >= kSide || nY >= kSide)
            return;
        uint8_t *const pPixel = m_Pixels.data() + nY * DibRowBytes(kSide, 24) + 3 * nX;
        pPixel[0]             = static_cast<uint8_t>(nRgb);
        pPixel[1]             = static_cast<uint8_t>(nRgb >> 8);
        pPixel[2]             = static_cast<uint8_t>(nRgb >> 16);
    }

    cDibImage Dib() const { return {kSide, kSide, 24, 0, nullptr, m_Pixels.data()}; }

    std::vector<uint8_t> m_Pixels;
};

static cCanvas DrawFlat()
{
    return cCanvas();
}

// Shades of red along the diagonals.
static cCanvas DrawGradient()
{
    cCanvas Canvas;
    for (int32_t nY = 0; nY < kSide; nY++)
        for (int32_t nX = 0; nX < kSide; nX++)
            Canvas.Set(nX, nY, static_cast<uint32_t>((nX + nY) * 128 / kSide) << 16);
    return Canvas;
}

// 256 greys in no order.
static cCanvas DrawNoise()
{
    cCanvas      Canvas;
    std::mt19937 Random(1);
    for (int32_t nY = 0; nY < kSide; nY++)
        for (int32_t nX = 0; nX < kSide; nX++)
            Canvas.Set(nX, nY, static_cast<uint32_t>(Random() % 256) * 0x010101);
    return Canvas;
}

// Grid, axes and six curves on white.
static cCanvas DrawPlot()
{
    static const uint32_t kCurves[] = {0xFF0000, 0x0000FF, 0x008000, 0xFF00FF, 0x008080, 0x808000};
    cCanvas               Canvas;
    for (int32_t nLine = 100; nLine < kSide; nLine += 140)
        for (int32_t nAt = 100; nAt < kSide - 60; nAt++)
        {
            Canvas.Set(nLine, nAt, nLine == 100 ? 0x000000 : 0xC0C0C0);
            Canvas.Set(nAt, nLine, nLine == 100 ? 0x000000 : 0xC0C0C0);
        }
    for (int32_t nCurve = 0; nCurve < 6; nCurve++)
        for (int32_t nX = 100; nX < kSide - 60; nX++)
        {
            const double  dAngle = 0.003 * (nCurve + 1) * nX + nCurve;
            const int32_t nY     = static_cast<int32_t>(800 + 90 * (nCurve + 1) * std::sin(dAngle));
            for (int32_t nWide = 0; nWide < 3; nWide++)
                Canvas.Set(nX, nY + nWide, kCurves[nCurve]);
        }
    return Canvas;
}

// Noise on a lattice of nStep pixels, smooth between its points.
class cSmoothNoise
{
public:
    cSmoothNoise(int32_t nStep, std::mt19937 *pRandom) : m_nStep(nStep)
    {
        for (double &dValue : m_dValues)
            dValue = static_cast<double>((*pRandom)() % 1000) / 500.0 - 1.0;
    }

    double At(int32_t nX, int32_t nY) const
    {
        const int32_t nColumn = nX / m_nStep;
        const int32_t nRow    = nY / m_nStep;
        const double  dX      = Ease(nX % m_nStep);
        const double  dY      = Ease(nY % m_nStep);
        return (1 - dY) * ((1 - dX) * Value(nColumn, nRow) + dX * Value(nColumn + 1, nRow)) +
               dY * ((1 - dX) * Value(nColumn, nRow + 1) + dX * Value(nColumn + 1, nRow + 1));
    }

private:
    double Ease(int32_t nAt) const
    {
        const double dAt = static_cast<double>(nAt) / m_nStep;
        return dAt * dAt * (3 - 2 * dAt);
    }
    double Value(int32_t nColumn, int32_t nRow) const
    {
        return m_dValues[(nRow % 64) * 64 + nColumn % 64];
    }

    int32_t m_nStep;
    double  m_dValues[64 * 64];
};

// Coarse and fine shapes in three channels with a little grain.
static cCanvas DrawPhotograph()
{
    cCanvas                   Canvas;
    std::mt19937              Random(1);
    std::vector<cSmoothNoise> Noises;
    for (int nChannel = 0; nChannel < 3; nChannel++)
        for (const int32_t nStep : {400, 150, 40, 9})
            Noises.emplace_back(nStep, &Random);
    for (int32_t nY = 0; nY < kSide; nY++)
        for (int32_t nX = 0; nX < kSide; nX++)
        {
            uint32_t nRgb = 0;
            for (size_t nChannel = 0; nChannel < 3; nChannel++)
            {
                const cSmoothNoise *const pNoise = &Noises[4 * nChannel];
                const double dValue = 128 + 90 * pNoise[0].At(nX, nY) + 40 * pNoise[1].At(nX, nY) +
                                      15 * pNoise[2].At(nX, nY) + 8 * pNoise[3].At(nX, nY) +
                                      static_cast<double>(Random() % 7) - 3;
                nRgb = nRgb << 8 | static_cast<uint32_t>(std::clamp(dValue, 0., 255.));
            }
            Canvas.Set(nX, nY, nRgb);
        }
    return Canvas;
}

static int SaveBmp(const cCanvas &Canvas, const char *szPicture)
{
    char szName[32];
    snprintf(szName, sizeof szName, "%s.bmp", szPicture);
    const std::unique_ptr<FILE, int (*)(FILE *)> File(fopen(szName, "wb"), fclose);
    if (!File)
        return 0;
    cFileSink Sink(File.get());
    cBmpImage Bmp     = {};
    Bmp.m_nWidth      = kSide;
    Bmp.m_nHeight     = kSide;
    Bmp.m_nImageBytes = BmpImageBytes(24, kSide, kSide);
    Bmp.m_pPixels     = Canvas.m_Pixels.data();
    return ChooseBmpDepth(24, &Bmp.m_Depth) && WriteBmp(&Sink, Bmp);
}

// Counts bytes only: disks are not what is measured.
class cCountingSink : public cByteSink
{
public:
    int Write(const void *, size_t nBytes) override
    {
        m_nBytes += nBytes;
        return 1;
    }

    size_t m_nBytes = 0;
};

static size_t EncodeOurs(const cDibImage &Image)
{
    cCountingSink Sink;
    return WriteGifFile(&Sink, Image, "") == grWritten ? Sink.m_nBytes : 0;
}

static int CountBytes(GifFileType *pGif, const GifByteType *, int nBytes)
{
    *static_cast<size_t *>(pGif->UserData) += static_cast<size_t>(nBytes);
    return nBytes;
}

// giflib writes into the rows that it is given, so each row is a copy.
static size_t EncodeGiflib(const cDibImage &Image)
{
    size_t             nTotal = 0;
    int                nError;
    GifFileType *const pGif     = EGifOpen(&nTotal, CountBytes, &nError);
    ColorMapObject    *pColours = GifMakeMapObject(256, nullptr);
    int                bWritten = EGifPutScreenDesc(pGif, kSide, kSide, 8, 0, pColours) == GIF_OK &&
                   EGifPutImageDesc(pGif, 0, 0, kSide, kSide, false, nullptr) == GIF_OK;
    uint8_t Row[kSide];
    for (int32_t nRow = kSide - 1; nRow >= 0 && bWritten; nRow--)
    {
        std::copy_n(StoredRow(Image, nRow), kSide, Row);
        bWritten = EGifPutLine(pGif, Row, kSide) == GIF_OK;
    }
    GifFreeMapObject(pColours);
    return EGifCloseFile(pGif, &nError) == GIF_OK && bWritten ? nTotal : 0;
}

template <class cWork> static double Milliseconds(cWork Work)
{
    const auto Start = std::chrono::steady_clock::now();
    Work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - Start)
        .count();
}

static double Median(std::vector<double> Values)
{
    std::sort(Values.begin(), Values.end());
    return Values[Values.size() / 2];
}

static int Measure(const char *szPicture, const cCanvas &Canvas)
{
    std::vector<double> Reduction;
    std::vector<double> Ours;
    std::vector<double> Giflib;
    std::vector<double> Ratios;
    int                 bDone = 1;
    for (int nRound = 0; nRound < kRounds && bDone; nRound++)
    {
        cReducedImage Reduced;
        Reduction.push_back(Milliseconds([&] { bDone &= ReduceColours(Canvas.Dib(), &Reduced); }));
        Ours.push_back(Milliseconds([&] { bDone &= EncodeOurs(Reduced.Dib()) > 0; }));
        Giflib.push_back(Milliseconds([&] { bDone &= EncodeGiflib(Reduced.Dib()) > 0; }));
        Ratios.push_back(Giflib.back() / Ours.back());
    }
    printf("%s %.2f %.2f %.2f %.3f\n", szPicture, Median(Reduction), Median(Ours), Median(Giflib),
           Median(Ratios));
    return bDone;
}

int main()
{
    static const struct
    {
        const char *m_szName;
        cCanvas (*m_pDraw)();
    } s_Pictures[] = {{"flat", DrawFlat},
                      {"plot", DrawPlot},
                      {"gradient", DrawGradient},
                      {"photo", DrawPhotograph},
                      {"noise", DrawNoise}};
    for (const auto &Picture : s_Pictures)
    {
        const cCanvas Canvas = Picture.m_pDraw();
        if (!SaveBmp(Canvas, Picture.m_szName) || !Measure(Picture.m_szName, Canvas))
            return 1;
    }
    return 0;
}
