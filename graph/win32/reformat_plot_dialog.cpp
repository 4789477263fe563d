#include "toolkit/win32/win32.h"

#include <cstdio>

#include "graph/win32/graph_dialog.h"
#include "graph/win32/vantor_dialogs.h"
#include "resources/resource.h"
#include "toolkit/win32/choosers.h"

namespace
{

class cReformatPlotDialog : public cGraphDialog
{
public:
    explicit cReformatPlotDialog(cVantorBox *pBox)
        : cGraphDialog(pBox), m_Settings(pBox->BoxSettings())
    {
    }

private:
    void OnInit() override;
    int  OnOk() override;
    void OnControl(int nId, int nNotification) override;

    int  ReadTicks();
    void OnTextFont();

    // Applied by OK. Font and colours are stored here as soon as they are chosen.
    cVantorBoxSettings m_Settings;
};

}  // namespace

void cReformatPlotDialog::OnInit()
{
    SetSpinRange(IDC_HORZ_TICKS_SPIN, 0, kMostTicks);
    SetSpinRange(IDC_VERT_TICKS_SPIN, 0, kMostTicks);
    SetText(IDC_PLOT_TITLE, m_Settings.m_szTitle);
    SetText(IDC_HORZ_LABEL, m_Settings.m_szHorzLabel);
    SetUnsigned(IDC_HORZ_TICKS, m_Settings.m_nHorzTicks);
    SetNumber(IDC_HORZ_MIN, m_Settings.m_fMinHorzTick);
    SetNumber(IDC_HORZ_MAX, m_Settings.m_fMaxHorzTick);
    SetUnsigned(IDC_VERT_TICKS, m_Settings.m_nVertTicks);
    SetNumber(IDC_VERT_MIN, m_Settings.m_fMinVertTick);
    SetNumber(IDC_VERT_MAX, m_Settings.m_fMaxVertTick);
    SetChecked(IDC_HORZ_GRID, m_Settings.m_bHorzGrid != 0);
    SetChecked(IDC_VERT_GRID, m_Settings.m_bVertGrid != 0);
    SetChecked(IDC_SHOW_LEGEND, m_Settings.m_bLegend != 0);
}

void cReformatPlotDialog::OnControl(int nId, int nNotification)
{
    if (nNotification != BN_CLICKED)
        return;
    COLORREF crAxis       = m_Settings.m_crAxis;
    COLORREF crBackground = m_Settings.m_crBackground;
    switch (nId)
    {
    case IDC_TEXT_FONT:
        OnTextFont();
        break;
    case IDC_AXIS_COLOUR:
        AskColour(m_hDialog, &crAxis);
        break;
    case IDC_BACKGROUND_COLOUR:
        AskColour(m_hDialog, &crBackground);
        break;
    default:
        break;
    }
    m_Settings.m_crAxis       = crAxis;
    m_Settings.m_crBackground = crBackground;
}

void cReformatPlotDialog::OnTextFont()
{
    COLORREF crText = m_Settings.m_crText;
    if (!AskFont(m_hDialog, &m_Settings.m_LogFont, &crText))
        return;
    m_Settings.m_bSystemFont = 0;
    m_Settings.m_crText      = crText;
}

// Stores the numbers only if all of them are valid.
int cReformatPlotDialog::ReadTicks()
{
    cVantorPlotSettings Read = static_cast<const cVantorPlotSettings &>(m_Settings);
    if (!GetUnsigned(IDC_HORZ_TICKS, 0, kMostTicks, &Read.m_nHorzTicks))
        return Refuse(IDC_HORZ_TICKS, "ERROR: your \"# horz ticks\" value produced an error");
    if (!GetNumber(IDC_HORZ_MIN, &Read.m_fMinHorzTick))
        return Refuse(IDC_HORZ_MIN, "ERROR: your \"min horz tick\" value produced an error");
    if (!GetNumber(IDC_HORZ_MAX, &Read.m_fMaxHorzTick))
        return Refuse(IDC_HORZ_MAX, "ERROR: your \"max horz tick\" value produced an error");
    if (!GetUnsigned(IDC_VERT_TICKS, 0, kMostTicks, &Read.m_nVertTicks))
        return Refuse(IDC_VERT_TICKS, "ERROR: your \"# vert ticks\" value produced an error");
    if (!GetNumber(IDC_VERT_MIN, &Read.m_fMinVertTick))
        return Refuse(IDC_VERT_MIN, "ERROR: your \"min vert tick\" value produced an error");
    if (!GetNumber(IDC_VERT_MAX, &Read.m_fMaxVertTick))
        return Refuse(IDC_VERT_MAX, "ERROR: your \"max vert tick\" value produced an error");
    static_cast<cVantorPlotSettings &>(m_Settings) = Read;
    return 1;
}

int cReformatPlotDialog::OnOk()
{
    if (!ReadTicks())
        return 0;
    char szText[kFieldText];
    GetText(IDC_PLOT_TITLE, szText);
    snprintf(m_Settings.m_szTitle, sizeof m_Settings.m_szTitle, "%s", szText);
    GetText(IDC_HORZ_LABEL, szText);
    snprintf(m_Settings.m_szHorzLabel, sizeof m_Settings.m_szHorzLabel, "%s", szText);
    m_Settings.m_bHorzGrid = IsChecked(IDC_HORZ_GRID) != 0;
    m_Settings.m_bVertGrid = IsChecked(IDC_VERT_GRID) != 0;
    m_Settings.m_bLegend   = IsChecked(IDC_SHOW_LEGEND) != 0;
    m_pBox->Apply(m_Settings);
    return 1;
}

void ReformatPlot(cVantorBox *pBox)
{
    cReformatPlotDialog(pBox).Run(IDD_REFORMAT_PLOT);
}
