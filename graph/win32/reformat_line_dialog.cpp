#include "toolkit/win32/win32.h"

#include "graph/win32/graph_dialog.h"
#include "graph/win32/vantor_dialogs.h"
#include "resources/resource.h"
#include "toolkit/win32/choosers.h"

namespace
{

class cReformatLineDialog : public cGraphDialog
{
public:
    explicit cReformatLineDialog(cVantorBox *pBox) : cGraphDialog(pBox), m_crSample(kWhite) {}

private:
    void     OnInit() override;
    int      OnOk() override;
    void     OnControl(int nId, int nNotification) override;
    COLORREF SampleColour() const override { return m_crSample; }

    void OnChangeLine();
    void OnChangeType();
    void OnChangeColour();
    void ShowColour(COLORREF crColour);
    void ListStyles(uint32_t nGraphType) const;
    int  SelectStyle(uint32_t nGraphType, uint32_t nStyle) const;
    int  SelectedType(uint32_t *pnGraphType) const;
    int  SelectedStyle(uint32_t nGraphType, uint32_t *pnStyle) const;
    int  StoreLook(uint32_t nLine, cVantorLineFormat Format, float fMultiplier, float fOffset);

    COLORREF m_crSample;
};

}  // namespace

void cReformatLineDialog::OnInit()
{
    SetLineSpinRange(IDC_FORMATTED_LINE_SPIN);
    SetSpinRange(IDC_LINE_WIDTH_SPIN, 1, kMostLineWidth);
    SetUnsigned(IDC_FORMATTED_LINE, 1);
}

void cReformatLineDialog::OnControl(int nId, int nNotification)
{
    if (nId == IDC_FORMATTED_LINE && nNotification == EN_CHANGE)
        OnChangeLine();
    else if (nId == IDC_CHANGE_COLOUR && nNotification == BN_CLICKED)
        OnChangeColour();
    else if (nId >= IDC_TYPE_PLOT && nId <= IDC_TYPE_STOOP && nNotification == BN_CLICKED)
        OnChangeType();
}

// If there is no such data line, the fields do not change: the user may still be
// typing the number.
void cReformatLineDialog::OnChangeLine()
{
    const cVantorDataSet *const pSet = FindLine(
        IDC_FORMATTED_LINE, "Program Error Code #31 in\ncVantorBox::OnReformatLineChangeLine()");
    if (!pSet)
        return;
    const uint32_t nGraphType = DrawnType(*pSet);
    ShowColour(pSet->m_crColor);
    CheckRadioButton(m_hDialog, IDC_TYPE_PLOT, IDC_TYPE_STOOP,
                     IDC_TYPE_PLOT + static_cast<int>(nGraphType));
    SetUnsigned(IDC_LINE_WIDTH, pSet->m_nWidth);
    SetText(IDC_LINE_LABEL, pSet->m_pszLabel.get());
    SetNumber(IDC_MULTIPLIER, pSet->m_fMultiplier);
    SetNumber(IDC_OFFSET, pSet->m_fOffset);
    ListStyles(nGraphType);
    if (!SelectStyle(nGraphType, pSet->m_nStyle))
        Say("Program Error Code #32 in\ncVantorBox::OnReformatLineChangeLine()");
}

// Lists the styles of the new type and selects the one at the same position.
void cReformatLineDialog::OnChangeType()
{
    uint32_t nGraphType = gtPlot;
    SelectedType(&nGraphType);
    const LRESULT nSelected = SendDlgItemMessageA(m_hDialog, IDC_LINE_STYLE, CB_GETCURSEL, 0, 0);
    ListStyles(nGraphType);
    SendDlgItemMessageA(m_hDialog, IDC_LINE_STYLE, CB_SETCURSEL, static_cast<WPARAM>(nSelected), 0);
}

void cReformatLineDialog::OnChangeColour()
{
    COLORREF crColour = m_crSample;
    if (AskColour(m_hDialog, &crColour))
        ShowColour(crColour);
}

