#include "engine/display.h"

#include <cstdio>
#include <cstring>

#include "engine/vorstek_engine.h"

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
static const int kStackTop        = 78;  // X; Y, Z and T stand above it

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

// A positive number shows a blank where the sign of a negative one stands.
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

// Wait markers are no keys and are never shown.
int cVorstekEngine::HasVisibleKeystrokes() const
{
    return m_szKeystrokes[0] && strncmp(m_szKeystrokes, "EWF", 3) != 0 &&
           strncmp(m_szKeystrokes, "HWF", 3) != 0;
}

void cVorstekEngine::AddAnnunciator(cDisplay *pDisplay)
{
    static const char *const s_Names[] = {"rad", "deg", "grd"};
    AddLine(pDisplay, dfSmall, kAnnunciatorLeft, kAnnunciatorTop, 3, s_Names[m_nAngleMode]);
}

void cVorstekEngine::ComposeProgram(cDisplay *pDisplay)
{
    if (m_nCurLine > kLastLine)
    {
        SetCurLine(kLastLine);  // the box may let the display be drawn once more
        ShowProgramError(kCodeStepRange);
    }
    const ProgramLine &Line  = m_Program[m_nCurLine];
    const char *const  szGap = Line.m_szOperandText[0] ? " " : "";
    char               szText[64];
    snprintf(szText, sizeof szText, "%02u %s%s%s", m_nCurLine, Line.m_szText, szGap,
             Line.m_szOperandText);
    ShowText(szText);
    AddLine(pDisplay, dfLarge, kTextLeft, kMainTop, kDisplayVisible, m_szDisplay);

    snprintf(szText, sizeof szText, "%s%s", kKeystrokesLabel, m_szKeystrokes);
    AddLine(pDisplay, dfSmall, kTextLeft, kBottomTop, kBottomCharacters, szText);
}

void cVorstekEngine::ComposeStack(cDisplay *pDisplay)
{
    const char *const s_Levels[] = {m_szDisplay, m_szY, m_szZ, m_szT};
    int               nTop       = kStackTop;
    for (int i = 0; i < 4; i++, nTop -= kStackRowHeight)
    {
        char szText[kDisplayText];
        snprintf(szText, sizeof szText, "%c  %s", "XYZT"[i], s_Levels[i]);
        BlankPlus(szText + 3);
        AddLine(pDisplay, dfSmall, kTextLeft, nTop, kStackCharacters, szText);
    }
    AddAnnunciator(pDisplay);
    const int bKeys = HasVisibleKeystrokes();
    AddLine(pDisplay, dfSmall, kLabelLeft, kLabelTop, static_cast<int>(strlen(kLastOpLabel)),
            bKeys ? kKeystrokesLabel : kLastOpLabel);
    AddLine(pDisplay, dfSmall, kLabelLeft, kOperationTop, kOperationCharacters,
            bKeys ? m_szKeystrokes : m_szLastOp);
}

void cVorstekEngine::ComposeNormal(cDisplay *pDisplay)
{
    char szText[64];
    BlankPlus(m_szDisplay);
    AddLine(pDisplay, dfLarge, kNormalLeft, kMainTop, kDisplayVisible, m_szDisplay);
    AddAnnunciator(pDisplay);

    const int bKeys = HasVisibleKeystrokes();
    snprintf(szText, sizeof szText, "%s%s", bKeys ? kKeystrokesLabel : kLastOpLabel,
             bKeys ? m_szKeystrokes : m_szLastOp);
    AddLine(pDisplay, dfSmall, kTextLeft, kBottomTop, kBottomCharacters, szText);
}

void cVorstekEngine::ComposeDisplay(cDisplay *pDisplay)
{
    SettleTexts();
    pDisplay->m_nLines = 0;
    if (m_bProgramMode)
        ComposeProgram(pDisplay);
    else if (m_bShowStack)
        ComposeStack(pDisplay);
    else
        ComposeNormal(pDisplay);
    PadWithBlanks(m_szDisplay);
}
