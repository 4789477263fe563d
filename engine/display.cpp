#include "engine/display.h"

#include <cstdio>
#include <cstring>

#include "engine/calculator.h"
#include "engine/listing_words.h"
#include "engine/pending_keys.h"

// Places of the lines, in pixels from the origin of the face.
static const int kTextLeft        = 50;
static const int kNormalLeft      = 59;
static const int kMainTop         = 66;
static const int kBottomTop       = 42;
static const int kAnnunciatorLeft = 234;
static const int kAnnunciatorTop  = 40;
static const int kLabelLeft       = 194;
static const int kLabelTop        = 53;
static const int kOperationTop    = 66;
static const int kStackRowHeight  = 12;
static const int kStackTop        = 78;  // X; Y, Z and T are above it

static const int kStackCharacters     = 23;
static const int kBottomCharacters    = 19;
static const int kOperationCharacters = 10;

// Both labels are nine characters wide.
static const char *const kKeystrokesLabel = "Keystrs: ";
static const char *const kLastOpLabel     = "LastOp:  ";

static const unsigned kCodeStepRange = 128;

// Appends a line, padded with blanks or cut to nWidth characters.
static cDisplayLine *AddLine(cDisplay *pDisplay, eDisplayFont nFont, int nLeft, int nTop,
                             int nWidth, const char *szText)
{
    cDisplayLine *const pLine = &pDisplay->m_Lines[pDisplay->m_nLines++];
    snprintf(pLine->m_szText, sizeof pLine->m_szText, "%-*.*s", nWidth, nWidth, szText);
    pLine->m_nFont = nFont;
    pLine->m_nLeft = nLeft;
    pLine->m_nTop  = nTop;
    return pLine;
}

// A positive number shows a blank where a negative one has its sign.
static void BlankPlus(char *pSign)
{
    if (*pSign == '+')
        *pSign = ' ';
}

static void PadWithBlanks(char (&szText)[kDisplayVisible + 1])
{
    const size_t nLength = strlen(szText);
    memset(szText + nLength, ' ', kDisplayVisible - nLength);
    szText[kDisplayVisible] = 0;
}

static void AddAnnunciator(cCalculator &c, cDisplay *pDisplay)
{
    static const char *const s_Names[] = {"rad", "deg", "grd"};
    AddLine(pDisplay, dfSmall, kAnnunciatorLeft, kAnnunciatorTop, 3, s_Names[c.m_nAngleMode]);
}

static void ComposeProgram(cCalculator &c, cDisplay *pDisplay)
{
    if (c.m_nCurLine > kLastLine)
    {
        c.SetCurLine(kLastLine);  // the box may let the display be drawn once more
        c.ShowProgramError(kCodeStepRange);
    }
    char szText[kListedText];
    PrintNumberedStep(c.m_nCurLine, c.m_Program[c.m_nCurLine], szText);
    c.SetDisplayText(szText);
    AddLine(pDisplay, dfLarge, kTextLeft, kMainTop, kDisplayVisible, c.m_szDisplay);

    snprintf(szText, sizeof szText, "%s%s", kKeystrokesLabel, c.m_szKeystrokes);
    AddLine(pDisplay, dfSmall, kTextLeft, kBottomTop, kBottomCharacters, szText);
}

static void ComposeStack(cCalculator &c, cDisplay *pDisplay)
{
    const char *const s_Levels[] = {c.m_szDisplay, c.m_szY, c.m_szZ, c.m_szT};
    int               nTop       = kStackTop;
    for (int i = 0; i < 4; i++, nTop -= kStackRowHeight)
    {
        char szText[kDisplayText];
        snprintf(szText, sizeof szText, "%c  %s", "XYZT"[i], s_Levels[i]);
        BlankPlus(szText + 3);
        AddLine(pDisplay, dfSmall, kTextLeft, nTop, kStackCharacters, szText);
    }
    AddAnnunciator(c, pDisplay);
    const int bKeys = HasPendingKeys(c);
    AddLine(pDisplay, dfSmall, kLabelLeft, kLabelTop, static_cast<int>(strlen(kLastOpLabel)),
            bKeys ? kKeystrokesLabel : kLastOpLabel);
    AddLine(pDisplay, dfSmall, kLabelLeft, kOperationTop, kOperationCharacters,
            bKeys ? c.m_szKeystrokes : c.m_szLastOp);
}

static void ComposeNormal(cCalculator &c, cDisplay *pDisplay)
{
    char szText[64];
    BlankPlus(c.m_szDisplay);
    AddLine(pDisplay, dfLarge, kNormalLeft, kMainTop, kDisplayVisible, c.m_szDisplay);
    AddAnnunciator(c, pDisplay);

    const int bKeys = HasPendingKeys(c);
    snprintf(szText, sizeof szText, "%s%s", bKeys ? kKeystrokesLabel : kLastOpLabel,
             bKeys ? c.m_szKeystrokes : c.m_szLastOp);
    AddLine(pDisplay, dfSmall, kTextLeft, kBottomTop, kBottomCharacters, szText);
}

static unsigned LampBit(eLamp nLamp, int bLit)
{
    return bLit ? 1U << nLamp : 0U;
}

static unsigned ComposeLamps(const cCalculator &c)
{
    const int bKeys = HasPendingKeys(c);
    return LampBit(laF, bKeys && EndsWith(c, "f ")) | LampBit(laG, bKeys && EndsWith(c, "g ")) |
           LampBit(laProgram, c.m_bProgramMode) | LampBit(laRunning, c.m_bProgramRunning);
}

void cCalculator::ComposeDisplay(cDisplay *pDisplay)
{
    SettleTexts();
    pDisplay->m_nLines = 0;
    pDisplay->m_nLamps = ComposeLamps(*this);
    if (m_bProgramMode)
        ComposeProgram(*this, pDisplay);
    else if (m_bShowStack)
        ComposeStack(*this, pDisplay);
    else
        ComposeNormal(*this, pDisplay);
    PadWithBlanks(m_szDisplay);
}