void cReformatLineDialog::ShowColour(COLORREF crColour)
{
    m_crSample = crColour;
    InvalidateRect(GetDlgItem(m_hDialog, IDC_LINE_COLOUR), nullptr, FALSE);
}

void cReformatLineDialog::ListStyles(uint32_t nGraphType) const
{
    const cVantorStyle *const pStyles = StylesOf(nGraphType);
    SendDlgItemMessageA(m_hDialog, IDC_LINE_STYLE, CB_RESETCONTENT, 0, 0);
    for (int i = 0; i < kStyles; i++)
        SendDlgItemMessageA(m_hDialog, IDC_LINE_STYLE, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(pStyles[i].m_szName));
}

// 0 if there is no such style.
int cReformatLineDialog::SelectStyle(uint32_t nGraphType, uint32_t nStyle) const
{
    const cVantorStyle *const pStyles = StylesOf(nGraphType);
    for (int i = 0; i < kStyles; i++)
        if (pStyles[i].m_nValue == nStyle)
        {
            SendDlgItemMessageA(m_hDialog, IDC_LINE_STYLE, CB_SETCURSEL, static_cast<WPARAM>(i), 0);
            return 1;
        }
    return 0;
}

int cReformatLineDialog::SelectedType(uint32_t *pnGraphType) const
{
    for (uint32_t nType = gtPlot; nType <= gtStoop; nType++)
        if (IsChecked(IDC_TYPE_PLOT + static_cast<int>(nType)))
        {
            *pnGraphType = nType;
            return 1;
        }
    return 0;
}

int cReformatLineDialog::SelectedStyle(uint32_t nGraphType, uint32_t *pnStyle) const
{
    const LRESULT nSelected = SendDlgItemMessageA(m_hDialog, IDC_LINE_STYLE, CB_GETCURSEL, 0, 0);
    if (nSelected < 0 || nSelected >= kStyles)
        return 0;
    *pnStyle = StylesOf(nGraphType)[nSelected].m_nValue;
    return 1;
}

int cReformatLineDialog::OnOk()
{
    uint32_t          nLine       = 0;
    float             fMultiplier = 1.0F;
    float             fOffset     = 0.0F;
    cVantorLineFormat Format;
    if (!GetLine(IDC_FORMATTED_LINE, &nLine))
        return Refuse(IDC_FORMATTED_LINE, "ERROR: your \"Line #\" value produced an error");
    if (!GetUnsigned(IDC_LINE_WIDTH, 1, kMostLineWidth, &Format.m_nWidth))
        return Refuse(IDC_LINE_WIDTH, "ERROR: your \"Line Width\" value produced an error");
    if (!GetNumber(IDC_MULTIPLIER, &fMultiplier))
        return Refuse(IDC_MULTIPLIER, "ERROR: your \"Multiplier\" value produced an error");
    if (!GetNumber(IDC_OFFSET, &fOffset))
        return Refuse(IDC_OFFSET, "ERROR: your \"Offset\" value produced an error");
    return StoreLook(nLine, Format, fMultiplier, fOffset);
}

// Always returns 1: no other input would avoid these errors.
int cReformatLineDialog::StoreLook(uint32_t nLine, cVantorLineFormat Format, float fMultiplier,
                                   float fOffset)
{
    if (!m_pBox->DataSet(nLine))
        Say("Program Error Code #35 in\ncVantorBox::OnReformatLineOk()");
    else if (!SelectedType(&Format.m_nGraphType))
        Say("Program Error Code #36 in\ncVantorBox::OnReformatLineOk()");
    else if (!SelectedStyle(Format.m_nGraphType, &Format.m_nStyle))
        Say("Program Error Code #37 in\ncVantorBox::OnReformatLineOk()");
    else
    {
        char szLabel[kFieldText];
        GetText(IDC_LINE_LABEL, szLabel);
        Format.m_pszLabel = szLabel;
        Format.m_crColor  = m_crSample;
        m_pBox->FormatDataSet(nLine, Format, fMultiplier, fOffset);
    }
    return 1;
}

void ReformatLine(cVantorBox *pBox)
{
    cReformatLineDialog(pBox).Run(IDD_REFORMAT_LINE);
}
