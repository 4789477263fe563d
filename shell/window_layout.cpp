#include "shell/window_layout.h"

#include <algorithm>

cLayoutSize FindClientSize(cWindowParts *pParts)
{
    const cScale &Scale     = pParts->m_Scale;
    pParts->m_nListingWidth = std::max(pParts->m_nListingWidth, Scale.Length(kLeastListingWidth));
    pParts->m_nRegistersWidth =
        std::max(pParts->m_nRegistersWidth, Scale.Length(kLeastRegistersWidth));

    cLayoutSize Size = {2 * pParts->m_nEdgeX + Scale.Length(kFaceWidth),
                        2 * pParts->m_nEdgeY + Scale.Length(kFaceHeight)};
    if (pParts->m_bListing)
        Size.m_nWidth += pParts->m_nListingWidth;
    if (pParts->m_bRegisters)
        Size.m_nWidth += pParts->m_nRegistersWidth;
    Size.m_nHeight += pParts->m_nToolBarHeight + pParts->m_nStatusBarHeight;
    return Size;
}

// Beside the listing the registers box takes half of the rest, at most the width
// that it needs; alone it takes all of it.
static int FindRegistersWidth(const cWindowParts &Parts, int nRest)
{
    if (!Parts.m_bRegisters)
        return 0;
    return Parts.m_bListing ? std::min(nRest / 2, Parts.m_Scale.Length(kRegistersWidth)) : nRest;
}

int FindLayout(const cWindowParts &Parts, const cLayoutSize &Client, cWindowLayout *pLayout)
{
    const int nTop    = Parts.m_nToolBarHeight;
    const int nHeight = Client.m_nHeight - nTop - Parts.m_nStatusBarHeight;
    if (nHeight <= 0 || Client.m_nWidth <= 0)
        return 0;

    const int nFaceWidth  = 2 * Parts.m_nEdgeX + Parts.m_Scale.Length(kFaceWidth);
    const int nFaceHeight = 2 * Parts.m_nEdgeY + Parts.m_Scale.Length(kFaceHeight);

    const int nKeypad    = std::min(nFaceWidth, Client.m_nWidth);
    const int nRest      = Client.m_nWidth - nKeypad;
    const int nRegisters = FindRegistersWidth(Parts, nRest);
    const int nListing   = Parts.m_bListing ? nRest - nRegisters : 0;
    pLayout->m_Keypad    = {0, nTop, nKeypad, std::min(nFaceHeight, nHeight)};
    pLayout->m_Listing   = {nKeypad, nTop, nListing, nHeight};
    pLayout->m_Registers = {nKeypad + nListing, nTop, nRegisters, nHeight};
    return 1;
}

int FaceOffset(int nScreenHeight, const cScale &Scale)
{
    return nScreenHeight < Scale.Length(kFullFaceScreen) ? Scale.Length(kLowFaceOffset) : 0;
}

cScale FittingScale(int nDpi, int nRoom, int nUsualRoom)
{
    const int nFitting = static_cast<int>(1LL * nRoom * kUsualDpi / std::max(nUsualRoom, 1));
    return cScale(std::max(std::min(nDpi, nFitting), kUsualDpi));
}
